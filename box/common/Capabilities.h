// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CAPABILITIES_H
#define TAMOBOX_CAPABILITIES_H

#include <cstdint>

namespace tamobox {

/** A set of capabilities: bit N stands for capability number N. */
using CapabilitySet = std::uint64_t;

inline constexpr CapabilitySet noCapabilities = 0;

/** The capabilities that the calling thread may use. */
CapabilitySet permittedCapabilities();

/** Whether the calling thread may mount and make namespaces without a user namespace. */
bool mayAdministerSystem();

/**
 * Gives up, for good, every capability of the calling thread that is not in a set; programs that it
 * executes later have no others either, whatever its user id is. Makes system calls only, so that
 * it may stand between fork() and exec().
 *
 * @return false, with `errno`, where the kernel refuses
 */
bool restrictCapabilities(CapabilitySet set);

} // namespace tamobox

#endif
