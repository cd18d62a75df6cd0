// SPDX-License-Identifier: Apache-2.0
#ifndef SCREEN_CONTEXTTABLE_H
#define SCREEN_CONTEXTTABLE_H

#include "Context.h"

#include <screen/screen.h>

#include <memory>
#include <mutex>
#include <unordered_map>

namespace screen {

/** The contexts of the process. Any thread. */
class ContextTable
{
public:
    /** The process' one; never destroyed, since a process may exit while threads use it. */
    static ContextTable& instance();

    /** Makes a context. 0, or an `errno` value: EAGAIN (no numbers are left). */
    int create(screen_context_t& handle);

    /** Ends a context; whoever has found it keeps it as long as needed. False where there is none.
     */
    bool destroy(screen_context_t handle);

    /** The context of a handle; none where it is no context's, or no longer. */
    std::shared_ptr<Context> find(screen_context_t handle) const;

private:
    mutable std::mutex m_mutex; // nothing is called while it is held
    int m_lastNumber = 0;
    std::unordered_map<int, std::shared_ptr<Context>> m_contexts;
};

} // namespace screen

#endif
