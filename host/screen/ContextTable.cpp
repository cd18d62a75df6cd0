// SPDX-License-Identifier: Apache-2.0
#include "ContextTable.h"

#include "Handle.h"

#include <cerrno>
#include <limits>

namespace screen {

ContextTable& ContextTable::instance()
{
    static ContextTable& table = *new ContextTable;
    return table;
}

int ContextTable::create(screen_context_t& handle)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_lastNumber == std::numeric_limits<int>::max())
        return EAGAIN;
    const int number = m_lastNumber + 1;
    m_contexts.emplace(number, std::make_shared<Context>(number));
    m_lastNumber = number;
    handle = contextHandle(number);
    return 0;
}

bool ContextTable::destroy(screen_context_t handle)
{
    std::shared_ptr<Context> ended; // freed without the lock
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_contexts.find(contextNumber(handle));
    if (found == m_contexts.end())
        return false;
    ended = std::move(found->second);
    m_contexts.erase(found);
    return true;
}

std::shared_ptr<Context> ContextTable::find(screen_context_t handle) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_contexts.find(contextNumber(handle));
    return found == m_contexts.end() ? nullptr : found->second;
}

} // namespace screen
