// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CATALOGUEFILE_H
#define TAMOBOX_CATALOGUEFILE_H

#include <string>

namespace tamobox {

/** Reads a file that holds a catalogue, and checks it. Throws Failure with what is wrong, where. */
std::string readCatalogueFile(const std::string& path);

} // namespace tamobox

#endif
