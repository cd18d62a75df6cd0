/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The core of the event library: channels, domains, events, watched descriptors.
 *
 * A thread calls zel_initialize(), asks services for their events (navigator_request_events() and
 * its like), and takes them one by one with zel_get_event(). An event belongs to a domain, one for
 * each service, and has a code that says which of the domain's events it is.
 *
 * Events come through channels. A channel is a queue that any thread may push to, and a set of
 * descriptors that are watched while somebody waits for an event. It belongs to the thread that
 * created it, and that thread alone takes events out of it. Each initialised thread has one active
 * channel; a service's events come to the channel that was active when they were asked for.
 *
 * Initialisation is counted for each thread: zel_shutdown() undoes one zel_initialize() of the same
 * thread, and never one of another thread's. With the last one, and when the thread ends (after its
 * `thread_local` objects), the thread's shutdown handlers run, and its channels, its registrations
 * and its handlers are freed. A process that exits calls and frees nothing, and may exit while its
 * threads are inside the library. Functions that need an initialised thread fail with EPERM in any
 * other.
 *
 * The child of a fork() starts without initialised threads, without channels and without events:
 * nothing of the parent's is called or taken from it there. It may initialise itself anew.
 *
 * Conventions: a function that can fail returns 0, or -1 with `errno` set; `errno` is left alone
 * otherwise. Unless it says otherwise a function may be called from any thread. A null pointer
 * where one is not allowed is EINVAL.
 */
#ifndef ZEL_ZEL_H
#define ZEL_ZEL_H

#include <zel/export.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The version of this interface: 1000 times the major plus the minor number. */
#define ZEL_VERSION 1000

/** What a watched descriptor is ready for: something to read, or its other end has gone. */
#define ZEL_IO_INPUT 0x1
/** What a watched descriptor is ready for: room to write. */
#define ZEL_IO_OUTPUT 0x2
/** An error or a hang-up on a watched descriptor; reported whether it was asked for or not. */
#define ZEL_IO_EXCEPT 0x4

/** An event. Its content is reached through functions. */
typedef struct zel_event zel_event_t;

/** The three words that an event of one's own carries. They are the sender's; nothing is freed. */
typedef struct zel_event_payload
{
    uintptr_t data1;
    uintptr_t data2;
    uintptr_t data3;
} zel_event_payload_t;

/**
 * Called once for an event of one's own when nobody needs it any more, just before it is freed: in
 * the thread that took it, at the next zel_get_event(), or in the thread that destroys it or its
 * channel. It may call anything.
 */
typedef void (*zel_event_completion_t)(zel_event_t* event);

/**
 * Called by zel_get_event(), in its thread, when a watched descriptor is ready.
 *
 * @param io_events what it is ready for, ZEL_IO_* values combined
 * @return 0; any other value ends the watching
 */
typedef int (*zel_io_handler_t)(int fd, int io_events, void* data);

/** Called at the end of a thread's initialisation, or of a channel; with the registered data. */
typedef void (*zel_end_handler_t)(void* data);

/**
 * The version of the library, as ZEL_VERSION. Needs no initialisation.
 */
ZEL_EXPORT int zel_get_version(int* version);

/**
 * Initialises the calling thread, or counts once more where it is.
 *
 * Errors: ENOMEM.
 */
ZEL_EXPORT int zel_initialize(void);

/**
 * Undoes one zel_initialize() of the calling thread. The last one runs the thread's shutdown
 * handlers, the last registered first, and destroys its channels. A handler may initialise the
 * thread anew: it then stays initialised, without what it had.
 *
 * Errors: EPERM (the thread is not initialised, or its initialisation is ending already; nothing
 * happens).
 */
ZEL_EXPORT int zel_shutdown(void);

/**
 * Makes a channel of the calling thread. It does not become the active one.
 *
 * @param channel the new channel's number, above 0; a number is never used again
 *
 * Errors: EPERM; EMFILE, ENFILE (no descriptors left); ENOMEM.
 */
ZEL_EXPORT int zel_channel_create(int* channel);

/**
 * Makes a channel of the calling thread its active one.
 *
 * @param previous the one that was active before, 0 where there was none; may be NULL
 *
 * Errors: EPERM; EINVAL (no such channel, or another thread's).
 */
ZEL_EXPORT int zel_channel_set_active(int channel, int* previous);

/**
 * The active channel of the calling thread. A thread that has none is given a new one.
 *
 * @return its number, or -1
 *
 * Errors: as zel_channel_create().
 */
ZEL_EXPORT int zel_channel_get_active(void);

/**
 * Destroys a channel of the calling thread: its destroy handlers run, the last registered first,
 * its descriptors are no longer watched, services send it nothing more, and its events are freed.
 *
 * Errors: EPERM; EINVAL (no such channel, or another thread's).
 */
ZEL_EXPORT int zel_channel_destroy(int channel);

/**
 * Takes the next event out of the calling thread's active channel, and waits for one. The event
 * stays the library's and is valid until the next zel_get_event() of the thread, or the channel's
 * end. Signals do not end the waiting. Events that are there are taken first, but watched
 * descriptors are looked at after every 32 of them.
 *
 * @param event the event; NULL where the time was over, and where the call fails for another reason
 * than EINVAL or EPERM
 * @param timeout_ms how long to wait, in milliseconds; 0: not at all; -1: without limit
 *
 * Errors: as zel_channel_create(); EPERM also where a handler has ended the thread's
 * initialisation; EINVAL (a time below -1).
 */
ZEL_EXPORT int zel_get_event(zel_event_t** event, int timeout_ms);

/**
 * Pushes an event to the calling thread's active channel. The library frees it from then on.
 *
 * Errors: as zel_channel_create(), and the event stays the caller's; EINVAL (the event was pushed
 * before, or is one that zel_get_event() returned).
 */
ZEL_EXPORT int zel_push_event(zel_event_t* event);

/**
 * Pushes an event to a channel, whichever thread's. Events of one pushing thread keep their order.
 * The library frees the event from then on.
 *
 * Errors: EINVAL (as zel_push_event(), or no such channel). The event stays the caller's.
 */
ZEL_EXPORT int zel_channel_push_event(int channel, zel_event_t* event);

/**
 * How much the library says on standard error: 0, nothing (the default); 1, what it was sent and
 * could not read; 2 and above, every event as well. For the whole process.
 */
ZEL_EXPORT int zel_set_verbosity(unsigned int verbosity);

/** Frees memory that a function of a service says is to be freed with it. NULL is allowed. */
ZEL_EXPORT void zel_free(void* memory);

/**
 * Takes a new domain for events of one's own.
 *
 * @return its number, above those of the services, or -1
 *
 * Errors: EPERM (the thread is not initialised); ENOMEM (no numbers are left).
 */
ZEL_EXPORT int zel_register_domain(void);

/**
 * Has a function called at the end of the calling thread's initialisation, in that thread, while
 * its channels are still there.
 *
 * Errors: EPERM (also while shutdown handlers run); EINVAL; ENOMEM.
 */
ZEL_EXPORT int zel_register_shutdown_handler(zel_end_handler_t handler, void* data);

/**
 * Has a function called when a channel of the calling thread is destroyed, in that thread, while
 * the channel is still there.
 *
 * Errors: EPERM; EINVAL (also: no such channel, another thread's, or one that is being destroyed);
 * ENOMEM.
 */
ZEL_EXPORT int zel_register_channel_destroy_handler(int channel, zel_end_handler_t handler,
                                                    void* data);

/**
 * Watches a descriptor in the calling thread's active channel: while zel_get_event() waits, the
 * handler is called whenever the descriptor is ready, and may push events. Readiness is a level:
 * the handler is called again as long as it stays.
 *
 * @param fd stays the caller's; zel_remove_fd() it before closing it, or it may go on being
 * reported
 * @param io_events ZEL_IO_INPUT, ZEL_IO_OUTPUT or both; ZEL_IO_EXCEPT may be added
 *
 * Errors: as zel_channel_create(); EINVAL; EBADF; EEXIST (the channel watches it already); EPERM
 * (also: a descriptor that cannot be waited for, such as a plain file's).
 */
ZEL_EXPORT int zel_add_fd(int fd, int io_events, zel_io_handler_t handler, void* data);

/**
 * Ends the watching of a descriptor in the calling thread's active channel. May be called by any
 * handler; no handler is called for the descriptor afterwards.
 *
 * Errors: EPERM; ENOENT (the channel does not watch it).
 */
ZEL_EXPORT int zel_remove_fd(int fd);

/**
 * Keeps a pointer for a domain in the calling thread's active channel; it ends with the channel,
 * and what it points to stays the caller's.
 *
 * @param previous the pointer before, NULL at first; may be NULL
 *
 * Errors: as zel_channel_create(); EINVAL (no such domain).
 */
ZEL_EXPORT int zel_set_domain_data(int domain, void* data, void** previous);

/**
 * The pointer that is kept for a domain in the calling thread's active channel; NULL at first.
 *
 * Errors: as zel_channel_create(); EINVAL (no such domain).
 */
ZEL_EXPORT int zel_get_domain_data(int domain, void** data);

/** The domain of an event, or -1 with EINVAL for NULL. */
ZEL_EXPORT int zel_event_get_domain(const zel_event_t* event);

/** The code of an event, which may be any number. For NULL it is -1, with EINVAL. */
ZEL_EXPORT int zel_event_get_code(const zel_event_t* event);

/**
 * Makes an event. It is the caller's until it is pushed. Needs no initialisation.
 *
 * @param domain a domain of one's own, or a service's
 * @param payload is copied; NULL: the event has none
 * @param completion may be NULL
 *
 * Errors: EINVAL (no such domain); ENOMEM.
 */
ZEL_EXPORT int zel_event_create(zel_event_t** event, int domain, int code,
                                const zel_event_payload_t* payload,
                                zel_event_completion_t completion);

/**
 * Frees an event that was never pushed. NULL, and an event that belongs to a channel, are left
 * alone.
 */
ZEL_EXPORT void zel_event_destroy(zel_event_t* event);

/**
 * The payload of an event; valid as long as the event. NULL where it was made without one, which is
 * so for every event of a service; and for NULL, with EINVAL.
 */
ZEL_EXPORT const zel_event_payload_t* zel_event_get_payload(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
