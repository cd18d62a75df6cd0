// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_SERVICETABLE_H
#define TAMOBOX_SERVICETABLE_H

#include <sys/types.h>

#include <string>
#include <vector>

namespace tamobox {

/** An object that is there, unpublished, before a box is ready. */
struct ServiceObject
{
    std::string path; ///< below `/pps`, without it
    mode_t mode;      ///< exactly: the `umask` takes nothing away
};

/** A service of the box. */
struct ServiceEntry
{
    std::string program; ///< its helper program; also its name in messages
    std::vector<ServiceObject> objects;
};

/**
 * Every service of the box, in the order in which they are started. To add one: its program in
 * box/services/, its line here, and its objects in docs/platform-objects.md.
 */
const std::vector<ServiceEntry>& serviceTable();

} // namespace tamobox

#endif
