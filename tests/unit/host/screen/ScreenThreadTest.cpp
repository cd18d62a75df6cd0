// SPDX-License-Identifier: Apache-2.0
#include "ScreenContext.h"

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <thread>

using namespace tamotest;
using namespace testing;

namespace {

TEST(ScreenThreadTest, ThreadsShareAContextWhileItIsDestroyed)
{
    const PpsFilesystem pps;
    publishDisplays(display(1) + ',' + display(2));
    screen_context_t context = nullptr;
    ASSERT_EQ(screen_create_context(&context, 0), 0);
    std::atomic<int> readings{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([context, &readings] {
            for (;;) {
                int count = 0;
                if (screen_get_context_property_iv(context, SCREEN_PROPERTY_DISPLAY_COUNT,
                                                   &count) != 0) {
                    EXPECT_EQ(errno, EINVAL);
                    return;
                }
                EXPECT_EQ(count, 2);
                void* handles[2] = {};
                if (screen_get_context_property_pv(context, SCREEN_PROPERTY_DISPLAYS, handles) == 0)
                    numberOf(static_cast<screen_display_t>(handles[1]), SCREEN_PROPERTY_ROTATION);
                ++readings;
            }
        });
    while (readings < 200)
        std::this_thread::yield();
    EXPECT_EQ(screen_destroy_context(context), 0);
    for (std::thread& thread : threads)
        thread.join();
}

TEST(ScreenThreadTest, ProcessExitsWhileThreadsCall)
{
    for (int i = 0; i < 50; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            static std::atomic<int> readings{0};
            for (int thread = 0; thread < 2; ++thread)
                std::thread([] {
                    for (;;) {
                        const ScreenContext context;
                        for (const screen_display_t display : context.displays())
                            nameOf(display);
                        ++readings;
                    }
                }).detach();
            while (readings < 10)
                std::this_thread::yield();
            std::exit(readings > 0 ? 0 : 1);
        }
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
}

} // namespace
