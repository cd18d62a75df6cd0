// SPDX-License-Identifier: Apache-2.0
// Two threads that write the same integer with nothing between them.
#include <cstdio>
#include <thread>

namespace {

int counter = 0;

void count()
{
    for (int i = 0; i < 1000; ++i)
        ++counter;
}

} // namespace

int main()
{
    std::thread first(count);
    std::thread second(count);
    first.join();
    second.join();
    std::printf("%d\n", counter);
}
