// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELSOUNDPLAYER_H
#define TAMOMOCK_ZELSOUNDPLAYER_H

#include <tamo/export.h>

#include <zel/soundplayer.h>

namespace tamomock {

/**
 * The sound player, as the library calls it: one operation for each function of
 * `<zel/soundplayer.h>`, named after it without `soundplayer_`. What a function takes, returns and
 * does is said there; an operation of a substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelSoundPlayer
{
public:
    ZelSoundPlayer() = default;
    ZelSoundPlayer(const ZelSoundPlayer&) = delete;
    ZelSoundPlayer& operator=(const ZelSoundPlayer&) = delete;
    virtual ~ZelSoundPlayer();

    virtual int prepareSound(const char* name) = 0;
    virtual int playSound(const char* name) = 0;
};

} // namespace tamomock

#endif
