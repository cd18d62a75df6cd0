// SPDX-License-Identifier: Apache-2.0
#include "AttributeTable.h"

#include "Limits.h"

#include <iterator>

namespace ppsfs {

std::size_t AttributeTable::sizeAfter(const Update& update, bool replace) const
{
    std::size_t size = replace ? 0 : m_size;
    for (const Update::Change& change : update.changes()) {
        if (!replace) {
            const auto found = m_index.find(change.name);
            if (found != m_index.end() && !found->second->isDeleted())
                size -= found->second->lineSize();
        }
        if (!change.deletes())
            size += change.lineSize();
    }
    return size;
}

void AttributeTable::merge(const Update& update, bool replace, std::uint64_t publication)
{
    if (replace) {
        for (auto attribute = m_attributes.begin(); attribute != m_attributes.end();) {
            const auto next = std::next(attribute);
            if (!update.find(attribute->name))
                remove(attribute, publication);
            attribute = next;
        }
    }
    for (const Update::Change& change : update.changes()) {
        if (!change.deletes()) {
            set(change, replace, publication);
            continue;
        }
        const auto found = m_index.find(change.name);
        if (found != m_index.end() && !found->second->isDeleted())
            remove(found->second, publication);
    }
    forgetSurplus();
}

void AttributeTable::rememberDeleted(bool remember)
{
    m_remember = remember;
    while (!remember && !m_deleted.empty())
        forget(m_deleted, m_deleted.begin());
}

void AttributeTable::clear()
{
    m_index.clear();
    m_journal.clear();
    m_attributes.clear();
    m_deleted.clear();
    m_size = 0;
    m_deletedSize = 0;
}

void AttributeTable::appendTo(std::string& text) const
{
    for (const Attribute& attribute : m_attributes) {
        text += attribute.name;
        text += attribute.tail;
        text += '\n';
    }
}

bool AttributeTable::appendChangesTo(std::string& text, std::uint64_t since,
                                     std::size_t limit) const
{
    if (since < m_forgotten)
        return false;
    std::size_t size = 0;
    auto first = m_journal.end();
    while (first != m_journal.begin() && (*std::prev(first))->publication > since) {
        --first;
        size += (*first)->lineSize();
        if (size > limit)
            return false;
    }
    for (; first != m_journal.end(); ++first) {
        if ((*first)->isDeleted())
            text += '-';
        text += (*first)->name;
        text += (*first)->tail;
        text += '\n';
    }
    return true;
}

void AttributeTable::set(const Update::Change& change, bool moveToEnd, std::uint64_t publication)
{
    auto found = m_index.find(change.name);
    if (found == m_index.end()) {
        const auto added = m_attributes.emplace(m_attributes.end(), change.name);
        added->entry = m_journal.insert(m_journal.end(), &*added);
        found = m_index.emplace(added->name, added).first;
    } else if (found->second->isDeleted()) {
        m_deletedSize -= found->second->lineSize();
        m_attributes.splice(m_attributes.end(), m_deleted, found->second);
    } else {
        m_size -= found->second->lineSize();
        if (moveToEnd)
            m_attributes.splice(m_attributes.end(), m_attributes, found->second);
    }
    Attribute& attribute = *found->second;
    attribute.tail.assign(change.tail);
    m_size += attribute.lineSize();
    touch(attribute, publication);
}

void AttributeTable::remove(Attributes::iterator attribute, std::uint64_t publication)
{
    m_size -= attribute->lineSize();
    if (!m_remember) {
        forget(m_attributes, attribute);
        return;
    }
    attribute->tail = std::string();
    m_deletedSize += attribute->lineSize();
    m_deleted.splice(m_deleted.end(), m_attributes, attribute);
    touch(*attribute, publication);
}

void AttributeTable::touch(Attribute& attribute, std::uint64_t publication)
{
    attribute.publication = publication;
    m_journal.splice(m_journal.end(), m_journal, attribute.entry);
}

void AttributeTable::forget(Attributes& list, Attributes::iterator attribute)
{
    m_index.erase(attribute->name);
    m_journal.erase(attribute->entry);
    if (&list == &m_deleted)
        m_deletedSize -= attribute->lineSize();
    list.erase(attribute);
}

void AttributeTable::forgetSurplus()
{
    while (m_deletedSize > limits::TextSize) {
        m_forgotten = m_deleted.front().publication;
        forget(m_deleted, m_deleted.begin());
    }
}

} // namespace ppsfs
