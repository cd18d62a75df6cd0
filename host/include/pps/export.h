/* SPDX-License-Identifier: Apache-2.0 */
#ifndef PPS_EXPORT_H
#define PPS_EXPORT_H

/** Marks a function of libpps as callable from outside. */
#define PPS_EXPORT __attribute__((visibility("default")))

/**
 * How deeply objects and arrays may nest inside one attribute. The encoder and the decoder share
 * this limit: what one accepts, the other accepts.
 */
#define PPS_MAX_DEPTH 1024

#endif
