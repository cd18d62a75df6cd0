// SPDX-License-Identifier: Apache-2.0
#include "Doorbell.h"

#include <linux/futex.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <ctime>

namespace zel {

static_assert(sizeof(std::atomic<int>) == sizeof(int), "the kernel takes it for an int");

int Doorbell::open()
{
    m_descriptor = host::FileDescriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    return m_descriptor ? 0 : errno;
}

void Doorbell::wait(int timeoutMs)
{
    timespec timeout{timeoutMs / 1000, timeoutMs % 1000 * 1'000'000L};
    syscall(SYS_futex, &m_rung, FUTEX_WAIT_PRIVATE, 0, timeoutMs < 0 ? nullptr : &timeout, nullptr,
            0);
}

void Doorbell::ring(Kind kind)
{
    if (kind == Kind::Futex) {
        m_rung.store(1, std::memory_order_relaxed);
        syscall(SYS_futex, &m_rung, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
    } else if (kind == Kind::Descriptor) {
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t written = ::write(m_descriptor.get(), &one, sizeof one);
    }
}

} // namespace zel
