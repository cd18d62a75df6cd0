/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The network status: whether an external network can be reached, and through which proxies.
 *
 * Events come through the mailbox `/pps/services/network/events`; what is asked for is read from
 * `/pps/services/network/status`. A change is published before it is told: whoever is told of it
 * and asks gets that state, or one that comes later, and is told of that one, too.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. On a platform that does not offer the service at all
 * every function that can fail fails with ENOTSUP, getters of events included;
 * netstatus_get_domain() never fails.
 */
#ifndef ZEL_NETSTATUS_H
#define ZEL_NETSTATUS_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the network status' events. */
enum {
    NETSTATUS_INFO = 1 /**< with everything that is known of the network */
};

/**
 * The proxies that the user, or the network, asks to be used. Texts are zero-terminated UTF-8 and
 * never NULL; a host that is empty, with port 0, is "none: connect directly".
 */
typedef struct netstatus_proxy_details
{
    bool http_proxy_login_required; /**< whether the proxy for HTTP asks for a name and password */
    const char* http_proxy_host;    /**< a name or an address */
    int http_proxy_port;            /**< 1 to 65535 */
    const char* https_proxy_host;
    int https_proxy_port;
    const char* ftp_proxy_host;
    int ftp_proxy_port;
} netstatus_proxy_details_t;

/**
 * Asks for the network's events, for the calling thread's active channel. The first comes soon,
 * with the state as it is then, if it is known; another one follows whenever the state is
 * published, whether or not it is another, and when the service has been started again. They come
 * in order, and none is left out. Asking again for the same channel changes nothing. The events
 * stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); EINVAL (other flags); ENOENT (the service is not there); and
 * those of open().
 */
ZEL_EXPORT int netstatus_request_events(int flags);

/** The domain of the network status; the same in every process and thread. Never fails. */
ZEL_EXPORT int netstatus_get_domain(void);

/**
 * Whether an external network can be reached now. May be called from any thread, initialised or
 * not.
 *
 * @param available is left as it was where the call fails
 *
 * Errors: ENOENT (no service has published it); EBADMSG (what was published is not a message
 * of this kind); EINVAL; ENOMEM; and those of open() and read().
 */
ZEL_EXPORT int netstatus_get_availability(bool* available);

/**
 * The proxies to be used now. May be called from any thread, initialised or not.
 *
 * @param details the record, to be freed with netstatus_free_proxy_details()
 *
 * Errors, after which `*details` is NULL: as netstatus_get_availability().
 */
ZEL_EXPORT int netstatus_get_proxy_details(netstatus_proxy_details_t** details);

/** Frees a record and sets the pointer to it to NULL. A NULL in either place is allowed. */
ZEL_EXPORT void netstatus_free_proxy_details(netstatus_proxy_details_t** details);

/** Whether an external network can be reached. None: false. */
ZEL_EXPORT bool netstatus_event_get_availability(const zel_event_t* event);

/** Whether the proxy for HTTP asks for a name and a password. None: false. */
ZEL_EXPORT bool netstatus_event_get_http_proxy_login_required(const zel_event_t* event);

/** The proxy for HTTP: a name or an address. Empty: connect directly. None: NULL. */
ZEL_EXPORT const char* netstatus_event_get_http_proxy_host(const zel_event_t* event);

/** The port of the proxy for HTTP, 1 to 65535; 0: there is no proxy. None: -1. */
ZEL_EXPORT int netstatus_event_get_http_proxy_port(const zel_event_t* event);

/** The proxy for HTTPS: a name or an address. Empty: connect directly. None: NULL. */
ZEL_EXPORT const char* netstatus_event_get_https_proxy_host(const zel_event_t* event);

/** The port of the proxy for HTTPS, 1 to 65535; 0: there is no proxy. None: -1. */
ZEL_EXPORT int netstatus_event_get_https_proxy_port(const zel_event_t* event);

/** The proxy for FTP: a name or an address. Empty: connect directly. None: NULL. */
ZEL_EXPORT const char* netstatus_event_get_ftp_proxy_host(const zel_event_t* event);

/** The port of the proxy for FTP, 1 to 65535; 0: there is no proxy. None: -1. */
ZEL_EXPORT int netstatus_event_get_ftp_proxy_port(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
