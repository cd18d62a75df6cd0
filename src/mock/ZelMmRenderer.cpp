// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelMmRenderer.h>

namespace tamomock {

ZelMmRenderer::~ZelMmRenderer() = default;

} // namespace tamomock
