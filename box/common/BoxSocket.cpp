// SPDX-License-Identifier: Apache-2.0
#include "BoxSocket.h"

#include "Failure.h"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <sstream>
#include <thread>
#include <tuple>

namespace tamobox::boxsocket {

namespace {

constexpr std::string_view prefix = "tamo-box/";
constexpr std::size_t longestName = 48;
constexpr std::size_t longestStatus = 64 * 1024;
constexpr time_t answerLimitSeconds = 15;
constexpr int descriptorCount = 4;
constexpr auto listeningLimit = std::chrono::seconds(2);
constexpr auto retryPause = std::chrono::milliseconds(5);

struct Address
{
    sockaddr_un address = {};
    socklen_t length = 0;

    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&address); }
};

Address addressOf(const std::string& name)
{
    const std::string path = std::string(prefix) + std::to_string(getuid()) + '/' + name;
    Address result;
    result.address.sun_family = AF_UNIX;
    // The zero in front makes the name an abstract one.
    std::memcpy(result.address.sun_path + 1, path.data(), path.size());
    result.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + path.size());
    return result;
}

Descriptor newSocket(int flags)
{
    Descriptor made(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0));
    if (!made)
        throw systemFailure("cannot create a socket");
    return made;
}

bool isOwnPeer(int connection)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    return getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == getuid();
}

bool tryListen(int socketToBind, const std::string& name)
{
    const Address address = addressOf(name);
    if (bind(socketToBind, address.get(), address.length) == 0) {
        if (::listen(socketToBind, SOMAXCONN) == -1)
            throw systemFailure("cannot listen for commands");
        return true;
    }
    if (errno != EADDRINUSE)
        throw systemFailure("cannot take the name '" + name + "' for the box");
    return false;
}

/** A status, and room for a box's descriptors beside it. It points into itself. */
class IntroductionMessage
{
public:
    /** @param text of the status, which sendmsg() does not change */
    explicit IntroductionMessage(const std::string& text)
        : m_text{const_cast<char*>(text.data()), text.size()}
    {
        header.msg_iov = &m_text;
        header.msg_iovlen = 1;
        header.msg_control = m_descriptors.data();
        header.msg_controllen = m_descriptors.size();
    }
    IntroductionMessage(const IntroductionMessage&) = delete;
    IntroductionMessage& operator=(const IntroductionMessage&) = delete;

    msghdr header = {};

private:
    iovec m_text;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int) * descriptorCount)> m_descriptors = {};
};

bool isRunningOwn(const std::string& name)
{
    const std::vector<RunningBox> boxes = running();
    return std::any_of(boxes.begin(), boxes.end(), [&](const RunningBox& box) {
        return box.name == name && box.user == getuid();
    });
}

Failure noSuchBox(const std::string& name)
{
    std::string others;
    for (const RunningBox& box : running()) {
        if (box.name == name && box.user == getuid())
            return Failure("the box '" + name + "' is starting or ending; try again");
        if (box.name == name)
            return Failure("the box '" + name + "' belongs to user " + std::to_string(box.user) +
                           "; only that user's commands reach it");
        if (box.user == getuid())
            others += (others.empty() ? "" : ", ") + box.name;
    }
    return Failure("no box '" + name + "' is running; " +
                   (others.empty() ? "start one with 'tamo-box run --box " + name + " -- ...'"
                                   : "running: " + others));
}

} // namespace

bool isName(const std::string& text)
{
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '.' || c == '_' || c == '-';
    };
    return !text.empty() && text.size() <= longestName && text[0] != '-' && text[0] != '.' &&
           std::all_of(text.begin(), text.end(), isAllowed);
}

Descriptor listen(std::string& name)
{
    Descriptor listening = newSocket(SOCK_NONBLOCK);
    if (!name.empty()) {
        if (!tryListen(listening.get(), name))
            throw Failure("a box '" + name + "' is running already; give this one another name");
        return listening;
    }
    name = "phone";
    for (int number = 2; !tryListen(listening.get(), name); ++number)
        name = "phone-" + std::to_string(number);
    return listening;
}

std::vector<RunningBox> running()
{
    // Listening sockets and the connections to them have the same name there.
    std::vector<RunningBox> boxes;
    std::ifstream table("/proc/net/unix");
    const std::string mark = '@' + std::string(prefix);
    for (std::string line; std::getline(table, line);) {
        const std::size_t begin = line.find(mark);
        if (begin == std::string::npos)
            continue;
        std::istringstream rest(line.substr(begin + mark.size()));
        RunningBox box;
        char slash = 0;
        if (rest >> box.user >> slash >> box.name && slash == '/' && isName(box.name))
            boxes.push_back(std::move(box));
    }
    const auto key = [](const RunningBox& box) { return std::tie(box.name, box.user); };
    std::sort(boxes.begin(), boxes.end(),
              [&](const RunningBox& a, const RunningBox& b) { return key(a) < key(b); });
    boxes.erase(
        std::unique(boxes.begin(), boxes.end(),
                    [&](const RunningBox& a, const RunningBox& b) { return key(a) == key(b); }),
        boxes.end());
    return boxes;
}

BoxIntroduction connect(const std::string& name)
{
    Descriptor connection = newSocket(0);
    const timeval limit = {answerLimitSeconds, 0};
    setsockopt(connection.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    const Address address = addressOf(name);
    const auto deadline = std::chrono::steady_clock::now() + listeningLimit;
    while (::connect(connection.get(), address.get(), address.length) == -1) {
        if (!isRunningOwn(name) || std::chrono::steady_clock::now() > deadline)
            throw noSuchBox(name);
        // It has its name already, or had when it was looked for, and listens in a moment.
        std::this_thread::sleep_for(retryPause);
    }
    if (!isOwnPeer(connection.get()))
        throw Failure("what answers as the box '" + name + "' belongs to another user");

    std::string status(longestStatus, '\0');
    IntroductionMessage message(status);
    const ssize_t size = recvmsg(connection.get(), &message.header, MSG_CMSG_CLOEXEC);
    if (size == -1 && (errno == EAGAIN || errno == EWOULDBLOCK))
        throw Failure("the box '" + name + "' does not answer; is it stopped?");
    const cmsghdr* const received = CMSG_FIRSTHDR(&message.header);
    if (size <= 0 || received == nullptr ||
        received->cmsg_len != CMSG_LEN(sizeof(int) * descriptorCount))
        throw Failure("the box '" + name + "' has just ended");
    std::array<int, descriptorCount> passed = {};
    std::memcpy(passed.data(), CMSG_DATA(received), sizeof passed);
    status.resize(static_cast<std::size_t>(size));
    return {std::move(status),     Descriptor(passed[0]), Descriptor(passed[1]),
            Descriptor(passed[2]), Descriptor(passed[3]), std::move(connection)};
}

Descriptor introduce(int listeningSocket, const BoxIntroduction& introduction)
{
    Descriptor connection(accept4(listeningSocket, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!connection || !isOwnPeer(connection.get()))
        return Descriptor();
    const std::array<int, descriptorCount> passed = {
        introduction.userNamespace.get(), introduction.mountNamespace.get(),
        introduction.processNamespace.get(), introduction.rootDirectory.get()};
    IntroductionMessage message(introduction.status);
    cmsghdr* const header = CMSG_FIRSTHDR(&message.header);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof passed);
    std::memcpy(CMSG_DATA(header), passed.data(), sizeof passed);
    if (sendmsg(connection.get(), &message.header, MSG_NOSIGNAL) == -1)
        return Descriptor();
    return connection;
}

} // namespace tamobox::boxsocket
