// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_ZELTEST_H
#define TAMO_TESTS_ZELTEST_H

#include <zel/zel.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>

namespace tamotest {

/** A limit for what is expected to happen, in milliseconds. */
constexpr int TimeoutMs = 20'000;

/** The number of descriptors that the process has open. */
std::size_t openDescriptors();

/** Runs something in a thread of its own, and waits for the thread's end. */
void inThread(const std::function<void()>& work);

/** Runs something in a child process and returns its exit status (128 + signal where killed). */
int inChild(const std::function<int()>& work);

/** Matches a call that failed with an `errno` value, and clears `errno` for the next one. */
MATCHER_P(FailsWith, error, "")
{
    const int set = std::exchange(errno, 0);
    *result_listener << "errno " << set;
    return arg == -1 && set == error;
}

/**
 * Each test begins with the thread initialised and a channel of its own active, and a domain to
 * use. After it nothing may be left: neither initialisation nor descriptors.
 */
class ZelTest : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    int channel() const { return m_channel; }
    int domain() const { return m_domain; }

    /** An event with a code, and its first word. */
    zel_event_t* make(int code, std::uintptr_t data = 0,
                      zel_event_completion_t completion = nullptr) const;

    /** Makes an event and pushes it to a channel. */
    void push(int toChannel, int code, std::uintptr_t data = 0,
              zel_event_completion_t completion = nullptr) const;

    /** Takes an event and returns its code; -1 where there is none in time. */
    static int take(int timeoutMs = TimeoutMs);

private:
    std::size_t m_descriptorsBefore = 0;
    int m_channel = 0;
    int m_domain = 0;
};

} // namespace tamotest

#endif
