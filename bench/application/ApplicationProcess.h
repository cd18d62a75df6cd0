// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_APPLICATIONPROCESS_H
#define TAMO_BENCH_APPLICATIONPROCESS_H

#include "ChildProcess.h"
#include "Descriptor.h"
#include "SharedMemory.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

namespace tamobench {

/** Which of Qt's event dispatchers an application runs on. */
enum class Dispatcher { GLib, Unix };

struct NamedDispatcher
{
    Dispatcher dispatcher;
    const char* name;
};
constexpr std::array<NamedDispatcher, 2> dispatchers = {{
    {Dispatcher::GLib, "GLib dispatcher"},
    {Dispatcher::Unix, "Qt's own dispatcher"},
}};

/**
 * A Qt application in a process of its own, and the way on which it and the benchmark tell each
 * other what they have done. It ends with its owner.
 */
class ApplicationProcess
{
public:
    /** What the application is: makes its objects and calls exec(). */
    using Body = std::function<void()>;

    /** What the application does when it is ordered to. */
    using Obey = std::function<void(int order)>;

    ApplicationProcess();

    /**
     * Forks, constructs the process's QCoreApplication and runs `body` in it; returns when exec()
     * has begun. Throws where that takes more than ten seconds.
     */
    void start(Dispatcher dispatcher, const Body& body);

    /** Called by the application: runs the event loop. */
    void exec(const Obey& obey = {});

    /** Called by the application: something has happened, at that time; `value` says what. */
    void tell(std::int64_t time, int value);

    /** Called by the benchmark: orders the application to do something. @param order from 1 */
    void order(int order);

    /**
     * Called by the benchmark: waits until the application tells something.
     *
     * @param value what it is to tell; throws where it tells another value, or within ten seconds
     *        nothing
     * @return when it happened, in nanoseconds on the clock of now()
     */
    std::int64_t await(int value);

private:
    /** What the application tells. */
    struct Told
    {
        std::atomic<std::int64_t> time{0};
        std::atomic<int> value{0};
    };

    SharedMemory<Told> m_told;
    Descriptor m_telling;
    Descriptor m_orders;
    ChildProcess m_process;
};

} // namespace tamobench

#endif
