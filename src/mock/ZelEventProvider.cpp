// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelEventProvider.h>

namespace tamomock {

ZelEventProvider::~ZelEventProvider() = default;

int ZelEventProvider::stopEvents(int /*flags*/)
{
    return 0;
}

} // namespace tamomock
