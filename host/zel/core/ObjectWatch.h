// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_OBJECTWATCH_H
#define ZEL_CORE_OBJECTWATCH_H

#include "DescriptorSet.h"
#include "Domain.h"
#include "Event.h"
#include "common/FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace zel {

class Channel;

/** One whole message of a PPS object or mailbox. */
struct ObjectMessage
{
    char* text;         ///< zero-terminated; may be changed (the decoder parses in place)
    std::size_t length; ///< without the zero
};

/** Takes the events that a service makes. */
class EventSink
{
public:
    explicit EventSink(Channel& channel) : m_channel(channel) {}

    /** Pushes an event to the channel that the watch is for. */
    void push(std::unique_ptr<zel_event> event);

private:
    Channel& m_channel;
};

/**
 * What a service's domain makes of an object's messages. Everything is called in the thread of the
 * channel, and its end is the watch's. It must call nothing of <zel/zel.h> that changes channels.
 */
class ObjectListener
{
public:
    virtual ~ObjectListener() = default;

    /**
     * Called once, before watchObject() returns, where there is something to read at once: the
     * object as it is, if it was ever published, or what a mailbox's client has already been sent.
     */
    virtual void begin(ObjectMessage message, EventSink& events) = 0;

    /**
     * Called for each later message.
     *
     * @return false: the watch ends
     */
    virtual bool receive(ObjectMessage message, EventSink& events) = 0;

    /**
     * Whether the next message is to be read now. False, only while an event that it has pushed has
     * not been handled: it is asked again.
     */
    virtual bool isReady() const { return true; }
};

/**
 * Watches an object or mailbox for a service's domain, in the calling thread's active channel, once
 * for each channel, domain and argument; where it is watched already, nothing happens. It ends with
 * the channel, with unwatchObject(), when the listener says so, and when there is nothing more to
 * be had: the object was removed, or `/pps` has died. After that it can be watched again.
 *
 * @param path is opened O_RDONLY, O_NONBLOCK and O_CLOEXEC
 * @param makeListener is called once the object is open, and only where it was not watched
 * @return 0 or an `errno` value: EPERM (the thread is not initialised), ENOENT (no such object, or
 * no `/pps`), ENOMEM, EMFILE, ENFILE, and those of open()
 */
int watchObject(Domain domain, std::uintptr_t argument, const std::string& path,
                const std::function<std::unique_ptr<ObjectListener>()>& makeListener);

/**
 * Ends a watch in the calling thread's active channel.
 *
 * @return 0 or an `errno` value: ENOENT (there is none), EPERM, and those of making a channel
 */
int unwatchObject(Domain domain, std::uintptr_t argument);

/** A watch; made by watchObject(). */
class ObjectWatch final : public DescriptorWatch
{
public:
    ObjectWatch(Channel& channel, std::pair<Domain, std::uintptr_t> key, std::string path,
                host::FileDescriptor descriptor, std::unique_ptr<ObjectListener> listener);

    int descriptor() const { return m_descriptor.get(); }

    /** Reads what there is to read at once. */
    void begin();

    bool ready(int ioEvents) override;

private:
    enum class Reading { Message, Nothing, End };

    Reading read(ObjectMessage& message);
    bool keepsOn();

    Channel& m_channel;
    const std::pair<Domain, std::uintptr_t> m_key;
    const std::string m_path;
    const host::FileDescriptor m_descriptor;
    const std::unique_ptr<ObjectListener> m_listener;
    int m_vainReadings = 0;
};

} // namespace zel

#endif
