// SPDX-License-Identifier: Apache-2.0
#include "Update.h"

#include "TextReader.h"

#include <cerrno>

namespace ppsfs {
namespace {

constexpr std::size_t ScannedChanges = 16;

} // namespace

int Update::parse(std::string_view text, std::string_view heading)
{
    pps::TextReader reader(text);
    pps::Line line;
    while (reader.next(line)) {
        switch (line.kind) {
        case pps::LineKind::Object:
            if (line.text != heading)
                return EINVAL;
            break;
        case pps::LineKind::Attribute:
            add({line.name, line.text.substr(line.name.size())});
            break;
        case pps::LineKind::DeletedAttribute:
            add({line.name, {}});
            break;
        case pps::LineKind::RemovedObject:
        case pps::LineKind::ArrivedClient:
            return EINVAL;
        }
    }
    return reader.error() ? EINVAL : 0;
}

const Update::Change* Update::find(std::string_view name) const
{
    if (!m_index.empty()) {
        const auto found = m_index.find(name);
        return found == m_index.end() ? nullptr : &m_changes[found->second];
    }
    for (const Change& change : m_changes) {
        if (change.name == name)
            return &change;
    }
    return nullptr;
}

void Update::add(const Change& change)
{
    if (const Change* const earlier = find(change.name)) {
        m_changes[static_cast<std::size_t>(earlier - m_changes.data())] = change;
        return;
    }
    m_changes.push_back(change);
    if (!m_index.empty()) {
        m_index.emplace(change.name, m_changes.size() - 1);
    } else if (m_changes.size() > ScannedChanges) {
        for (std::size_t i = 0; i < m_changes.size(); ++i)
            m_index.emplace(m_changes[i].name, i);
    }
}

} // namespace ppsfs
