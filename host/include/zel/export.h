/* SPDX-License-Identifier: Apache-2.0 */
#ifndef ZEL_EXPORT_H
#define ZEL_EXPORT_H

/** Marks a function of libzel as callable from outside. */
#define ZEL_EXPORT __attribute__((visibility("default")))

#endif
