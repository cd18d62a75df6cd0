// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELSOUNDPLAYERIMPL_H
#define TAMOMOCK_ZELSOUNDPLAYERIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelSoundPlayer.h>

namespace tamomock {

/**
 * The default ZelSoundPlayer: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelSoundPlayerImpl : public ZelSoundPlayer
{
public:
    ~ZelSoundPlayerImpl() override;

    int prepareSound(const char* name) override;
    int playSound(const char* name) override;
};

} // namespace tamomock

#endif
