// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelSoundPlayerImpl.h>

namespace tamomock {

ZelSoundPlayerImpl::~ZelSoundPlayerImpl() = default;

int ZelSoundPlayerImpl::prepareSound(const char* name)
{
    return soundplayer_prepare_sound(name);
}

int ZelSoundPlayerImpl::playSound(const char* name)
{
    return soundplayer_play_sound(name);
}

} // namespace tamomock
