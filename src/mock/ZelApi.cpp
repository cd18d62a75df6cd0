// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelApi.h>

#include "CurrentInstance.h"

#include <tamomock/ZelCoreImpl.h>
#include <tamomock/ZelDeviceInfoImpl.h>
#include <tamomock/ZelNavigatorImpl.h>
#include <tamomock/ZelScreenImpl.h>

#include <utility>

namespace tamomock {

namespace {

detail::CurrentInstance<ZelApi>& current()
{
    return detail::neverDestroyedInstance<ZelApi>();
}

} // namespace

ZelApi::Domains ZelApi::defaultDomains()
{
    Domains domains;
    domains.core = std::make_unique<ZelCoreImpl>();
    domains.deviceInfo = std::make_unique<ZelDeviceInfoImpl>();
    domains.navigator = std::make_unique<ZelNavigatorImpl>();
    domains.screen = std::make_unique<ZelScreenImpl>();
    return domains;
}

ZelApi* ZelApi::instance()
{
    return current().get([] { return std::make_unique<ZelApi>(defaultDomains()); });
}

void ZelApi::setInstance(ZelApi* instance)
{
    current().set(instance, "ZelApi::setInstance: instance already exists");
}

void ZelApi::clearInstance(ZelApi* instance)
{
    current().clear(instance);
}

ZelApi::ZelApi(Domains domains) : m_domains(std::move(domains)) {}

ZelApi::~ZelApi() = default;

ZelCore* ZelApi::core() const
{
    return m_domains.core.get();
}

ZelDeviceInfo* ZelApi::deviceInfo() const
{
    return m_domains.deviceInfo.get();
}

ZelNavigator* ZelApi::navigator() const
{
    return m_domains.navigator.get();
}

ZelScreen* ZelApi::screen() const
{
    return m_domains.screen.get();
}

} // namespace tamomock
