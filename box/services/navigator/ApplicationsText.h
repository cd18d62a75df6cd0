// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_APPLICATIONSTEXT_H
#define TAMOBOX_APPLICATIONSTEXT_H

#include "ApplicationTable.h"

#include "pps/MessageWriter.h"

#include <string>

namespace tamobox {

/** Adds the attributes of the published object: all that the navigator knows of its applications.
 */
void writeApplications(MessageWriter& message, const ApplicationTable& table);

/**
 * Reads what writeApplications() wrote. What is malformed or missing is left out: an application
 * without a process, or a value, which is then as it is for an application that has just come. None
 * of them listens.
 */
ApplicationTable readApplications(const std::string& text);

} // namespace tamobox

#endif
