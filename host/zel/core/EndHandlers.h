// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_ENDHANDLERS_H
#define ZEL_CORE_ENDHANDLERS_H

#include <zel/zel.h>

#include <utility>
#include <vector>

namespace zel {

/** Functions of the application that are called at the end of something, once each. */
class EndHandlers
{
public:
    void add(zel_end_handler_t handler, void* data) { m_handlers.emplace_back(handler, data); }

    /** Calls them, the last added first. They may do anything except free this object. */
    void run()
    {
        while (!m_handlers.empty()) {
            const auto [handler, data] = m_handlers.back();
            m_handlers.pop_back();
            handler(data);
        }
    }

    void discard() { m_handlers.clear(); }

private:
    std::vector<std::pair<zel_end_handler_t, void*>> m_handlers;
};

} // namespace zel

#endif
