/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The PPS encoder: builds the text of a PPS message, attribute by attribute.
 *
 * In text mode a message is one line per attribute, `name:marker:value`:
 *
 * | value            | marker | written as                                            |
 * |------------------|--------|-------------------------------------------------------|
 * | string           |        | UTF-8; line feed `\n`, carriage return `\r`, backslash `\\` |
 * | number           | `n`    | decimal, no more digits than it takes to read back the same value |
 * | boolean          | `b`    | `true` or `false`                                     |
 * | object, array, null | `json` | JSON (RFC 8259)                                    |
 *
 * In raw mode the members are written as one JSON object (RFC 8259), with no lines and no markers.
 *
 * Conventions of every function here: it returns 0, or -1 with `errno` set, and a call that fails
 * adds nothing. `name` is zero-terminated UTF-8; it is NULL for an element of an array and only
 * there. At the top level of text mode a name must not be empty, begin with `@`, `-` or `+@`, or
 * hold a colon, a line feed or a carriage return. The strings that are passed in stay the caller's
 * and are copied. An encoder is used by one thread at a time; different encoders are independent.
 *
 * `errno` values: EINVAL (a name, a string or a number that the text cannot carry, or a call that
 * does not fit where the encoder stands), EOVERFLOW (nested deeper than PPS_MAX_DEPTH), ENOMEM.
 */
#ifndef PPS_ENCODER_H
#define PPS_ENCODER_H

#include <pps/export.h>

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * An encoder. The members are private; the structure lives wherever the caller puts it, and stays
 * there while it is in use: it must not be copied.
 */
typedef struct pps_encoder
{
    char* data;
    size_t length;
    size_t capacity;
    uint32_t depth;
    bool raw;
    uint8_t containers[PPS_MAX_DEPTH / 8];
    char inline_data[512];
} pps_encoder_t;

/**
 * Makes an empty encoder. Call pps_encoder_cleanup() when done with it. Never fails.
 *
 * @param raw false: text mode; true: raw mode
 */
PPS_EXPORT void pps_encoder_initialize(pps_encoder_t* encoder, bool raw);

/** Frees what the encoder holds. Its buffer is gone; the encoder may be initialised again. */
PPS_EXPORT void pps_encoder_cleanup(pps_encoder_t* encoder);

/** Empties the encoder, which keeps its mode and its memory. */
PPS_EXPORT void pps_encoder_reset(pps_encoder_t* encoder);

/**
 * The text built so far, zero-terminated. It belongs to the encoder and is valid until the next
 * call that changes the encoder.
 *
 * @return the text, or NULL with `errno` EINVAL while an object or array is open
 */
PPS_EXPORT const char* pps_encoder_buffer(pps_encoder_t* encoder);

/** The length of that text in bytes, without the terminating zero; 0 where there is no buffer. */
PPS_EXPORT size_t pps_encoder_length(pps_encoder_t* encoder);

/** Adds a null. */
PPS_EXPORT int pps_encoder_add_null(pps_encoder_t* encoder, const char* name);

/** Adds a boolean. */
PPS_EXPORT int pps_encoder_add_bool(pps_encoder_t* encoder, const char* name, bool value);

/** Adds an integer. */
PPS_EXPORT int pps_encoder_add_int(pps_encoder_t* encoder, const char* name, int value);

/** Adds a 64-bit integer. A reader that takes it as a double keeps 53 bits of it. */
PPS_EXPORT int pps_encoder_add_int64(pps_encoder_t* encoder, const char* name, int64_t value);

/** Adds a number. EINVAL for NaN and the infinities, which the text cannot carry. */
PPS_EXPORT int pps_encoder_add_double(pps_encoder_t* encoder, const char* name, double value);

/**
 * Adds a string: zero-terminated UTF-8. EINVAL where it is NULL or not valid UTF-8 (surrogates and
 * overlong forms are not).
 */
PPS_EXPORT int pps_encoder_add_string(pps_encoder_t* encoder, const char* name, const char* value);

/** Opens an object; what is added next is a member of it, up to pps_encoder_end_object(). */
PPS_EXPORT int pps_encoder_start_object(pps_encoder_t* encoder, const char* name);

/** Closes the innermost open container, which must be an object. */
PPS_EXPORT int pps_encoder_end_object(pps_encoder_t* encoder);

/** Opens an array; what is added next is an element of it, up to pps_encoder_end_array(). */
PPS_EXPORT int pps_encoder_start_array(pps_encoder_t* encoder, const char* name);

/** Closes the innermost open container, which must be an array. */
PPS_EXPORT int pps_encoder_end_array(pps_encoder_t* encoder);

/** Adds the line that deletes an attribute of the object it is written to. Text mode, top level. */
PPS_EXPORT int pps_encoder_delete_attribute(pps_encoder_t* encoder, const char* name);

/**
 * Adds an object-name line; the attributes that follow belong to that object. Text mode, top level.
 *
 * @param name the object's name, with its at sign (`@control.7`) and without a line end
 */
PPS_EXPORT int pps_encoder_add_object_name(pps_encoder_t* encoder, const char* name);

#ifdef __cplusplus
}
#endif

#endif
