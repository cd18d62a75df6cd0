// SPDX-License-Identifier: Apache-2.0
#include "OpenObject.h"

#include "ObjectName.h"

#include <utility>

namespace tamotest {

OpenObject::OpenObject(ppsfs::ObjectStore& store, std::string_view name, Access access,
                       bool truncates)
{
    ppsfs::ObjectName parsed;
    m_error = ppsfs::ObjectName::parse(name, parsed);
    if (m_error)
        return;
    auto object = std::dynamic_pointer_cast<ppsfs::Object>(store.root()->find(parsed.plain));
    if (!object)
        m_error = store.createObject(*store.root(), parsed.plain, ppsfs::NodeStatus(), object);
    if (m_error)
        return;
    const ppsfs::OpenMode mode{parsed.options, (access & Read) != 0, (access & Write) != 0,
                               truncates};
    m_error = ppsfs::Handle::open(std::move(object), mode, {100, 1000, 1001}, *this, m_handle);
}

std::string OpenObject::read()
{
    std::string message(m_handle->message());
    if (!message.empty())
        m_handle->consume();
    return message;
}

int OpenObject::takeWakes()
{
    return std::exchange(m_wakes, 0);
}

} // namespace tamotest
