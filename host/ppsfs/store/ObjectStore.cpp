// SPDX-License-Identifier: Apache-2.0
#include "ObjectStore.h"

#include "ObjectName.h"

#include <cerrno>
#include <string>
#include <utility>

namespace ppsfs {

ObjectStore::ObjectStore(const NodeStatus& status)
    : m_root(std::make_shared<Directory>(RootNumber, std::string(), status))
{
}

int ObjectStore::createObject(Directory& directory, std::string_view name, const NodeStatus& status,
                              std::shared_ptr<Object>& object)
{
    if (const int error = checkNew(directory, name))
        return error;
    object = std::make_shared<Object>(++m_lastNumber, std::string(name), status);
    insert(directory, object);
    return 0;
}

int ObjectStore::createDirectory(Directory& directory, std::string_view name,
                                 const NodeStatus& status, std::shared_ptr<Directory>& created)
{
    if (const int error = checkNew(directory, name))
        return error;
    created = std::make_shared<Directory>(++m_lastNumber, std::string(name), status);
    ++directory.m_directories;
    insert(directory, created);
    return 0;
}

int ObjectStore::removeObject(Directory& directory, std::string_view name)
{
    const std::shared_ptr<Node> node = directory.find(name);
    if (!node)
        return ENOENT;
    const auto object = std::dynamic_pointer_cast<Object>(node);
    if (!object)
        return EISDIR;
    erase(directory, name);
    object->remove();
    return 0;
}

int ObjectStore::removeDirectory(Directory& directory, std::string_view name)
{
    const std::shared_ptr<Node> node = directory.find(name);
    if (!node)
        return ENOENT;
    const auto removed = std::dynamic_pointer_cast<Directory>(node);
    if (!removed)
        return ENOTDIR;
    if (!removed->children().empty())
        return ENOTEMPTY;
    erase(directory, name);
    --directory.m_directories;
    removed->setRemoved();
    return 0;
}

int ObjectStore::checkNew(const Directory& directory, std::string_view name) const
{
    if (directory.isRemoved())
        return ENOENT;
    if (!isValidNodeName(name))
        return EINVAL;
    return directory.find(name) ? EEXIST : 0;
}

void ObjectStore::insert(Directory& directory, std::shared_ptr<Node> node)
{
    directory.status().modified = directory.status().changed = timeStamp();
    directory.m_children.emplace(node->name(), std::move(node));
    ++m_nodes;
}

void ObjectStore::erase(Directory& directory, std::string_view name)
{
    directory.status().modified = directory.status().changed = timeStamp();
    directory.m_children.erase(directory.m_children.find(name));
    --m_nodes;
}

} // namespace ppsfs
