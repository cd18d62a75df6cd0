// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_TRANSPORT_H
#define TAMO_BENCH_TRANSPORT_H

#include <memory>
#include <string>
#include <string_view>

namespace tamobench {

/** The publishing end of a transport. */
class Publisher
{
public:
    virtual ~Publisher() = default;

    /** Builds whatever can be built before the publication; not part of what is timed. */
    virtual void prepare(const std::string& text) = 0;

    /** Publishes what was prepared. */
    virtual void publish() = 0;
};

/** One subscriber's end of a transport. */
class Subscription
{
public:
    virtual ~Subscription() = default;

    /** The descriptor that epoll watches for readability; stays the subscription's. */
    virtual int descriptor() const = 0;

    /**
     * Reads one message. The text is valid until the next call.
     *
     * @return the text as the subscriber sees it; empty where no message is there (yet)
     */
    virtual std::string_view receive() = 0;
};

/**
 * A way from a publishing process to subscribing ones. It is made before the processes part, and
 * each of them opens its own end.
 */
class Transport
{
public:
    virtual ~Transport() = default;
    virtual std::string name() const = 0;
    virtual std::unique_ptr<Publisher> openPublisher() = 0;
    virtual std::unique_ptr<Subscription> openSubscription() = 0;
};

} // namespace tamobench

#endif
