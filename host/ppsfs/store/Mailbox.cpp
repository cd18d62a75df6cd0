// SPDX-License-Identifier: Apache-2.0
#include "Mailbox.h"

#include <cerrno>
#include <charconv>

namespace ppsfs {

std::string Mailbox::address(std::uint64_t client) const
{
    std::string text(m_heading, 0, m_heading.size() - 1);
    text += '.';
    text += std::to_string(client);
    return text;
}

int Mailbox::parseAddress(std::string_view line, std::uint64_t& client) const
{
    const std::string_view name(m_heading.data(), m_heading.size() - 1);
    if (line.substr(0, name.size()) != name)
        return EINVAL;
    line.remove_prefix(name.size());
    if (line.size() < 2 || line[0] != '.' || line[1] == '0')
        return EINVAL;
    const char* const end = line.data() + line.size();
    const auto result = std::from_chars(line.data() + 1, end, client);
    return result.ec == std::errc() && result.ptr == end ? 0 : EINVAL;
}

MailboxClient* Mailbox::client(std::uint64_t number) const
{
    const auto found = m_clients.find(number);
    return found == m_clients.end() ? nullptr : found->second;
}

} // namespace ppsfs
