// SPDX-License-Identifier: Apache-2.0
#include "Domain.h"
#include "ThreadState.h"
#include "common/Call.h"

#include <zel/zel.h>

using zel::Channel;
using zel::ThreadState;

int zel_register_domain(void)
{
    int domain = -1;
    host::call([&] {
        if (!ThreadState::current())
            return EPERM;
        domain = zel::registerDomain();
        return domain < 0 ? ENOMEM : 0;
    });
    return domain;
}

int zel_set_domain_data(int domain, void* data, void** previous)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        if (!zel::isDomain(domain))
            return EINVAL;
        std::shared_ptr<Channel> active;
        if (const int error = thread->activeChannel(active))
            return error;
        void*& kept = active->domainData()[domain];
        if (previous)
            *previous = kept;
        kept = data;
        return 0;
    });
}

int zel_get_domain_data(int domain, void** data)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        if (!data || !zel::isDomain(domain))
            return EINVAL;
        std::shared_ptr<Channel> active;
        if (const int error = thread->activeChannel(active))
            return error;
        const auto found = active->domainData().find(domain);
        *data = found == active->domainData().end() ? nullptr : found->second;
        return 0;
    });
}
