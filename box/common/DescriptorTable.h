// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DESCRIPTORTABLE_H
#define TAMOBOX_DESCRIPTORTABLE_H

#include <vector>

namespace tamobox {

/**
 * Opens `/dev/null` in place of each of the descriptors 0, 1 and 2 that is closed, so that nothing
 * else is ever opened there.
 */
void fillStandardDescriptors();

/** Whether one of them was filled so. Programs that are executed find it closed, as it was. */
bool isFilledDescriptor(int fd);

/** The descriptors that are open in this process, in no order. */
std::vector<int> openDescriptors();

/**
 * Closes every descriptor of the process except some. Makes system calls only when it closes, so
 * that it may stand between fork() and exec().
 *
 * @param kept in any order; -1 stands for none
 */
void closeAllDescriptorsBut(std::vector<int> kept);

/** Says whether a descriptor stays open when a program is executed. */
void setInherited(int fd, bool inherited);

} // namespace tamobox

#endif
