// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelAudioMixer.h>

namespace tamomock {

ZelAudioMixer::~ZelAudioMixer() = default;

} // namespace tamomock
