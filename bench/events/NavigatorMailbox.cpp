// SPDX-License-Identifier: Apache-2.0
#include "NavigatorMailbox.h"

#include <array>
#include <filesystem>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>

namespace tamobench {

static Descriptor serve(const std::string& directory)
{
    std::filesystem::create_directories(directory);
    const Descriptor create(
        ::open((directory + "/events").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0666), "open");
    return {::open((directory + "/events?serve").c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC), "open"};
}

NavigatorMailbox::NavigatorMailbox() : m_mailbox(serve("/pps/services/navigator")) {}

void NavigatorMailbox::awaitApplication()
{
    const std::string comes = "+@events.";
    for (;;) {
        pollfd mailbox = {m_mailbox.get(), POLLIN, 0};
        if (::poll(&mailbox, 1, 10'000) != 1)
            throw std::runtime_error("the application does not ask for the navigator's events");
        std::array<char, 4096> buffer;
        const ssize_t length = ::read(m_mailbox.get(), buffer.data(), buffer.size());
        if (length < 0)
            throwErrno("read");
        const std::string text(buffer.data(), static_cast<std::size_t>(length));
        if (text.rfind(comes, 0) != 0)
            continue;
        const std::string client = text.substr(comes.size(), text.find('\n') - comes.size());
        m_message =
            "@events." + client + "\nmsg::windowState\nstate:n:1\ngroup::app-" + client + '\n';
        return;
    }
}

void NavigatorMailbox::sendThumbnail()
{
    if (::write(m_mailbox.get(), m_message.data(), m_message.size()) < 0)
        throwErrno("write");
}

} // namespace tamobench
