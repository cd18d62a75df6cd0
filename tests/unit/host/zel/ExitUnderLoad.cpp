// SPDX-License-Identifier: Apache-2.0
// A process that exits while its threads wait for events, take them and push them.
#include <zel/zel.h>

#include <pthread.h>

#include <atomic>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

std::atomic<int> channels[2];
std::atomic<long> taken{0};

zel_event_t* make(int domain)
{
    zel_event_t* event = nullptr;
    zel_event_create(&event, domain, 0, nullptr, nullptr);
    return event;
}

/** Sends each event that comes on to the other thread. */
void playBall(int own)
{
    zel_initialize();
    const int domain = zel_register_domain();
    channels[own] = zel_channel_get_active();
    while (channels[1 - own] == 0)
        std::this_thread::yield();
    for (;;) {
        zel_channel_push_event(channels[1 - own], make(domain));
        zel_event_t* event = nullptr;
        zel_get_event(&event, -1);
        ++taken;
    }
}

void* comeAndGo(void*);

/** Starts a thread that is detached from its beginning: one that is not yet when the process exits
 * is a leak to ThreadSanitizer. */
void startNext()
{
    pthread_attr_t detached;
    pthread_attr_init(&detached);
    pthread_attr_setdetachstate(&detached, PTHREAD_CREATE_DETACHED);
    pthread_t thread;
    pthread_create(&thread, &detached, comeAndGo, nullptr);
    pthread_attr_destroy(&detached);
}

/** Uses the library and ends; another thread does the same. */
void* comeAndGo(void*)
{
    zel_initialize();
    zel_push_event(make(zel_register_domain()));
    startNext();
    return nullptr;
}

void waitForEver()
{
    zel_initialize();
    zel_event_t* event = nullptr;
    zel_get_event(&event, -1);
}

} // namespace

int main()
{
    zel_initialize();
    zel_channel_get_active();
    std::thread(playBall, 0).detach();
    std::thread(playBall, 1).detach();
    startNext();
    std::thread(waitForEver).detach();
    while (taken < 10)
        std::this_thread::yield();
    std::exit(7); // destructors of static objects run, while the threads go on
}
