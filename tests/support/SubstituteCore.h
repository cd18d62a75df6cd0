// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTECORE_H
#define TAMO_TESTS_SUBSTITUTECORE_H

#include "CallJournal.h"

#include <tamomock/ZelCore.h>

#include <screen/screen.h>

#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tamotest {

/** What an event of a service carries. */
struct EventContent
{
    int windowState = 0;
    int angle = 0; ///< degrees
    std::optional<std::string> groupId;
    std::optional<std::string> data;
    std::optional<std::string> id;
    std::optional<std::string> err;
    screen_event_t screenEvent = nullptr;
    bool isAvailable = false;
};

/**
 * The event library, without a platform: channels that any thread may push to and their own thread
 * takes from, events, private domains, initialisation counted for each thread. As `<zel/zel.h>` has
 * it, as far as the library under test calls it: a thread's end frees what is the thread's, an
 * event belongs to its channel once it is pushed. The rest fails with ENOTSUP.
 *
 * Every call goes into the journal as "core.<operation>", and fails when the journal says so.
 */
class SubstituteCore : public tamomock::ZelCore
{
public:
    /** @param journal outlives this */
    explicit SubstituteCore(CallJournal& journal);
    ~SubstituteCore() override;

    /** The first number that registerDomain() gives; below it are the services'. */
    static constexpr int FirstPrivateDomain = 1000;

    /**
     * Pushes an event of a service to each channel that has asked for the domain's events.
     *
     * @return to how many
     */
    int deliver(int domain, int code, const EventContent& content = {});

    /** Pushes an event to a channel, asked for or not. False: there is no such channel. */
    bool pushTo(int channel, int domain, int code, const EventContent& content = {},
                const zel_event_payload_t* payload = nullptr);

    /** For providers: the calling thread's active channel gets a domain's events, or no more. */
    void setRequested(int domain, bool isRequested);

    /** The channels there are, in the order in which they were made. */
    std::vector<int> channels() const;

    /** The private domains there are: those registered by threads that have not ended. */
    std::vector<int> privateDomains() const;

    /** How often a thread is initialised. */
    int initializations(std::thread::id thread) const;

    /** How many calls of shutdown() there were in a thread that was not initialised. */
    int surplusShutdowns() const;

    /** How many events there are, pushed or not; the one that a thread took last is one of them. */
    int eventCount() const;

    /**
     * What is there that should not be when nothing is registered any more, in words: channels,
     * events, private domains, requests, and calls that broke the rules of the event library.
     */
    std::vector<std::string> leftovers() const;

    /** The content of an event of a service. */
    static const EventContent& contentOf(const zel_event_t* event);

    int getVersion(int* version) override;
    int initialize() override;
    int shutdown() override;
    int channelCreate(int* channel) override;
    int channelSetActive(int channel, int* previous) override;
    int channelGetActive() override;
    int channelDestroy(int channel) override;
    int getEvent(zel_event_t** event, int timeoutMs) override;
    int pushEvent(zel_event_t* event) override;
    int channelPushEvent(int channel, zel_event_t* event) override;
    int setVerbosity(unsigned int verbosity) override;
    void free(void* memory) override;
    int registerDomain() override;
    int registerShutdownHandler(zel_end_handler_t handler, void* data) override;
    int registerChannelDestroyHandler(int channel, zel_end_handler_t handler, void* data) override;
    int addFd(int fd, int ioEvents, zel_io_handler_t handler, void* data) override;
    int removeFd(int fd) override;
    int setDomainData(int domain, void* data, void** previous) override;
    int getDomainData(int domain, void** data) override;
    int eventGetDomain(const zel_event_t* event) override;
    int eventGetCode(const zel_event_t* event) override;
    int eventCreate(zel_event_t** event, int domain, int code, const zel_event_payload_t* payload,
                    zel_event_completion_t completion) override;
    void eventDestroy(zel_event_t* event) override;
    const zel_event_payload_t* eventGetPayload(const zel_event_t* event) override;

private:
    struct State;
    struct Event;
    class ThreadEnd;

    static Event* eventOf(zel_event_t* event);
    static const Event* eventOf(const zel_event_t* event);
    int refuse(const char* operation);

    CallJournal& m_journal;
    // Shared with the ends of the threads that have called, which may come later than ours.
    const std::shared_ptr<State> m_state;
};

} // namespace tamotest

#endif
