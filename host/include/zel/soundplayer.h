/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The sound player: the platform's own short sounds, by their names.
 *
 * The functions may be called from any thread, initialised or not, and there are no events.
 * Errors: ENOENT (there is no such sound); EINVAL. On a platform without the service they fail
 * with ENOTSUP.
 */
#ifndef ZEL_SOUNDPLAYER_H
#define ZEL_SOUNDPLAYER_H

#include <zel/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Has a sound loaded, so that playing it begins without a delay.
 *
 * @param name the sound's
 */
ZEL_EXPORT int soundplayer_prepare_sound(const char* name);

/**
 * Plays a sound, and does not wait for its end.
 *
 * @param name the sound's
 */
ZEL_EXPORT int soundplayer_play_sound(const char* name);

#ifdef __cplusplus
}
#endif

#endif
