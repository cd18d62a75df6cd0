// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include <zel/soundplayer.h>

ZEL_UNSUPPORTED(-1, int soundplayer_prepare_sound(const char*))
ZEL_UNSUPPORTED(-1, int soundplayer_play_sound(const char*))
