// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_FUSEAPI_H
#define PPSFS_FUSEAPI_H

/** The FUSE library's interface, at the version that this code is written against. */
#define FUSE_USE_VERSION 314
#include <fuse3/fuse_lowlevel.h>

#endif
