// SPDX-License-Identifier: Apache-2.0
#include "common/DirectorySync.h"

#include "common/Failure.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace tamobox;

namespace {

TEST(DirectorySyncTest, WhatIsNotKnownToBeOnTheDiskIsAFailure)
{
    EXPECT_NO_THROW(syncDirectory(std::filesystem::temp_directory_path()));
    EXPECT_THROW(syncDirectory("/no/such/directory"), Failure);
    EXPECT_THROW(syncDirectory("/proc"), Failure); // which is on no disk
}

} // namespace
