// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelSoundPlayer.h>

namespace tamomock {

ZelSoundPlayer::~ZelSoundPlayer() = default;

} // namespace tamomock
