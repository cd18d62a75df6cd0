// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ScreenApi.h>

#include "CurrentInstance.h"

#include <tamomock/ScreenApiImpl.h>

#include <memory>

namespace tamomock {

namespace {

detail::CurrentInstance<ScreenApi>& current()
{
    return detail::neverDestroyedInstance<ScreenApi>();
}

} // namespace

ScreenApi* ScreenApi::instance()
{
    return current().get([] { return std::make_unique<ScreenApiImpl>(); });
}

void ScreenApi::setInstance(ScreenApi* instance)
{
    current().set(instance, "ScreenApi::setInstance: instance already exists");
}

void ScreenApi::clearInstance(ScreenApi* instance)
{
    current().clear(instance);
}

ScreenApi::~ScreenApi() = default;

} // namespace tamomock
