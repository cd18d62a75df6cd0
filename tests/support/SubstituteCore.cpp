// SPDX-License-Identifier: Apache-2.0
#include "SubstituteCore.h"

#include <algorithm>
#include <deque>
#include <map>
#include <set>
#include <utility>

namespace tamotest {

using Lock = std::unique_lock<std::mutex>;

// The library under test sees a zel_event_t, which it never looks into.
struct SubstituteCore::Event
{
    int domain = 0;
    int code = 0;
    std::optional<zel_event_payload_t> payload;
    zel_event_completion_t completion = nullptr;
    bool isPushed = false;
    EventContent content;
};

struct SubstituteCore::State
{
    struct Channel
    {
        std::thread::id owner;
        std::deque<Event*> queue;
        Event* taken = nullptr; // by the last getEvent()
        std::set<int> requestedDomains;
        std::condition_variable pushed;
    };

    struct Thread
    {
        int initializations = 0;
        int activeChannel = 0;
        std::vector<int> domains;
    };

    void release(Event* event);
    void destroyChannel(int number);
    void endThread(std::thread::id id);
    bool push(int number, Event* event);
    int makeChannel(std::thread::id owner);
    int activeChannel(std::thread::id id);
    void blame(const std::string& text) { misuses.push_back(text); }

    mutable std::mutex mutex; // guards everything
    std::map<int, Channel> channels;
    std::map<std::thread::id, Thread> threads;
    std::map<const Event*, std::unique_ptr<Event>> events;
    std::vector<std::string> misuses;
    int lastChannel = 0;
    int nextDomain = FirstPrivateDomain;
    int surplusShutdowns = 0;
};

void SubstituteCore::State::release(Event* event)
{
    if (!event)
        return;
    if (event->completion)
        event->completion(reinterpret_cast<zel_event_t*>(event));
    events.erase(event);
}

void SubstituteCore::State::destroyChannel(int number)
{
    const auto channel = channels.find(number);
    release(channel->second.taken);
    for (Event* const event : channel->second.queue)
        release(event);
    channels.erase(channel);
}

void SubstituteCore::State::endThread(std::thread::id id)
{
    std::vector<int> owned;
    for (const auto& [number, channel] : channels) {
        if (channel.owner == id)
            owned.push_back(number);
    }
    for (const int number : owned)
        destroyChannel(number);
    threads.erase(id);
}

bool SubstituteCore::State::push(int number, Event* event)
{
    const auto channel = channels.find(number);
    if (channel == channels.end())
        return false;
    event->isPushed = true;
    channel->second.queue.push_back(event);
    channel->second.pushed.notify_all();
    return true;
}

int SubstituteCore::State::makeChannel(std::thread::id owner)
{
    channels[++lastChannel].owner = owner;
    return lastChannel;
}

int SubstituteCore::State::activeChannel(std::thread::id id)
{
    const auto thread = threads.find(id);
    if (thread == threads.end() || thread->second.initializations == 0)
        return -1;
    if (thread->second.activeChannel == 0)
        thread->second.activeChannel = makeChannel(id);
    return thread->second.activeChannel;
}

/** Ends what is a thread's, in whichever substitutes it has called, when the thread ends. */
class SubstituteCore::ThreadEnd
{
public:
    ~ThreadEnd()
    {
        for (const std::weak_ptr<State>& reference : m_states) {
            if (const std::shared_ptr<State> state = reference.lock()) {
                const Lock lock(state->mutex);
                state->endThread(std::this_thread::get_id());
            }
        }
    }

    static void watch(const std::shared_ptr<State>& state)
    {
        static thread_local ThreadEnd end;
        const bool isKnown =
            std::any_of(end.m_states.begin(), end.m_states.end(),
                        [&](const std::weak_ptr<State>& known) { return known.lock() == state; });
        if (!isKnown)
            end.m_states.push_back(state);
    }

private:
    std::vector<std::weak_ptr<State>> m_states;
};

SubstituteCore::SubstituteCore(CallJournal& journal)
    : m_journal(journal), m_state(std::make_shared<State>())
{
}

SubstituteCore::~SubstituteCore() = default;

SubstituteCore::Event* SubstituteCore::eventOf(zel_event_t* event)
{
    return reinterpret_cast<Event*>(event);
}

const SubstituteCore::Event* SubstituteCore::eventOf(const zel_event_t* event)
{
    return reinterpret_cast<const Event*>(event);
}

const EventContent& SubstituteCore::contentOf(const zel_event_t* event)
{
    return eventOf(event)->content;
}

int SubstituteCore::deliver(int domain, int code, const EventContent& content)
{
    std::vector<int> receivers;
    {
        const Lock lock(m_state->mutex);
        for (const auto& [number, channel] : m_state->channels) {
            if (channel.requestedDomains.count(domain) != 0)
                receivers.push_back(number);
        }
    }
    return static_cast<int>(std::count_if(receivers.begin(), receivers.end(), [&](int channel) {
        return pushTo(channel, domain, code, content);
    }));
}

bool SubstituteCore::pushTo(int channel, int domain, int code, const EventContent& content,
                            const zel_event_payload_t* payload)
{
    auto event = std::make_unique<Event>();
    event->domain = domain;
    event->code = code;
    event->content = content;
    if (payload)
        event->payload = *payload;
    const Lock lock(m_state->mutex);
    Event* const pushed = event.get();
    if (!m_state->push(channel, pushed))
        return false;
    m_state->events[pushed] = std::move(event);
    return true;
}

void SubstituteCore::setRequested(int domain, bool isRequested)
{
    const Lock lock(m_state->mutex);
    const auto channel = m_state->channels.find(m_state->activeChannel(std::this_thread::get_id()));
    if (channel == m_state->channels.end())
        return m_state->blame("events were requested or stopped by a thread without a channel");
    if (isRequested)
        channel->second.requestedDomains.insert(domain);
    else
        channel->second.requestedDomains.erase(domain);
}

std::vector<int> SubstituteCore::channels() const
{
    const Lock lock(m_state->mutex);
    std::vector<int> numbers;
    for (const auto& [number, channel] : m_state->channels)
        numbers.push_back(number);
    return numbers;
}

std::vector<int> SubstituteCore::privateDomains() const
{
    const Lock lock(m_state->mutex);
    std::vector<int> domains;
    for (const auto& [id, thread] : m_state->threads)
        domains.insert(domains.end(), thread.domains.begin(), thread.domains.end());
    std::sort(domains.begin(), domains.end());
    return domains;
}

int SubstituteCore::initializations(std::thread::id thread) const
{
    const Lock lock(m_state->mutex);
    const auto found = m_state->threads.find(thread);
    return found != m_state->threads.end() ? found->second.initializations : 0;
}

int SubstituteCore::surplusShutdowns() const
{
    const Lock lock(m_state->mutex);
    return m_state->surplusShutdowns;
}

int SubstituteCore::eventCount() const
{
    const Lock lock(m_state->mutex);
    return static_cast<int>(m_state->events.size());
}

std::vector<std::string> SubstituteCore::leftovers() const
{
    std::vector<std::string> found;
    for (const int channel : channels())
        found.push_back("channel " + std::to_string(channel));
    for (const int domain : privateDomains())
        found.push_back("private domain " + std::to_string(domain));
    const Lock lock(m_state->mutex);
    for (const auto& entry : m_state->events)
        found.push_back("event of domain " + std::to_string(entry.first->domain));
    for (const auto& [number, channel] : m_state->channels) {
        for (const int domain : channel.requestedDomains)
            found.push_back("request for the events of domain " + std::to_string(domain));
    }
    found.insert(found.end(), m_state->misuses.begin(), m_state->misuses.end());
    return found;
}

int SubstituteCore::refuse(const char* operation)
{
    m_journal.enter(operation);
    errno = ENOTSUP;
    return -1;
}

int SubstituteCore::getVersion(int* version)
{
    if (!m_journal.enter("core.getVersion"))
        return -1;
    *version = ZEL_VERSION;
    return 0;
}

int SubstituteCore::initialize()
{
    if (!m_journal.enter("core.initialize"))
        return -1;
    ThreadEnd::watch(m_state);
    const Lock lock(m_state->mutex);
    ++m_state->threads[std::this_thread::get_id()].initializations;
    return 0;
}

int SubstituteCore::shutdown()
{
    if (!m_journal.enter("core.shutdown"))
        return -1;
    const Lock lock(m_state->mutex);
    const auto thread = m_state->threads.find(std::this_thread::get_id());
    if (thread == m_state->threads.end()) {
        ++m_state->surplusShutdowns;
        errno = EPERM;
        return -1;
    }
    if (--thread->second.initializations == 0)
        m_state->endThread(std::this_thread::get_id());
    return 0;
}

int SubstituteCore::channelCreate(int*)
{
    return refuse("core.channelCreate");
}

int SubstituteCore::channelSetActive(int, int*)
{
    return refuse("core.channelSetActive");
}

int SubstituteCore::channelGetActive()
{
    if (!m_journal.enter("core.channelGetActive"))
        return -1;
    const Lock lock(m_state->mutex);
    const int channel = m_state->activeChannel(std::this_thread::get_id());
    if (channel == -1)
        errno = EPERM;
    return channel;
}

int SubstituteCore::channelDestroy(int)
{
    return refuse("core.channelDestroy");
}

int SubstituteCore::getEvent(zel_event_t** event, int timeoutMs)
{
    if (!m_journal.enter("core.getEvent", timeoutMs))
        return -1;
    Lock lock(m_state->mutex);
    const int number = m_state->activeChannel(std::this_thread::get_id());
    if (number == -1) {
        errno = EPERM;
        return -1;
    }
    State::Channel& channel = m_state->channels.at(number);
    m_state->release(std::exchange(channel.taken, nullptr));
    const auto hasEvent = [&] { return !channel.queue.empty(); };
    if (timeoutMs < 0)
        channel.pushed.wait(lock, hasEvent);
    else
        channel.pushed.wait_for(lock, std::chrono::milliseconds(timeoutMs), hasEvent);
    if (hasEvent()) {
        channel.taken = channel.queue.front();
        channel.queue.pop_front();
    }
    *event = reinterpret_cast<zel_event_t*>(channel.taken);
    return 0;
}

int SubstituteCore::pushEvent(zel_event_t*)
{
    return refuse("core.pushEvent");
}

int SubstituteCore::channelPushEvent(int channel, zel_event_t* event)
{
    if (!m_journal.enter("core.channelPushEvent", channel))
        return -1;
    const Lock lock(m_state->mutex);
    if (eventOf(event)->isPushed)
        m_state->blame("an event was pushed twice");
    if (!eventOf(event)->isPushed && m_state->push(channel, eventOf(event)))
        return 0;
    errno = EINVAL;
    return -1;
}

int SubstituteCore::setVerbosity(unsigned int)
{
    return refuse("core.setVerbosity");
}

void SubstituteCore::free(void* memory)
{
    m_journal.enter("core.free", memory);
    std::free(memory);
}

int SubstituteCore::registerDomain()
{
    if (!m_journal.enter("core.registerDomain"))
        return -1;
    const Lock lock(m_state->mutex);
    const auto thread = m_state->threads.find(std::this_thread::get_id());
    if (thread == m_state->threads.end()) {
        errno = EPERM;
        return -1;
    }
    thread->second.domains.push_back(m_state->nextDomain);
    return m_state->nextDomain++;
}

int SubstituteCore::registerShutdownHandler(zel_end_handler_t, void*)
{
    return refuse("core.registerShutdownHandler");
}

int SubstituteCore::registerChannelDestroyHandler(int, zel_end_handler_t, void*)
{
    return refuse("core.registerChannelDestroyHandler");
}

int SubstituteCore::addFd(int, int, zel_io_handler_t, void*)
{
    return refuse("core.addFd");
}

int SubstituteCore::removeFd(int)
{
    return refuse("core.removeFd");
}

int SubstituteCore::setDomainData(int, void*, void**)
{
    return refuse("core.setDomainData");
}

int SubstituteCore::getDomainData(int, void**)
{
    return refuse("core.getDomainData");
}

int SubstituteCore::eventGetDomain(const zel_event_t* event)
{
    m_journal.enter("core.eventGetDomain");
    return eventOf(event)->domain;
}

int SubstituteCore::eventGetCode(const zel_event_t* event)
{
    m_journal.enter("core.eventGetCode");
    return eventOf(event)->code;
}

int SubstituteCore::eventCreate(zel_event_t** event, int domain, int code,
                                const zel_event_payload_t* payload,
                                zel_event_completion_t completion)
{
    if (!m_journal.enter("core.eventCreate", domain, code, payload))
        return -1;
    auto made = std::make_unique<Event>();
    made->domain = domain;
    made->code = code;
    made->completion = completion;
    if (payload)
        made->payload = *payload;
    *event = reinterpret_cast<zel_event_t*>(made.get());
    const Lock lock(m_state->mutex);
    const Event* const key = made.get();
    m_state->events[key] = std::move(made);
    return 0;
}

void SubstituteCore::eventDestroy(zel_event_t* event)
{
    m_journal.enter("core.eventDestroy");
    const Lock lock(m_state->mutex);
    const auto found = m_state->events.find(eventOf(event));
    if (found == m_state->events.end())
        m_state->blame("an event was destroyed that is not there");
    else if (found->second->isPushed)
        m_state->blame("an event was destroyed that belongs to a channel");
    else
        m_state->release(found->second.get());
}

const zel_event_payload_t* SubstituteCore::eventGetPayload(const zel_event_t* event)
{
    if (!m_journal.enter("core.eventGetPayload"))
        return nullptr;
    return eventOf(event)->payload ? &*eventOf(event)->payload : nullptr;
}

} // namespace tamotest
