// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_POLICYREADER_H
#define TAMOBOX_POLICYREADER_H

#include "CatalogueReader.h"
#include "Policy.h"

namespace tamobox {

/** Reads an object of a catalogue as a policy. Throws Failure. */
Policy readPolicy(const CatalogueReader& object);

} // namespace tamobox

#endif
