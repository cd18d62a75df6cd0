// SPDX-License-Identifier: Apache-2.0
#include "FuseServer.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

namespace ppsfs {
namespace {

constexpr int EndingSignals[] = {SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t endAsked = 0;
volatile std::sig_atomic_t servedDevice = -1;

/**
 * Ends the serving. Where the signal comes just before the next read of the device, nothing would
 * interrupt that read; so it is told not to wait.
 */
void askForEnd(int)
{
    const int errorOfTheInterrupted = errno;
    endAsked = 1;
    fcntl(servedDevice, F_SETFL, O_NONBLOCK);
    errno = errorOfTheInterrupted;
}

void catchEndingSignals(int device)
{
    servedDevice = device;
    struct sigaction action = {};
    action.sa_handler = askForEnd;
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : EndingSignals) {
        sigaddset(&ending, signal);
        sigaction(signal, &action, nullptr);
    }
    sigprocmask(SIG_UNBLOCK, &ending, nullptr); // they may have been inherited blocked
    std::signal(SIGPIPE, SIG_IGN);
}

constexpr unsigned WantedCapabilities = FUSE_CAP_ATOMIC_O_TRUNC | FUSE_CAP_PARALLEL_DIROPS;

/** More than there can be files closed at once, so that the kernel tells of each close in order. */
constexpr unsigned MaxBackground = 0xffff;

} // namespace

void FuseServer::SessionDeleter::operator()(fuse_session* session) const
{
    fuse_session_unmount(session);
    fuse_session_destroy(session);
}

FuseServer::FuseServer(int device, host::FileDescriptor ready) : m_ready(std::move(ready))
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
    m_fileSystem.files().clear(); // their last answers go through the session
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
    catchEndingSignals(fuse_session_fd(m_session.get()));
    // One blocking read for each request: to poll first, or to read until nothing is left, takes
    // two more system calls each time that a publication wakes this process.
    while (!endAsked && !fuse_session_exited(m_session.get())) {
        lookOut();
        const int size = fuse_session_receive_buf(m_session.get(), &m_buffer);
        if (size == -EINTR || size == -EAGAIN)
            continue;
        if (size <= 0)
            return -size;
        fuse_session_process_buf(m_session.get(), &m_buffer);
        m_fileSystem.wakeList().serve();
        announce();
    }
    return 0;
}

void FuseServer::lookOut()
{
    ExpectedRequests& expected = m_fileSystem.expected();
    if (expected.any() && !m_lookout.sees(fuse_session_fd(m_session.get())))
        expected.giveUp();
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
