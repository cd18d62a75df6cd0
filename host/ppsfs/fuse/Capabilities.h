// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_CAPABILITIES_H
#define PPSFS_CAPABILITIES_H

namespace ppsfs {

/**
 * Gives up every capability of the calling thread but the one that unmounting takes, and that one
 * is kept aside: it has no effect until useMountCapability() takes it up.
 *
 * @return 0 or an `errno` value
 */
int shelveCapabilities();

/** Takes the capability that unmounting takes up again, where it was there. 0 or an `errno` value.
 */
int useMountCapability();

} // namespace ppsfs

#endif
