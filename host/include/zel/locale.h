/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The locale: the language and the country that the user chose.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Where a call fails nothing is written through its
 * arguments, unless it says otherwise. On a platform without the service every function that
 * can fail fails with ENOTSUP, getters of events included; locale_get_domain() never fails.
 */
#ifndef ZEL_LOCALE_H
#define ZEL_LOCALE_H

#include <zel/export.h>
#include <zel/zel.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the locale's events. */
enum {
    LOCALE_INFO = 1 /**< with language and country: the user chose another */
};

/**
 * Asks for the events of the locale, for the calling thread's active channel. Asking again for
 * the same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int locale_request_events(int flags);

/** The domain of the locale; the same in every process and thread. Never fails. */
ZEL_EXPORT int locale_get_domain(void);

/**
 * The locale that the user chose.
 *
 * @param language a code of ISO 639, such as "en", to be freed with zel_free()
 * @param country a code of ISO 3166, such as "CA", or an empty text, to be freed with zel_free()
 *
 * Errors: ENOENT (the service is not there); EINVAL; ENOMEM.
 */
ZEL_EXPORT int locale_get(char** language, char** country);

/** The language, as for locale_get(). None: NULL. */
ZEL_EXPORT const char* locale_event_get_language(const zel_event_t* event);

/** The country, as for locale_get(). None: NULL. */
ZEL_EXPORT const char* locale_event_get_country(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
