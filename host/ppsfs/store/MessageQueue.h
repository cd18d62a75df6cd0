// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_MESSAGEQUEUE_H
#define PPSFS_MESSAGEQUEUE_H

#include "QueueLedger.h"

#include <deque>
#include <string>

namespace ppsfs {

/** A client's unread answers: whole messages, in order, and not more than the limits allow. */
class MessageQueue
{
public:
    bool isEmpty() const { return m_messages.empty(); }
    const std::string& front() const { return m_messages.front(); }

    /** False, and nothing queued, where there is no room. */
    bool push(std::string message);

    /** For the filesystem's own messages, which must not be lost: queued whether or not there is
     * room. */
    void pushAlways(std::string message);

    void popFront();
    void popBack();

private:
    std::deque<std::string> m_messages;
    QueueLedger m_ledger;
};

} // namespace ppsfs

#endif
