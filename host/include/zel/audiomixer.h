/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The audio mixer: levels and mutes of what the device plays and records.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Where a call fails nothing is written through its
 * arguments, unless it says otherwise. An output or input that is none of those listed, and a
 * level that is outside its range or NaN, is EINVAL. On a platform without the service every
 * function that can fail fails with ENOTSUP, getters of events included;
 * audiomixer_get_domain() never fails.
 */
#ifndef ZEL_AUDIOMIXER_H
#define ZEL_AUDIOMIXER_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the mixer's events. */
enum {
    AUDIOMIXER_INFO = 1 /**< levels, mutes or the mixer's availability have changed */
};

/** Where sound comes out. */
typedef enum {
    AUDIOMIXER_OUTPUT_SPEAKER = 0,  /**< the device's own */
    AUDIOMIXER_OUTPUT_HEADPHONE = 1 /**< what is plugged in */
} audiomixer_output_t;

/** Where sound goes in. */
typedef enum {
    AUDIOMIXER_INPUT_MICROPHONE = 0, /**< the device's own */
    AUDIOMIXER_INPUT_HEADSET = 1     /**< what is plugged in */
} audiomixer_input_t;

/**
 * Asks for the events of the mixer, for the calling thread's active channel. Asking again for the
 * same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int audiomixer_request_events(int flags);

/** The domain of the mixer; the same in every process and thread. Never fails. */
ZEL_EXPORT int audiomixer_get_domain(void);

/** Sets the level of an output: 0 to 100 percent. */
ZEL_EXPORT int audiomixer_set_output_level(audiomixer_output_t output, double level);

/** Sets the level of an input: 0 to 100 percent. */
ZEL_EXPORT int audiomixer_set_input_level(audiomixer_input_t input, double level);

/** Changes the level of an output by percent points, up or down; it stays within 0 and 100. */
ZEL_EXPORT int audiomixer_adjust_output_level(audiomixer_output_t output, double change);

/** Changes the level of an input by percent points, up or down; it stays within 0 and 100. */
ZEL_EXPORT int audiomixer_adjust_input_level(audiomixer_input_t input, double change);

/** Mutes an output, or no longer. Its level stays. */
ZEL_EXPORT int audiomixer_set_output_mute(audiomixer_output_t output, bool mute);

/** Mutes an input, or no longer. Its level stays. */
ZEL_EXPORT int audiomixer_set_input_mute(audiomixer_input_t input, bool mute);

/** Mutes an output that is not muted, and the other way round. */
ZEL_EXPORT int audiomixer_toggle_output_mute(audiomixer_output_t output);

/** Mutes an input that is not muted, and the other way round. */
ZEL_EXPORT int audiomixer_toggle_input_mute(audiomixer_input_t input);

/** The level of an output: 0 to 100 percent. */
ZEL_EXPORT int audiomixer_get_output_level(audiomixer_output_t output, double* level);

/** The level of an input: 0 to 100 percent. */
ZEL_EXPORT int audiomixer_get_input_level(audiomixer_input_t input, double* level);

/** Whether an output is muted. */
ZEL_EXPORT int audiomixer_get_output_mute(audiomixer_output_t output, bool* mute);

/** Whether an input is muted. */
ZEL_EXPORT int audiomixer_get_input_mute(audiomixer_input_t input, bool* mute);

/** The level of an output: 0 to 100 percent. None: NaN. */
ZEL_EXPORT double audiomixer_event_get_output_level(const zel_event_t* event,
                                                    audiomixer_output_t output);

/** The level of an input: 0 to 100 percent. None: NaN. */
ZEL_EXPORT double audiomixer_event_get_input_level(const zel_event_t* event,
                                                   audiomixer_input_t input);

/** Whether an output is muted. None: false. */
ZEL_EXPORT bool audiomixer_event_get_output_mute(const zel_event_t* event,
                                                 audiomixer_output_t output);

/** Whether an input is muted. None: false. */
ZEL_EXPORT bool audiomixer_event_get_input_mute(const zel_event_t* event, audiomixer_input_t input);

/** Whether the mixer can be used. None: false. */
ZEL_EXPORT bool audiomixer_event_get_available(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
