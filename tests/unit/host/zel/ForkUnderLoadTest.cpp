// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <unistd.h>

#include <atomic>
#include <thread>

namespace tamotest {
namespace {

class ForkUnderLoadTest : public ZelTest
{
};

TEST_F(ForkUnderLoadTest, AForkWhileOthersPushLeavesTheChildUsable)
{
    std::atomic<bool> ends{false};
    std::atomic<int> theirs{0};
    std::thread busy([&] {
        zel_initialize();
        theirs = zel_channel_get_active();
        while (!ends) {
            push(theirs, 1);
            take(0);
        }
    });
    while (theirs == 0)
        std::this_thread::yield();
    for (int i = 0; i < 50; ++i) {
        ASSERT_EQ(inChild([&] {
                      alarm(20);
                      if (zel_initialize() != 0)
                          return 1;
                      for (int j = 0; j < 40; ++j) { // one for each lock, and more
                          int made = 0;
                          if (zel_channel_create(&made) != 0)
                              return 2;
                          push(made, j);
                      }
                      return zel_shutdown() == 0 ? 0 : 3;
                  }),
                  0);
    }
    ends = true;
    busy.join();
}

} // namespace
} // namespace tamotest
