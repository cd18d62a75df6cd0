// SPDX-License-Identifier: Apache-2.0
#ifndef HOST_CALL_H
#define HOST_CALL_H

#include <cerrno>
#include <new>

namespace host {

/**
 * Runs the body of a C function and turns its result into what C functions return.
 *
 * @param body returns 0 or an `errno` value; memory that runs out in it is ENOMEM
 * @return 0 with `errno` as it was before, or -1 with `errno` set
 */
template<class Body>
int call(Body&& body)
{
    const int before = errno;
    int error;
    try {
        error = body();
    } catch (const std::bad_alloc&) {
        error = ENOMEM;
    }
    errno = error ? error : before;
    return error ? -1 : 0;
}

} // namespace host

#endif
