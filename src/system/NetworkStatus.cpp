// SPDX-License-Identifier: Apache-2.0
#include <tamo/system/NetworkStatus.h>

namespace tamo {
namespace system {

NetworkStatus::NetworkStatus() = default;

NetworkStatus::~NetworkStatus() = default;

} // namespace system
} // namespace tamo
