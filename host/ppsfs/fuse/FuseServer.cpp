// SPDX-License-Identifier: Apache-2.0
#include "FuseServer.h"

#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

namespace ppsfs {
namespace {

constexpr int EndingSignals[] = {SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t endAsked = 0;

void askForEnd(int)
{
    endAsked = 1;
}

/** Lets the ending signals in only while waiting, so that none comes between a look and a wait. */
sigset_t catchEndingSignals()
{
    sigset_t blocked;
    sigemptyset(&blocked);
    struct sigaction action
    {
    };
    action.sa_handler = askForEnd;
    for (const int signal : EndingSignals) {
        sigaddset(&blocked, signal);
        sigaction(signal, &action, nullptr);
    }
    sigset_t before;
    sigprocmask(SIG_BLOCK, &blocked, &before);
    for (const int signal : EndingSignals)
        sigdelset(&before, signal);
    std::signal(SIGPIPE, SIG_IGN);
    return before;
}

/**
 * How long to keep looking for a request that is expected, before going to sleep. A subscriber that
 * is told of a publication asks twice, for its readiness and for the message, and on many machines
 * a wake-up from sleep costs more than all the rest of an answer.
 */
constexpr std::chrono::microseconds Patience(20);

constexpr unsigned WantedCapabilities = FUSE_CAP_ATOMIC_O_TRUNC | FUSE_CAP_PARALLEL_DIROPS;

/** More than there can be files closed at once, so that the kernel tells of each close in order. */
constexpr unsigned MaxBackground = 0xffff;

} // namespace

void FuseServer::SessionDeleter::operator()(fuse_session* session) const
{
    fuse_session_unmount(session);
    fuse_session_destroy(session);
}

FuseServer::FuseServer(int device, FileDescriptor ready) : m_ready(std::move(ready))
{
    fuse_lowlevel_ops operations{};
    operations.init = &FuseServer::initialize;
    addTreeOperations(operations);
    addFileOperations(operations);
    addDirectoryOperations(operations);

    char name[] = "ppsfs";
    char* arguments[] = {name, nullptr};
    fuse_args args = FUSE_ARGS_INIT(1, arguments);
    m_session.reset(fuse_session_new(&args, &operations, sizeof operations, &m_fileSystem));
    fuse_opt_free_args(&args);
    if (!m_session)
        throw std::runtime_error("cannot start a FUSE session");

    // The session closes its descriptor, so it gets one of its own.
    const int own = fcntl(device, F_DUPFD_CLOEXEC, 0);
    if (own < 0 ||
        fuse_session_mount(m_session.get(), ("/dev/fd/" + std::to_string(own)).c_str()) != 0)
        throw std::runtime_error("cannot use the FUSE device");
}

FuseServer::~FuseServer()
{
    m_fileSystem.releaseAll(); // their answers go through the session
    std::free(m_buffer.mem);
}

void FuseServer::initialize(void*, fuse_conn_info* connection)
{
    connection->want = connection->capable & WantedCapabilities;
    connection->max_background = MaxBackground;
    connection->congestion_threshold = MaxBackground;
}

int FuseServer::run()
{
    const sigset_t whileWaiting = catchEndingSignals();
    pollfd device{fuse_session_fd(m_session.get()), POLLIN, 0};
    while (!endAsked) {
        if (const int error = serveAll())
            return error;
        if (fuse_session_exited(m_session.get()))
            return 0;
        if (ppoll(&device, 1, nullptr, &whileWaiting) < 0 && errno != EINTR)
            return errno;
    }
    return 0;
}

int FuseServer::serveAll()
{
    using Clock = std::chrono::steady_clock;
    Clock::time_point patientUntil = Clock::time_point::min();
    for (;;) {
        const int size = fuse_session_receive_buf(m_session.get(), &m_buffer);
        if (size == -EINTR)
            continue;
        if (size == -EAGAIN && Clock::now() < patientUntil) {
            sched_yield(); // the one who is to ask may need this processor for it
            continue;
        }
        if (size == 0 || size == -EAGAIN)
            return 0;
        if (size < 0)
            return -size;
        fuse_session_process_buf(m_session.get(), &m_buffer);
        m_fileSystem.wakeList().serve();
        announce();
        const bool expecting = m_fileSystem.wakeList().takeExpectation();
        patientUntil = expecting ? Clock::now() + Patience : Clock::time_point::min();
    }
}

void FuseServer::announce()
{
    if (!m_ready)
        return;
    // Whoever asked to be told may have gone; that is no reason to end.
    const char byte = 0;
    static_cast<void>(!::write(m_ready.get(), &byte, 1));
    m_ready.reset();
}

} // namespace ppsfs
