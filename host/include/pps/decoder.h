/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The PPS decoder: walks the text of a PPS message. <pps/encoder.h> describes the text.
 *
 * A parsed message is a top-level object. Each object-name line (`@status`) is a member of it under
 * that line as it stands, at sign included, and an object of the attributes that follow; attributes
 * before the first such line are members of the top level themselves. A line `-name` is a member of
 * type PPS_TYPE_DELETED; so is `-@name` (an object has been removed, or a mailbox's client has
 * gone), under the name with its at sign, and it ends the object before it. In the text that a
 * mailbox's server reads, `+@control.7` (a client came) is an object member under the line as it
 * stands.
 *
 * The decoder stands on one element of one container. pps_decoder_goto_index() moves along the
 * container, pps_decoder_push() enters the element, pps_decoder_pop() comes back to it.
 *
 * Where a function takes a `name`, NULL means the element the decoder stands on, and a name means
 * the member of that name in the current object (the last one, where a name is repeated).
 *
 * Functions return 0, or -1 with `errno` set, and a call that fails moves nothing: ENOENT (no such
 * element), EINVAL (it is of another type; or, from the parsing functions, the text is malformed),
 * ERANGE (a number that the result cannot hold), EOVERFLOW (nested deeper than PPS_MAX_DEPTH),
 * ENOMEM. A decoder is used by one thread at a time; different decoders are independent.
 */
#ifndef PPS_DECODER_H
#define PPS_DECODER_H

#include <pps/export.h>

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** What an element is. */
typedef enum pps_type {
    PPS_TYPE_NULL = 0,
    PPS_TYPE_BOOL = 1,
    PPS_TYPE_NUMBER = 2,
    PPS_TYPE_STRING = 3,
    PPS_TYPE_ARRAY = 4,
    PPS_TYPE_OBJECT = 5,
    PPS_TYPE_NONE = 6,    /**< there is no such element */
    PPS_TYPE_UNKNOWN = 7, /**< never reported by this decoder */
    PPS_TYPE_DELETED = 8  /**< an attribute, object or client that has gone */
} pps_type_t;

/** A decoder. The member is private; the structure lives wherever the caller puts it. */
typedef struct pps_decoder
{
    struct pps_decoder_state* state;
} pps_decoder_t;

/**
 * Makes a decoder and parses PPS text with it. Call pps_decoder_cleanup() in every case, also when
 * this fails.
 *
 * @param buffer zero-terminated text, or NULL for a decoder without text. It is parsed in place:
 * the bytes are changed, and the strings that the decoder hands out lie in it. It stays the
 *        caller's and must outlive the decoder's use.
 */
PPS_EXPORT int pps_decoder_initialize(pps_decoder_t* decoder, char* buffer);

/**
 * Parses another PPS text with an initialised decoder; as for pps_decoder_initialize(). What was
 * parsed before is gone, and after a failure the decoder is empty. EINVAL where `text` is NULL.
 */
PPS_EXPORT int pps_decoder_parse_pps_str(pps_decoder_t* decoder, char* text);

/**
 * Parses one JSON object (what an encoder in raw mode writes), whose members are the top level;
 * otherwise as above.
 */
PPS_EXPORT int pps_decoder_parse_json_str(pps_decoder_t* decoder, char* text);

/** Frees what the decoder holds. The text stays the caller's. */
PPS_EXPORT void pps_decoder_cleanup(pps_decoder_t* decoder);

/**
 * What was wrong with the text that was last parsed, for a person to read.
 *
 * @param line where the line number is put, counted from 1; may be NULL
 * @return a static text, or NULL where nothing was wrong
 */
PPS_EXPORT const char* pps_decoder_error(const pps_decoder_t* decoder, size_t* line);

/** The number of elements in the current container. */
PPS_EXPORT int pps_decoder_length(const pps_decoder_t* decoder);

/**
 * Moves to the element at an index, counted from 0. ENOENT where there is none. Going forward costs
 * the distance, one step for the next element; going back starts over.
 */
PPS_EXPORT int pps_decoder_goto_index(pps_decoder_t* decoder, int index);

/**
 * The name of the element that the decoder stands on, zero-terminated UTF-8 in the parsed buffer.
 * NULL in an array, and where the decoder stands on nothing.
 */
PPS_EXPORT const char* pps_decoder_name(const pps_decoder_t* decoder);

/** The type of an element; PPS_TYPE_NONE where there is none. */
PPS_EXPORT pps_type_t pps_decoder_type(const pps_decoder_t* decoder, const char* name);

/** Enters an object or an array and stands on its first element. */
PPS_EXPORT int pps_decoder_push(pps_decoder_t* decoder, const char* name);

/** Leaves the current container and stands on it again. ENOENT at the top level. */
PPS_EXPORT int pps_decoder_pop(pps_decoder_t* decoder);

/** Reads a boolean. */
PPS_EXPORT int pps_decoder_get_bool(const pps_decoder_t* decoder, const char* name, bool* value);

/** Reads a number that is a whole one in the range of `int`; ERANGE otherwise. */
PPS_EXPORT int pps_decoder_get_int(const pps_decoder_t* decoder, const char* name, int* value);

/**
 * Reads a number that is a whole one in the range of `int64_t`; ERANGE otherwise. What is written
 * as an integer is read exactly, what has a fraction or an exponent is taken as the nearest double.
 */
PPS_EXPORT int pps_decoder_get_int64(const pps_decoder_t* decoder, const char* name,
                                     int64_t* value);

/** Reads a number as the nearest double. */
PPS_EXPORT int pps_decoder_get_double(const pps_decoder_t* decoder, const char* name,
                                      double* value);

/** Reads a string: zero-terminated UTF-8, unescaped, in the parsed buffer. */
PPS_EXPORT int pps_decoder_get_string(const pps_decoder_t* decoder, const char* name,
                                      const char** value);

#ifdef __cplusplus
}
#endif

#endif
