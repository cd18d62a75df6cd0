// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELEVENTPROVIDER_H
#define TAMOMOCK_ZELEVENTPROVIDER_H

#include <tamo/export.h>

namespace tamomock {

/**
 * A platform service that delivers events: the operations that all of them have.
 *
 * Operations may be called from any thread, as the platform's functions may.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelEventProvider
{
public:
    ZelEventProvider() = default;
    ZelEventProvider(const ZelEventProvider&) = delete;
    ZelEventProvider& operator=(const ZelEventProvider&) = delete;
    virtual ~ZelEventProvider();

    /**
     * Asks for the service's events, for the calling thread's active channel.
     *
     * @param flags the service's own; its header says what they are
     * @return 0, or -1 with `errno` set
     */
    virtual int requestEvents(int flags) = 0;

    /** The service's domain, which its events carry. */
    virtual int getDomain() = 0;

    /**
     * Ends what requestEvents() began, with the same flags. A service without a function for that
     * keeps this: nothing is called, and 0 returned.
     *
     * @return 0, or -1 with `errno` set
     */
    virtual int stopEvents(int flags);
};

} // namespace tamomock

#endif
