// SPDX-License-Identifier: Apache-2.0
#include "RecordPages.h"

#include "pps/MessageReader.h"
#include "pps/ObjectCreation.h"

#include <cerrno>
#include <charconv>

namespace tamobox {

namespace {

template<typename Handler>
void readPage(const std::string& text, const std::string& name, Handler handle)
{
    MessageReader reader(text);
    if (!reader.enter(('@' + name).c_str()))
        return;
    while (reader.next()) {
        const std::string attribute = reader.name();
        int number = 0;
        const char* const end = attribute.data() + attribute.size();
        const auto result = std::from_chars(attribute.data(), end, number);
        const auto value = reader.string(nullptr);
        if (result.ec == std::errc() && result.ptr == end && value)
            handle(number, *value);
    }
}

} // namespace

RecordPages::RecordPages(const std::string& directory) : m_directory(directory)
{
    for (;;) {
        try {
            m_pages.push_back({std::make_unique<Publisher>(pathOf(m_pages.size())), 0});
        } catch (const ObjectFailure& failure) {
            if (failure.error() != ENOENT || m_pages.empty())
                throw;
            break;
        }
        Page& page = m_pages.back();
        if (const auto text = page.object->published())
            readPage(*text, std::to_string(m_pages.size() - 1),
                     [&](int number, const std::string&) {
                         m_pageOf[number] = m_pages.size() - 1;
                         ++page.count;
                     });
    }
    m_current = m_pages.size() - 1;
}

std::map<int, std::string> RecordPages::all() const
{
    std::map<int, std::string> records;
    for (std::size_t i = 0; i < m_pages.size(); ++i)
        if (const auto text = m_pages[i].object->published())
            readPage(*text, std::to_string(i),
                     [&](int number, const std::string& value) { records[number] = value; });
    return records;
}

void RecordPages::put(int number, const std::string& text)
{
    const auto known = m_pageOf.find(number);
    if (known != m_pageOf.end()) {
        if (putInto(known->second, number, text))
            return;
        throw Failure("it is too long to be changed");
    }
    if (putInto(m_current, number, text))
        return;
    m_current = otherPage();
    if (!putInto(m_current, number, text))
        throw Failure("it is too long");
}

void RecordPages::erase(int number)
{
    const auto known = m_pageOf.find(number);
    if (known == m_pageOf.end())
        return;
    Page& page = m_pages[known->second];
    page.object->publish(
        [&](MessageWriter& message) { message.remove(std::to_string(number).c_str()); });
    --page.count;
    m_pageOf.erase(known);
}

bool RecordPages::putInto(std::size_t page, int number, const std::string& text)
{
    try {
        m_pages[page].object->publish(std::to_string(number).c_str(), text);
    } catch (const ObjectFailure& failure) {
        if (failure.error() != EFBIG)
            throw;
        return false;
    }
    if (m_pageOf.emplace(number, page).second)
        ++m_pages[page].count;
    return true;
}

// One that has been emptied, or a new one.
std::size_t RecordPages::otherPage()
{
    for (std::size_t i = 0; i < m_pages.size(); ++i)
        if (m_pages[i].count == 0)
            return i;
    createObject(pathOf(m_pages.size()), 0600);
    m_pages.push_back({std::make_unique<Publisher>(pathOf(m_pages.size())), 0});
    return m_pages.size() - 1;
}

std::string RecordPages::pathOf(std::size_t page) const
{
    return m_directory + '/' + std::to_string(page);
}

} // namespace tamobox
