// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <dirent.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <thread>

namespace tamotest {

std::size_t openDescriptors()
{
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir("/proc/self/fd"), &closedir);
    std::size_t count = 0;
    while (readdir(directory.get()))
        ++count;
    return count;
}

void inThread(const std::function<void()>& work)
{
    std::thread(work).join();
}

int inChild(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void ZelTest::SetUp()
{
    m_descriptorsBefore = openDescriptors();
    ASSERT_EQ(zel_initialize(), 0);
    m_channel = zel_channel_get_active();
    ASSERT_GT(m_channel, 0);
    m_domain = zel_register_domain();
    ASSERT_GT(m_domain, 0);
}

void ZelTest::TearDown()
{
    EXPECT_EQ(zel_shutdown(), 0);
    EXPECT_EQ(zel_shutdown(), -1) << "the test has left an initialisation";
    EXPECT_EQ(openDescriptors(), m_descriptorsBefore);
}

zel_event_t* ZelTest::make(int code, std::uintptr_t data, zel_event_completion_t completion) const
{
    const zel_event_payload_t payload{data, 0, 0};
    zel_event_t* event = nullptr;
    EXPECT_EQ(zel_event_create(&event, m_domain, code, &payload, completion), 0);
    return event;
}

void ZelTest::push(int toChannel, int code, std::uintptr_t data,
                   zel_event_completion_t completion) const
{
    EXPECT_EQ(zel_channel_push_event(toChannel, make(code, data, completion)), 0);
}

int ZelTest::take(int timeoutMs)
{
    zel_event_t* event = nullptr;
    EXPECT_EQ(zel_get_event(&event, timeoutMs), 0);
    return event ? zel_event_get_code(event) : -1;
}

} // namespace tamotest
