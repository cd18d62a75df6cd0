// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_CORETEST_H
#define TAMO_TESTS_CORETEST_H

#include "SubstitutePlatform.h"
#include "SubstituteProvider.h"

#include "core/ZelEventDispatcher.h"
#include "core/ZelEventHandler.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace tamotest {

/** A handler that keeps what it was called with. */
class RecordingHandler : public tamo::ZelEventHandler
{
public:
    struct Dispatch
    {
        int code = 0;
        std::thread::id thread;
    };

    explicit RecordingHandler(SubstituteCore& core) : m_core(core) {}

    /** Runs in each call, in the dispatch thread. */
    std::function<void()> whenCalled;

    void dispatchZelEvent(zel_event_t* event) override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_dispatches.push_back({m_core.eventGetCode(event), std::this_thread::get_id()});
        }
        if (whenCalled)
            whenCalled();
    }

    std::vector<Dispatch> dispatches() const
    {
        const std::lock_guard lock(m_mutex);
        return m_dispatches;
    }

    bool waitForDispatches(std::size_t count) const
    {
        return eventually([&] { return dispatches().size() >= count; });
    }

private:
    SubstituteCore& m_core;
    mutable std::mutex m_mutex;
    std::vector<Dispatch> m_dispatches;
};

/** The tests of the dispatcher: three services and a handler for each. */
class CoreTest : public PlatformTest
{
protected:
    using Dispatcher = tamo::ZelEventDispatcher;

    void add(SubstituteProvider& provider, RecordingHandler& target, int flags = 0)
    {
        Dispatcher::registerForEvents(&provider, flags, &target);
    }

    void remove(SubstituteProvider& provider, RecordingHandler& target, int flags = 0)
    {
        Dispatcher::unregisterForEvents(&provider, flags, &target);
    }

    /** The events of a service arrive from when its request was carried out. */
    bool deliver(SubstituteProvider& provider, int code)
    {
        return eventually([&] { return provider.deliver(code); });
    }

    SubstituteProvider first{journal, core, "first", 51};
    SubstituteProvider second{journal, core, "second", 52};
    SubstituteProvider third{journal, core, "third", 53};
    RecordingHandler handler{core};
    RecordingHandler otherHandler{core};
    RecordingHandler thirdHandler{core};
};

/** Starts threads that wait for each other, run a function at the same moment, and are joined. */
inline void atOnce(int threads, const std::function<void(int)>& function)
{
    std::mutex mutex;
    std::condition_variable changed;
    int waiting = 0;
    std::vector<std::thread> all;
    for (int i = 0; i < threads; ++i) {
        all.emplace_back([&, i] {
            {
                std::unique_lock lock(mutex);
                ++waiting;
                changed.notify_all();
                changed.wait(lock, [&] { return waiting == threads; });
            }
            function(i);
        });
    }
    for (std::thread& thread : all)
        thread.join();
}

} // namespace tamotest

#endif
