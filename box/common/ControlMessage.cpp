// SPDX-License-Identifier: Apache-2.0
#include "ControlMessage.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace tamobox {

namespace {

struct Header
{
    ControlMessage::Kind kind;
    std::int32_t number;
};

constexpr std::size_t longestText = 4000;

} // namespace

bool sendControlMessage(int socket, const ControlMessage& message)
{
    const Header header = {message.kind, message.number};
    std::string packet(reinterpret_cast<const char*>(&header), sizeof header);
    packet.append(message.text, 0, longestText);
    return send(socket, packet.data(), packet.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
           static_cast<ssize_t>(packet.size());
}

std::optional<ControlMessage> receiveControlMessage(int socket)
{
    std::array<char, sizeof(Header) + longestText> packet;
    ssize_t size = 0;
    // A peer that ended without having read all that it was sent is reported once as ECONNRESET,
    // ahead of what it had sent itself, its last message included.
    do
        size = recv(socket, packet.data(), packet.size(), 0);
    while (size == -1 && (errno == EINTR || errno == ECONNRESET));
    if (size < static_cast<ssize_t>(sizeof(Header)))
        return std::nullopt;
    Header header = {};
    std::memcpy(&header, packet.data(), sizeof header);
    return ControlMessage{
        header.kind, header.number,
        std::string(packet.data() + sizeof header, static_cast<std::size_t>(size) - sizeof header)};
}

} // namespace tamobox
