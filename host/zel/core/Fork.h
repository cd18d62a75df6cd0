// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_FORK_H
#define ZEL_CORE_FORK_H

namespace zel {

/**
 * From now on the child of a fork() begins without initialised threads and without channels, and
 * can be initialised anew, whatever the parent's other threads were doing. Descriptors that the
 * parent's other threads had watched stay open in it until it ends or executes a program.
 *
 * @return false where there is no memory for it
 */
bool watchForks();

} // namespace zel

#endif
