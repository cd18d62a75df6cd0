// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELAPI_H
#define TAMOMOCK_ZELAPI_H

#include <tamo/export.h>
#include <tamomock/ZelAudioDevice.h>
#include <tamomock/ZelAudioMixer.h>
#include <tamomock/ZelClock.h>
#include <tamomock/ZelCore.h>
#include <tamomock/ZelDeviceInfo.h>
#include <tamomock/ZelDialog.h>
#include <tamomock/ZelGeolocation.h>
#include <tamomock/ZelLed.h>
#include <tamomock/ZelLocale.h>
#include <tamomock/ZelMmRenderer.h>
#include <tamomock/ZelNavigator.h>
#include <tamomock/ZelNetStatus.h>
#include <tamomock/ZelOrientation.h>
#include <tamomock/ZelPaymentService.h>
#include <tamomock/ZelScreen.h>
#include <tamomock/ZelSensor.h>
#include <tamomock/ZelSoundPlayer.h>
#include <tamomock/ZelVirtualKeyboard.h>

#include <memory>

namespace tamomock {

/**
 * The event library and its services, as the library calls them: one object for each.
 *
 * One ZelApi serves the whole process. Whoever calls the platform keeps the one that is current
 * when it is constructed, so a substitute is installed before the objects under test are made, and
 * cleared after they are gone.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelApi
{
public:
    /** The objects that a ZelApi holds. Any of them may be null where nothing calls it. */
    struct Domains
    {
        std::unique_ptr<ZelCore> core;
        std::unique_ptr<ZelAudioDevice> audioDevice;
        std::unique_ptr<ZelAudioMixer> audioMixer;
        std::unique_ptr<ZelClock> clock;
        std::unique_ptr<ZelDeviceInfo> deviceInfo;
        std::unique_ptr<ZelDialog> dialog;
        std::unique_ptr<ZelGeolocation> geolocation;
        std::unique_ptr<ZelLed> led;
        std::unique_ptr<ZelLocale> locale;
        std::unique_ptr<ZelMmRenderer> mmRenderer;
        std::unique_ptr<ZelNavigator> navigator;
        std::unique_ptr<ZelNetStatus> netStatus;
        std::unique_ptr<ZelOrientation> orientation;
        std::unique_ptr<ZelPaymentService> paymentService;
        std::unique_ptr<ZelScreen> screen;
        std::unique_ptr<ZelSensor> sensor;
        std::unique_ptr<ZelSoundPlayer> soundPlayer;
        std::unique_ptr<ZelVirtualKeyboard> virtualKeyboard;
    };

    /** The default objects, each of which calls the platform. A test replaces some of them. */
    static Domains defaultDomains();

    /**
     * The current object. Where there is none, one of defaultDomains() is made first, which is
     * never deleted. May be called from any thread, as setInstance() and clearInstance().
     */
    static ZelApi* instance();

    /**
     * Makes an object the current one. It stays the caller's, who takes it back with
     * clearInstance() before deleting it.
     *
     * @throws tamo::Exception where there is a current one, be it the default, which stays; a line
     *         on standard output says so
     */
    static void setInstance(ZelApi* instance);

    /**
     * Takes an object back: there is no current one afterwards. Any other is left as it is.
     *
     * It waits, five seconds at most, until subscriptions have ended whose last connection the
     * calling thread has taken away; they end a moment later than the connection, and call the
     * object as they do. Objects that are still subscribed go on using it.
     */
    static void clearInstance(ZelApi* instance);

    /** The object owns the domains. */
    explicit ZelApi(Domains domains);
    ZelApi(const ZelApi&) = delete;
    ZelApi& operator=(const ZelApi&) = delete;
    virtual ~ZelApi();

    ZelCore* core() const;
    ZelAudioDevice* audioDevice() const;
    ZelAudioMixer* audioMixer() const;
    ZelClock* clock() const;
    ZelDeviceInfo* deviceInfo() const;
    ZelDialog* dialog() const;
    ZelGeolocation* geolocation() const;
    ZelLed* led() const;
    ZelLocale* locale() const;
    ZelMmRenderer* mmRenderer() const;
    ZelNavigator* navigator() const;
    ZelNetStatus* netStatus() const;
    ZelOrientation* orientation() const;
    ZelPaymentService* paymentService() const;
    ZelScreen* screen() const;
    ZelSensor* sensor() const;
    ZelSoundPlayer* soundPlayer() const;
    ZelVirtualKeyboard* virtualKeyboard() const;

private:
    const Domains m_domains;
};

} // namespace tamomock

#endif
