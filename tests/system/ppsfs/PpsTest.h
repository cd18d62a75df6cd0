// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PPSTEST_H
#define TAMO_TESTS_PPSTEST_H

#include "PpsDescriptor.h"
#include "PrivatePps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>

namespace tamotest {

/** The longest text of an object, of a write and of a message, as docs/pps.md has it. */
constexpr std::size_t MaxText = 1'044'480;

/**
 * Each test has a filesystem of its own. A test suite is named after the sentence of docs/pps.md
 * that it tries, with its number.
 */
class PpsTest : public ::testing::Test
{
protected:
    /** The filesystem; null once it has been ended. */
    PpsFilesystem& filesystem() { return m_filesystem; }

    /** A text of `name::xxx...` lines, heading included, of exactly this size. */
    static std::string textOfSize(const std::string& object, std::size_t size);

    /** What the object holds, read through a descriptor of its own. */
    static std::string contentOf(const std::string& object);

    /** Tries something until it succeeds, with a limit. False where it never did. */
    static bool eventually(const std::function<bool()>& attempt);

    /** Runs something in a child process and returns its exit status (128 + signal where killed).
     */
    static int inChild(const std::function<int()>& work);

    /** Runs a shell command and returns its exit status. */
    static int shell(const std::string& command, std::string* output = nullptr);

private:
    PpsFilesystem m_filesystem;
};

} // namespace tamotest

#endif
