// SPDX-License-Identifier: Apache-2.0
#include "Call.h"
#include "ThreadState.h"

#include <zel/zel.h>

using zel::ThreadState;

int zel_initialize(void)
{
    return zel::call([] { return ThreadState::initialize(); });
}

int zel_shutdown(void)
{
    return zel::call([] { return ThreadState::shutdown(); });
}

int zel_register_shutdown_handler(zel_end_handler_t handler, void* data)
{
    return zel::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        if (!handler)
            return EINVAL;
        return thread->addShutdownHandler(handler, data);
    });
}
