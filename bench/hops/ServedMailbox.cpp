// SPDX-License-Identifier: Apache-2.0
#include "ServedMailbox.h"

#include <cerrno>
#include <filesystem>
#include <stdexcept>

#include <fcntl.h>
#include <sys/epoll.h>

namespace tamobench {

static Descriptor serve(const std::string& path)
{
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    const Descriptor create(::open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0666),
                            "create " + path);
    return {::open((path + "?serve").c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC), "serve " + path};
}

ServedMailbox::ServedMailbox(const std::string& path)
    : m_mailbox(serve(path))
    , m_set(::epoll_create1(EPOLL_CLOEXEC), "epoll_create1")
    , m_buffer(16'384)
{
    epoll_event event = {};
    // As a SubscriberGroup waits, so that both sides of a comparison do.
    event.events = EPOLLIN | EPOLLET;
    if (::epoll_ctl(m_set.get(), EPOLL_CTL_ADD, m_mailbox.get(), &event) < 0)
        throwErrno("epoll_ctl");
}

std::string_view ServedMailbox::readRequest()
{
    for (;;) {
        epoll_event event = {};
        if (::epoll_wait(m_set.get(), &event, 1, 10'000) != 1)
            throw std::runtime_error("the application sends no request");
        for (;;) {
            const std::string_view text = read();
            if (text.empty())
                break;
            if (text.front() == '@')
                return text;
        }
    }
}

std::string_view ServedMailbox::read()
{
    const ssize_t length = ::read(m_mailbox.get(), m_buffer.data(), m_buffer.size());
    if (length < 0 && errno != EAGAIN)
        throwErrno("read a request");
    return {m_buffer.data(), length < 0 ? 0 : static_cast<std::size_t>(length)};
}

void ServedMailbox::send(const std::string& answer)
{
    if (::write(m_mailbox.get(), answer.data(), answer.size()) < 0)
        throwErrno("send an answer");
}

} // namespace tamobench
