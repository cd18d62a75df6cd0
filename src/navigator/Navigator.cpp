// SPDX-License-Identifier: Apache-2.0
#include <tamo/Navigator.h>

#include "NavigatorImpl.h"

#include <mutex>

namespace tamo {

Navigator::Navigator() = default;

Navigator::~Navigator() = default;

Navigator* Navigator::getInstance()
{
    static std::mutex mutex;
    static Navigator* instance = nullptr;
    const std::lock_guard lock(mutex);
    if (!instance)
        instance = new NavigatorImpl;
    return instance;
}

} // namespace tamo
