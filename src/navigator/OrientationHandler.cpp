// SPDX-License-Identifier: Apache-2.0
#include <tamo/OrientationHandler.h>

namespace tamo {

OrientationHandler::~OrientationHandler() = default;

} // namespace tamo
