// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_OSVERSION_H
#define TAMO_PLATFORM_OSVERSION_H

#include <tamo/export.h>

#include <QtCore/QString>

namespace tamo::platform {

/**
 * The version of the phone's operating system as the phone tells it: four numbers with dots
 * between, or empty where it does not say; "0.0.0.0" where it cannot be asked. It is asked for anew
 * by each call. May be called from any thread.
 *
 * @since 0.1
 */
TAMO_EXPORT QString osVersion();

} // namespace tamo::platform

#endif
