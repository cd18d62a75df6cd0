// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_FUSEDEVICE_H
#define TAMO_TESTS_FUSEDEVICE_H

namespace tamotest {

/**
 * Lets everybody use /dev/fuse, in a mount namespace of this program's own and of what it starts;
 * the machine's device stays as it is. For programs that run as root and start others as ordinary
 * users, on machines where the device is root's alone. Does nothing where it is open to all
 * already, or without root. Called before the first thread is started.
 */
void openFuseDevice();

} // namespace tamotest

#endif
