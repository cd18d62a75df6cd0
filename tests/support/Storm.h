// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_STORM_H
#define TAMO_TESTS_STORM_H

#include <atomic>
#include <functional>
#include <thread>
#include <utility>

namespace tamotest {

/** Calls a function over and over, in a thread of its own, from its construction to its end. */
class Storm
{
public:
    explicit Storm(std::function<void()> function)
        : m_thread([this, call = std::move(function)] {
            while (!m_isOver) {
                call();
                std::this_thread::yield();
            }
        })
    {
    }
    Storm(const Storm&) = delete;
    Storm& operator=(const Storm&) = delete;
    ~Storm()
    {
        m_isOver = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_isOver{false};
    std::thread m_thread; // the last, so that it finds the rest
};

} // namespace tamotest

#endif
