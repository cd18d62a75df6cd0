// SPDX-License-Identifier: Apache-2.0
#include "MessageQueue.h"

#include <utility>

namespace ppsfs {

bool MessageQueue::push(std::string message)
{
    if (!m_ledger.hasRoomFor(message.size()))
        return false;
    pushAlways(std::move(message));
    return true;
}

void MessageQueue::pushAlways(std::string message)
{
    m_ledger.add(message.size());
    m_messages.push_back(std::move(message));
}

void MessageQueue::popFront()
{
    m_ledger.remove(m_messages.front().size());
    m_messages.pop_front();
}

void MessageQueue::popBack()
{
    m_ledger.remove(m_messages.back().size());
    m_messages.pop_back();
}

} // namespace ppsfs
