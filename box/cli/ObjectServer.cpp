// SPDX-License-Identifier: Apache-2.0
#include "ObjectServer.h"

#include "pps/MessageReader.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace tamobox {

ObjectServer::ObjectServer(const std::string& object) : m_file(object, O_RDWR | O_NONBLOCK, "serve")
{
}

void ObjectServer::run(int count, const MessageHandler& onMessage)
{
    for (int requests = 0; count == 0 || requests < count;) {
        waitFor(m_file.descriptor());
        const std::optional<std::string> message = m_file.read();
        if (!message)
            continue;
        onMessage(*message);
        MessageReader reader(*message);
        while (reader.next()) {
            // `+@name.N` is a client that came, a deleted `@name.N` one that went.
            if (reader.type() != PPS_TYPE_OBJECT || reader.name().front() != '@')
                continue;
            ++requests;
            answer(reader.name());
        }
    }
}

void ObjectServer::answer(const std::string& client)
{
    std::string block = readBlock();
    if (block.empty())
        return;
    if (block.front() != '@')
        block.insert(0, client + '\n');
    try {
        const MessageReader check(block); // says which line is malformed, which write() does not
        m_file.write(block);
    } catch (const ObjectFailure& failure) {
        if (failure.error() == ENOTCONN)
            throw;
        std::fprintf(stderr, "tamo-box: not sent: %s\n", failure.what());
    } catch (const Failure& failure) {
        std::fprintf(stderr, "tamo-box: not sent: %s\n", failure.what());
    }
}

std::string ObjectServer::readBlock()
{
    std::string block;
    for (;;) {
        const std::size_t lineEnd = m_input.find('\n');
        if (lineEnd == std::string::npos) {
            if (readInput())
                continue;
            return block + std::exchange(m_input, {});
        }
        const std::string line = m_input.substr(0, lineEnd + 1);
        m_input.erase(0, lineEnd + 1);
        if (line == "\n")
            return block;
        block += line;
    }
}

// False at the end of the input.
bool ObjectServer::readInput()
{
    if (m_inputEnded)
        return false;
    waitFor(STDIN_FILENO);
    std::array<char, 4096> buffer;
    const ssize_t size = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    m_inputEnded = size <= 0;
    if (!m_inputEnded)
        m_input.append(buffer.data(), static_cast<std::size_t>(size));
    return !m_inputEnded;
}

// Waits until a descriptor is readable; and until /pps ends, so that nobody waits for nothing.
void ObjectServer::waitFor(int descriptor)
{
    std::array<pollfd, 2> entries = {{{descriptor, POLLIN, 0}, {m_file.descriptor(), 0, 0}}};
    while (poll(entries.data(), entries.size(), -1) == -1 && errno == EINTR)
        continue;
    if ((entries[1].revents & POLLERR) != 0)
        m_file.read(); // throws
}

} // namespace tamobox
