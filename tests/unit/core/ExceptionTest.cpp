// SPDX-License-Identifier: Apache-2.0
#include <tamo/Exception.h>

#include <tamo/PpsAccessor.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

void throwInsideTheLibrary()
{
    tamo::PpsAccessor::decode("not PPS text");
}

TEST(Exception, IsCaughtByItsTypeAcrossTheLibrarysBorder)
{
    EXPECT_THROW(throwInsideTheLibrary(), tamo::Exception);
}

TEST(Exception, IsCaughtAsAStandardException)
{
    EXPECT_THROW(throwInsideTheLibrary(), std::exception);
}

TEST(Exception, CarriesTheStandardTextAlone)
{
    const tamo::Exception exception;
    const std::exception standard;
    EXPECT_STREQ(exception.what(), standard.what());
    EXPECT_EQ(sizeof exception, sizeof standard);
}

TEST(Exception, IsMadeWithoutArgumentsAndCopied)
{
    EXPECT_TRUE(std::is_nothrow_default_constructible_v<tamo::Exception>);
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<tamo::Exception>);
}

} // namespace
