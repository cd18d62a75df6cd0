// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_LISTENER_H
#define PPSFS_LISTENER_H

namespace ppsfs {

/** Whoever wants to know when a handle becomes ready. */
class Listener
{
public:
    /**
     * The handle may have become readable or writable. Called from inside an operation of the
     * store, which therefore must not be used before that operation has returned.
     */
    virtual void wake() = 0;

protected:
    ~Listener() = default;
};

} // namespace ppsfs

#endif
