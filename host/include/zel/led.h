/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The notification LED.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. On a platform without the service every function
 * that can fail fails with ENOTSUP, getters of events included; led_get_domain() never fails.
 */
#ifndef ZEL_LED_H
#define ZEL_LED_H

#include <zel/export.h>
#include <zel/zel.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the LED's events. */
enum {
    LED_INFO = 1 /**< with rgb: the LED shows another colour, or is off */
};

/** The colours that can be asked for, as 24-bit RGB numbers. */
typedef enum {
    LED_COLOR_RED = 0xFF0000,
    LED_COLOR_GREEN = 0x00FF00,
    LED_COLOR_BLUE = 0x0000FF,
    LED_COLOR_YELLOW = 0xFFFF00,
    LED_COLOR_CYAN = 0x00FFFF,
    LED_COLOR_MAGENTA = 0xFF00FF,
    LED_COLOR_WHITE = 0xFFFFFF
} led_color_t;

/**
 * Asks for the events of the LED, for the calling thread's active channel. Asking again for the
 * same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int led_request_events(int flags);

/** The domain of the LED; the same in every process and thread. Never fails. */
ZEL_EXPORT int led_get_domain(void);

/** The colour that the LED shows, a 24-bit RGB number; 0: it is off. None: -1. */
ZEL_EXPORT int led_event_get_rgb(const zel_event_t* event);

/**
 * Has the LED flash. A request with the same id replaces the earlier one.
 *
 * @param id the request's, of the caller's choice, not empty
 * @param blink_count how often, above 0; -1: until led_cancel()
 *
 * Errors: EINVAL; ENOENT (the service is not there).
 */
ZEL_EXPORT int led_request_color(const char* id, led_color_t color, int blink_count);

/**
 * As led_request_color(), with any colour.
 *
 * @param rgb a 24-bit RGB number above 0
 */
ZEL_EXPORT int led_request_rgb(const char* id, int rgb, int blink_count);

/** Ends a request. One that has ended already, or never was, is left alone. */
ZEL_EXPORT int led_cancel(const char* id);

#ifdef __cplusplus
}
#endif

#endif
