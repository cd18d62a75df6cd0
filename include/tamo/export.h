// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_EXPORT_H
#define TAMO_EXPORT_H

#include <tamo/config.h>

#include <QtCore/QtGlobal>

// One process holds one Qt. Without this line the mistake would show as a crash.
#if QT_VERSION_MAJOR != TAMO_QT_MAJOR
#error                                                                                             \
    "libtamo and the application use different major versions of Qt: build the application with the Qt that libtamo was built with (TAMO_QT_MAJOR), or libtamo with -DTAMO_QT_MAJOR=5 or =6"
#endif

/** Marks a class or function of the library as usable from outside, with its type information. */
#define TAMO_EXPORT Q_DECL_EXPORT

#endif
