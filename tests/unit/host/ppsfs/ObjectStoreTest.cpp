// SPDX-License-Identifier: Apache-2.0
#include "ObjectStore.h"
#include "OpenObject.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>

namespace ppsfs {
namespace {

class Store : public ::testing::Test
{
protected:
    ObjectStore store{NodeStatus()};
    Directory& root = *store.root();
    std::shared_ptr<Object> object;
    std::shared_ptr<Directory> directory;
};

TEST_F(Store, NamesAreUniqueInADirectory)
{
    ASSERT_EQ(store.createObject(root, "o", NodeStatus(), object), 0);
    EXPECT_EQ(store.createObject(root, "o", NodeStatus(), object), EEXIST);
    EXPECT_EQ(store.createDirectory(root, "o", NodeStatus(), directory), EEXIST);
    ASSERT_EQ(store.createDirectory(root, "d", NodeStatus(), directory), 0);
    EXPECT_EQ(store.createObject(*directory, "o", NodeStatus(), object), 0);
    EXPECT_EQ(store.createObject(root, "a\nb", NodeStatus(), object), EINVAL);
    EXPECT_EQ(store.nodes(), 4U);
    EXPECT_EQ(root.directories(), 1U);
}

TEST_F(Store, NumbersAreNeverUsedAgain)
{
    ASSERT_EQ(store.createObject(root, "o", NodeStatus(), object), 0);
    const auto number = object->number();
    ASSERT_EQ(store.removeObject(root, "o"), 0);
    ASSERT_EQ(store.createObject(root, "o", NodeStatus(), object), 0);
    EXPECT_GT(object->number(), number);
}

TEST_F(Store, RemovalFitsTheKind)
{
    ASSERT_EQ(store.createDirectory(root, "d", NodeStatus(), directory), 0);
    ASSERT_EQ(store.createObject(*directory, "o", NodeStatus(), object), 0);
    EXPECT_EQ(store.removeObject(root, "d"), EISDIR);
    EXPECT_EQ(store.removeDirectory(*directory, "o"), ENOTDIR);
    EXPECT_EQ(store.removeDirectory(root, "d"), ENOTEMPTY);
    EXPECT_EQ(store.removeObject(root, "o"), ENOENT);
    EXPECT_EQ(store.removeObject(*directory, "o"), 0);
    EXPECT_EQ(store.removeDirectory(root, "d"), 0);
    EXPECT_EQ(store.createObject(*directory, "o", NodeStatus(), object), ENOENT);
    EXPECT_EQ(store.nodes(), 1U);
}

TEST_F(Store, ARemovedObjectCannotBeOpened)
{
    ASSERT_EQ(store.createObject(root, "o", NodeStatus(), object), 0);
    ASSERT_EQ(store.removeObject(root, "o"), 0);
    tamotest::OpenObject other(store, "o");
    std::unique_ptr<Handle> handle;
    EXPECT_EQ(Handle::open(object, OpenMode{0, true, true, false}, Opener(), other, handle),
              ENOENT);
    EXPECT_EQ(handle, nullptr);
}

} // namespace
} // namespace ppsfs
