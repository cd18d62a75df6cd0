// SPDX-License-Identifier: Apache-2.0
#include "ThreadState.h"

#include "ChannelTable.h"
#include "Fork.h"
#include "ObjectWatch.h"

#include <pthread.h>

#include <cerrno>
#include <climits>
#include <utility>

namespace zel {
namespace {

// A plain pointer, which has no destructor, and a key, whose destructor runs after those of all
// `thread_local` objects of the thread, and again if one of the other keys' brings a state back.
thread_local ThreadState* currentState = nullptr;

/** Makes the key at the first call; false where the process has no more. */
bool endKey(pthread_key_t& key, void (*endThread)(void*))
{
    static pthread_key_t made;
    static const bool isMade = pthread_key_create(&made, endThread) == 0;
    key = made;
    return isMade;
}

} // namespace

ThreadState* ThreadState::current()
{
    return currentState;
}

int ThreadState::initialize()
{
    if (currentState) {
        if (currentState->m_count == UINT_MAX)
            return ENOMEM;
        ++currentState->m_count;
        return 0;
    }
    pthread_key_t key;
    if (!endKey(key, &ThreadState::endThread) || !watchForks())
        return ENOMEM;
    std::unique_ptr<ThreadState> state(new ThreadState);
    if (pthread_setspecific(key, state.get()) != 0)
        return ENOMEM;
    currentState = state.release();
    return 0;
}

int ThreadState::shutdown()
{
    ThreadState* const state = currentState;
    if (!state)
        return EPERM;
    if (state->m_count > 1) {
        --state->m_count;
        return 0;
    }
    if (state->m_phase != Phase::Running)
        return EPERM;
    state->end();
    if (--state->m_count > 0) // a handler has initialised the thread again
        return 0;
    endThread(state);
    return 0;
}

void ThreadState::endThread(void* pointer)
{
    const std::unique_ptr<ThreadState> state(static_cast<ThreadState*>(pointer));
    state->end();
    pthread_key_t key;
    endKey(key, &ThreadState::endThread);
    pthread_setspecific(key, nullptr);
    currentState = nullptr;
}

void ThreadState::end()
{
    m_phase = Phase::CallingHandlers;
    m_shutdownHandlers.run();
    m_phase = Phase::DestroyingChannels;
    while (!m_channels.empty())
        destroyChannel(m_channels.rbegin()->first);
    m_phase = Phase::Running;
}

void ThreadState::discardAfterFork()
{
    ThreadState* const state = std::exchange(currentState, nullptr);
    if (!state)
        return;
    pthread_key_t key;
    endKey(key, &ThreadState::endThread);
    pthread_setspecific(key, nullptr);
    delete state->m_taken.release();
    for (const auto& [id, channel] : state->m_channels)
        channel->discard();
    delete state;
}

ThreadState::~ThreadState() = default;

int ThreadState::createChannel(std::shared_ptr<Channel>& channel)
{
    if (m_phase == Phase::DestroyingChannels)
        return EPERM;
    std::shared_ptr<Channel> made = ChannelTable::instance().make();
    if (!made)
        return ENOMEM;
    const auto kept = m_channels.emplace(made->id(), made).first;
    try {
        ChannelTable::instance().add(made);
    } catch (...) {
        m_channels.erase(kept);
        throw;
    }
    channel = std::move(made);
    return 0;
}

std::shared_ptr<Channel> ThreadState::channel(int id) const
{
    const auto found = m_channels.find(id);
    return found == m_channels.end() ? nullptr : found->second;
}

int ThreadState::activeChannel(std::shared_ptr<Channel>& channel)
{
    if (!m_active) {
        if (const int error = createChannel(m_active))
            return error;
    }
    channel = m_active;
    return 0;
}

int ThreadState::destroyChannel(int id)
{
    const std::shared_ptr<Channel> channel = this->channel(id);
    if (!channel)
        return EINVAL;
    if (channel->isEnding() && m_phase != Phase::DestroyingChannels)
        return EINVAL;
    channel->setEnding();
    channel->destroyHandlers().run();
    if (channel->isClosed()) // by a handler, and perhaps with this object
        return 0;
    m_channels.erase(id);
    ChannelTable::instance().remove(*channel);
    if (m_active == channel)
        m_active.reset();
    if (m_takenFrom == id)
        releaseTaken();
    channel->close();
    return 0;
}

void ThreadState::releaseTaken()
{
    m_takenFrom = 0;
    const EventPointer released = std::move(m_taken); // its completion may come back here
}

zel_event* ThreadState::keepTaken(EventPointer event, int channel)
{
    m_taken = std::move(event);
    m_takenFrom = channel;
    return m_taken.get();
}

int ThreadState::addShutdownHandler(zel_end_handler_t handler, void* data)
{
    if (m_phase != Phase::Running)
        return EPERM;
    m_shutdownHandlers.add(handler, data);
    return 0;
}

} // namespace zel
