// SPDX-License-Identifier: Apache-2.0
#include "ThreadState.h"
#include "common/Call.h"

#include <zel/zel.h>

using zel::ThreadState;

int zel_initialize(void)
{
    return host::call([] { return ThreadState::initialize(); });
}

int zel_shutdown(void)
{
    return host::call([] { return ThreadState::shutdown(); });
}

int zel_register_shutdown_handler(zel_end_handler_t handler, void* data)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        if (!handler)
            return EINVAL;
        return thread->addShutdownHandler(handler, data);
    });
}
