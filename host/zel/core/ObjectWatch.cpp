// SPDX-License-Identifier: Apache-2.0
#include "ObjectWatch.h"

#include "Channel.h"
#include "Diagnostics.h"
#include "ThreadState.h"

#include <zel/zel.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <new>

namespace zel {
namespace {

// A descriptor that says so often that it can be read, and then cannot, is not asked any more.
constexpr int MaxVainReadings = 100;

/** A `/pps` that has died is as good as none. */
int openError(int error)
{
    return error == ENOTCONN || error == ENODEV || error == ENOTDIR || error == ECONNABORTED
               ? ENOENT
               : error;
}

/** A read that a signal does not end; room is left for a terminator. */
ssize_t readInto(std::vector<char>& buffer, int descriptor)
{
    ssize_t length = 0;
    do
        length = ::read(descriptor, buffer.data(), buffer.size() - 1);
    while (length < 0 && errno == EINTR);
    return length;
}

} // namespace

void EventSink::push(std::unique_ptr<zel_event> event)
{
    m_channel.push(std::move(event));
}

ObjectWatch::ObjectWatch(Channel& channel, std::pair<Domain, std::uintptr_t> key, std::string path,
                         host::FileDescriptor descriptor, std::unique_ptr<ObjectListener> listener)
    : m_channel(channel)
    , m_key(key)
    , m_path(std::move(path))
    , m_descriptor(std::move(descriptor))
    , m_listener(std::move(listener))
{
}

ObjectWatch::Reading ObjectWatch::read(ObjectMessage& message)
{
    std::vector<char>& buffer = m_channel.messageBuffer();
    ssize_t length = readInto(buffer, m_descriptor.get());
    while (length < 0 && errno == EMSGSIZE && buffer.size() < Channel::LargestMessageBuffer) {
        buffer.resize(2 * buffer.size());
        length = readInto(buffer, m_descriptor.get());
    }
    if (length < 0) {
        if (errno == EAGAIN)
            return Reading::Nothing;
        say(Level::Unreadable, "%s: %s", m_path.c_str(), std::strerror(errno));
        return Reading::End;
    }
    if (length == 0)
        return Reading::Nothing;
    buffer[static_cast<std::size_t>(length)] = '\0';
    message = {buffer.data(), static_cast<std::size_t>(length)};
    if (std::strncmp(buffer.data(), "-@", 2) == 0) { // nothing will ever come from the object again
        say(Level::Unreadable, "%s: the object was removed", m_path.c_str());
        return Reading::End;
    }
    return Reading::Message;
}

void ObjectWatch::begin()
{
    ObjectMessage message{};
    if (read(message) == Reading::Message) {
        EventSink events(m_channel);
        m_listener->begin(message, events);
    }
}

bool ObjectWatch::keepsOn()
{
    ObjectMessage message{};
    switch (read(message)) {
    case Reading::Nothing:
        return ++m_vainReadings < MaxVainReadings;
    case Reading::End:
        return false;
    case Reading::Message:
        break;
    }
    m_vainReadings = 0;
    try {
        EventSink events(m_channel);
        return m_listener->receive(message, events);
    } catch (const std::bad_alloc&) {
        say(Level::Unreadable, "%s: no memory for a message", m_path.c_str());
        return true;
    }
}

bool ObjectWatch::ready(int)
{
    // One message at a time: the next one is reported anew, and its event may be wanted first.
    if (!m_listener->isReady() || keepsOn())
        return true;
    m_channel.objects().erase(m_key); // the caller has this watch until it has left the set
    return false;
}

int watchObject(Domain domain, std::uintptr_t argument, const std::string& path,
                const std::function<std::unique_ptr<ObjectListener>()>& makeListener)
{
    ThreadState* const thread = ThreadState::current();
    if (!thread)
        return EPERM;
    std::shared_ptr<Channel> channel;
    if (const int error = thread->activeChannel(channel))
        return error;
    const Channel::ObjectKey key(domain, argument);
    if (channel->objects().count(key))
        return 0;
    host::FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!descriptor)
        return openError(errno);
    const auto watch =
        std::make_shared<ObjectWatch>(*channel, key, path, std::move(descriptor), makeListener());
    const auto kept = channel->objects().emplace(key, watch).first;
    if (const int error = channel->watch(watch->descriptor(), ZEL_IO_INPUT,
                                         DescriptorSet::Owner::Service, watch)) {
        channel->objects().erase(kept);
        return error;
    }
    try {
        watch->begin();
    } catch (...) {
        unwatchObject(domain, argument);
        throw;
    }
    return 0;
}

int unwatchObject(Domain domain, std::uintptr_t argument)
{
    ThreadState* const thread = ThreadState::current();
    if (!thread)
        return EPERM;
    std::shared_ptr<Channel> channel;
    if (const int error = thread->activeChannel(channel))
        return error;
    const auto found = channel->objects().find({domain, argument});
    if (found == channel->objects().end())
        return ENOENT;
    const std::shared_ptr<ObjectWatch> watch = found->second;
    channel->objects().erase(found);
    channel->unwatch(watch->descriptor(), DescriptorSet::Owner::Service);
    return 0;
}

} // namespace zel
