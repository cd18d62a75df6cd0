// SPDX-License-Identifier: Apache-2.0
#include "Request.h"

namespace tamo {
namespace platform {

Request::~Request() = default;

} // namespace platform
} // namespace tamo
