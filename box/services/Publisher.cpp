// SPDX-License-Identifier: Apache-2.0
#include "Publisher.h"

#include <fcntl.h>

#include <utility>

namespace tamobox {

Publisher::Publisher(const std::string& object)
    : m_path(object), m_name(object.substr(object.rfind('/') + 1)), m_file(object, O_WRONLY)
{
}

void Publisher::publish(const std::function<void(MessageWriter&)>& fill)
{
    MessageWriter message;
    fill(message.object(m_name));
    m_file.write(message.text());
}

void Publisher::publishChange(const std::function<void(MessageWriter&)>& fill)
{
    MessageWriter message;
    fill(message.object(m_name));
    std::string text = message.text();
    if (text == m_lastChange)
        return;
    m_file.write(text);
    m_lastChange = std::move(text);
}

std::optional<std::string> Publisher::published() const
{
    return ObjectFile(m_path, O_RDONLY | O_NONBLOCK).read();
}

} // namespace tamobox
