/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SCREEN_EXPORT_H
#define SCREEN_EXPORT_H

/** Marks a function of libscreen as callable from outside. */
#define SCREEN_EXPORT __attribute__((visibility("default")))

#endif
