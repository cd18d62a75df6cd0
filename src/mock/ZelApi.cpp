// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelApi.h>

#include "CurrentInstance.h"

#include "core/SubscriptionThread.h"

#include <tamomock/ZelAudioDeviceImpl.h>
#include <tamomock/ZelAudioMixerImpl.h>
#include <tamomock/ZelClockImpl.h>
#include <tamomock/ZelCoreImpl.h>
#include <tamomock/ZelDeviceInfoImpl.h>
#include <tamomock/ZelDialogImpl.h>
#include <tamomock/ZelGeolocationImpl.h>
#include <tamomock/ZelLedImpl.h>
#include <tamomock/ZelLocaleImpl.h>
#include <tamomock/ZelMmRendererImpl.h>
#include <tamomock/ZelNavigatorImpl.h>
#include <tamomock/ZelNetStatusImpl.h>
#include <tamomock/ZelOrientationImpl.h>
#include <tamomock/ZelPaymentServiceImpl.h>
#include <tamomock/ZelScreenImpl.h>
#include <tamomock/ZelSensorImpl.h>
#include <tamomock/ZelSoundPlayerImpl.h>
#include <tamomock/ZelVirtualKeyboardImpl.h>

#include <chrono>
#include <utility>

namespace tamomock {

namespace {

constexpr auto settlingLimit = std::chrono::seconds(5);

detail::CurrentInstance<ZelApi>& current()
{
    return detail::neverDestroyedInstance<ZelApi>();
}

} // namespace

ZelApi::Domains ZelApi::defaultDomains()
{
    Domains domains;
    domains.core = std::make_unique<ZelCoreImpl>();
    domains.audioDevice = std::make_unique<ZelAudioDeviceImpl>();
    domains.audioMixer = std::make_unique<ZelAudioMixerImpl>();
    domains.clock = std::make_unique<ZelClockImpl>();
    domains.deviceInfo = std::make_unique<ZelDeviceInfoImpl>();
    domains.dialog = std::make_unique<ZelDialogImpl>();
    domains.geolocation = std::make_unique<ZelGeolocationImpl>();
    domains.led = std::make_unique<ZelLedImpl>();
    domains.locale = std::make_unique<ZelLocaleImpl>();
    domains.mmRenderer = std::make_unique<ZelMmRendererImpl>();
    domains.navigator = std::make_unique<ZelNavigatorImpl>();
    domains.netStatus = std::make_unique<ZelNetStatusImpl>();
    domains.orientation = std::make_unique<ZelOrientationImpl>();
    domains.paymentService = std::make_unique<ZelPaymentServiceImpl>();
    domains.screen = std::make_unique<ZelScreenImpl>();
    domains.sensor = std::make_unique<ZelSensorImpl>();
    domains.soundPlayer = std::make_unique<ZelSoundPlayerImpl>();
    domains.virtualKeyboard = std::make_unique<ZelVirtualKeyboardImpl>();
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
    // Its owner is about to delete it, and a subscription that has just lost its last connection
    // may be ending still.
    if (current().clear(instance))
        tamo::SubscriptionThread::instance().settle(settlingLimit);
}

ZelApi::ZelApi(Domains domains) : m_domains(std::move(domains)) {}

ZelApi::~ZelApi() = default;

ZelCore* ZelApi::core() const
{
    return m_domains.core.get();
}

ZelAudioDevice* ZelApi::audioDevice() const
{
    return m_domains.audioDevice.get();
}

ZelAudioMixer* ZelApi::audioMixer() const
{
    return m_domains.audioMixer.get();
}

ZelClock* ZelApi::clock() const
{
    return m_domains.clock.get();
}

ZelDeviceInfo* ZelApi::deviceInfo() const
{
    return m_domains.deviceInfo.get();
}

ZelDialog* ZelApi::dialog() const
{
    return m_domains.dialog.get();
}

ZelGeolocation* ZelApi::geolocation() const
{
    return m_domains.geolocation.get();
}

ZelLed* ZelApi::led() const
{
    return m_domains.led.get();
}

ZelLocale* ZelApi::locale() const
{
    return m_domains.locale.get();
}

ZelMmRenderer* ZelApi::mmRenderer() const
{
    return m_domains.mmRenderer.get();
}

ZelNavigator* ZelApi::navigator() const
{
    return m_domains.navigator.get();
}

ZelNetStatus* ZelApi::netStatus() const
{
    return m_domains.netStatus.get();
}

ZelOrientation* ZelApi::orientation() const
{
    return m_domains.orientation.get();
}

ZelPaymentService* ZelApi::paymentService() const
{
    return m_domains.paymentService.get();
}

ZelScreen* ZelApi::screen() const
{
    return m_domains.screen.get();
}

ZelSensor* ZelApi::sensor() const
{
    return m_domains.sensor.get();
}

ZelSoundPlayer* ZelApi::soundPlayer() const
{
    return m_domains.soundPlayer.get();
}

ZelVirtualKeyboard* ZelApi::virtualKeyboard() const
{
    return m_domains.virtualKeyboard.get();
}

} // namespace tamomock
