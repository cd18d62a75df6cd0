/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The audio devices: where sound comes out and goes in.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Where a call fails nothing is written through its
 * arguments, unless it says otherwise. On a platform without the service every function that
 * can fail fails with ENOTSUP, getters of events included; audiodevice_get_domain() never
 * fails.
 */
#ifndef ZEL_AUDIODEVICE_H
#define ZEL_AUDIODEVICE_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the audio devices' events. */
enum {
    AUDIODEVICE_INFO = 1 /**< with device and path: sound takes another way */
};

/** The ways that sound takes. */
typedef enum {
    AUDIODEVICE_PATH_UNKNOWN = -1, /**< none, or one that this interface does not know */
    AUDIODEVICE_PATH_SPEAKER = 0,
    AUDIODEVICE_PATH_HANDSET = 1,
    AUDIODEVICE_PATH_HEADPHONE = 2,
    AUDIODEVICE_PATH_HEADSET = 3,
    AUDIODEVICE_PATH_BLUETOOTH = 4,
    AUDIODEVICE_PATH_HDMI = 5
} audiodevice_path_t;

/** What is known of an audio device. */
typedef struct audiodevice_details
{
    const char* name;        /**< zero-terminated UTF-8, never NULL */
    audiodevice_path_t path; /**< the way that sound takes to it */
    bool supports_output;
    bool supports_input;
    int output_channels; /**< how many; 0: unknown */
    int input_channels;  /**< how many; 0: unknown */
} audiodevice_details_t;

/**
 * Asks for the events of the audio devices, for the calling thread's active channel. Asking again
 * for the same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int audiodevice_request_events(int flags);

/** The domain of the audio devices; the same in every process and thread. Never fails. */
ZEL_EXPORT int audiodevice_get_domain(void);

/**
 * The device that sound goes to at present.
 *
 * @param device its name, to be freed with zel_free()
 * @param path may be NULL
 *
 * Errors: ENODEV (there is no audio device); EINVAL; ENOMEM.
 */
ZEL_EXPORT int audiodevice_get(char** device, audiodevice_path_t* path);

/**
 * What is known of a device.
 *
 * @param device its name
 * @param details the record, to be freed with audiodevice_free_details()
 *
 * Errors, after which `*details` is NULL: ENODEV (there is no such device); EINVAL; ENOMEM.
 */
ZEL_EXPORT int audiodevice_get_details(const char* device, audiodevice_details_t** details);

/** Frees a record and sets the pointer to it to NULL. A NULL in either place is allowed. */
ZEL_EXPORT void audiodevice_free_details(audiodevice_details_t** details);

/** The name of the device that sound goes to now. None: NULL. */
ZEL_EXPORT const char* audiodevice_event_get_device(const zel_event_t* event);

/** The way that sound takes now. None: AUDIODEVICE_PATH_UNKNOWN. */
ZEL_EXPORT audiodevice_path_t audiodevice_event_get_path(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
