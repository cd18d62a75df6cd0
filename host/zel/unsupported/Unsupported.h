// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_UNSUPPORTED_UNSUPPORTED_H
#define ZEL_UNSUPPORTED_UNSUPPORTED_H

#include <cerrno>

/**
 * Defines a C function of a service that the host does not offer: it fails with ENOTSUP.
 *
 * @param none what it returns: the value that its declaration says is "none", or -1
 * @param ... its declaration, without names for the parameters
 */
#define ZEL_UNSUPPORTED(none, ...)                                                                 \
    __VA_ARGS__                                                                                    \
    {                                                                                              \
        errno = ENOTSUP;                                                                           \
        return none;                                                                               \
    }

namespace zel {

/** Fails with ENOTSUP where a record was asked for. */
template<typename Record>
int unsupportedRecord(Record** record)
{
    if (record)
        *record = nullptr;
    errno = ENOTSUP;
    return -1;
}

/** Frees a record of which there is none. */
template<typename Record>
void freeUnsupportedRecord(Record** record)
{
    if (record)
        *record = nullptr;
}

} // namespace zel

#endif
