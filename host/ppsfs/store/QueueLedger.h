// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_QUEUELEDGER_H
#define PPSFS_QUEUELEDGER_H

#include "Limits.h"

#include <cstddef>

namespace ppsfs {

/** Counts what is in a bounded queue: messages, and their bytes. */
class QueueLedger
{
public:
    explicit QueueLedger(std::size_t maxMessages = limits::QueuedMessages,
                         std::size_t maxBytes = limits::QueuedBytes)
        : m_maxMessages(maxMessages), m_maxBytes(maxBytes)
    {
    }

    std::size_t messages() const { return m_messages; }

    bool hasRoomFor(std::size_t bytes) const
    {
        return m_messages < m_maxMessages && m_bytes + bytes <= m_maxBytes;
    }

    void add(std::size_t bytes)
    {
        ++m_messages;
        m_bytes += bytes;
    }

    void remove(std::size_t bytes)
    {
        --m_messages;
        m_bytes -= bytes;
    }

private:
    std::size_t m_maxMessages;
    std::size_t m_maxBytes;
    std::size_t m_messages = 0;
    std::size_t m_bytes = 0;
};

} // namespace ppsfs

#endif
