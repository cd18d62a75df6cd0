// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/osVersion.h>
#include <tamomock/ZelApi.h>
#include <tamomock/ZelCoreImpl.h>

#include <iostream>
#include <memory>
#include <utility>

// An event library that can always be initialised. What else it has is the platform's.
class ReadyCore : public tamomock::ZelCoreImpl
{
public:
    int initialize() override { return 0; }
    int shutdown() override { return 0; }
};

// A device with the version that the test wants. Everything is the test's own: a new operation of
// the interface would not compile before the test has said what it does.
class DeviceOfVersion : public tamomock::ZelDeviceInfo
{
public:
    explicit DeviceOfVersion(const char* version) { m_data.os_version = version; }

    int getData(deviceinfo_data_t** data) override
    {
        *data = &m_data;
        return 0;
    }
    void freeData(deviceinfo_data_t** data) override { *data = nullptr; }
    int getIdentifyingData(deviceinfo_identifying_data_t**) override { return -1; }
    void freeIdentifyingData(deviceinfo_identifying_data_t**) override {}

private:
    deviceinfo_data_t m_data{"", "", "", ""};
};

// Installs a platform for as long as it lives.
class InstalledPlatform
{
public:
    explicit InstalledPlatform(tamomock::ZelApi::Domains domains) : m_api(std::move(domains))
    {
        tamomock::ZelApi::setInstance(&m_api);
    }
    ~InstalledPlatform() { tamomock::ZelApi::clearInstance(&m_api); }

private:
    tamomock::ZelApi m_api;
};

int main()
{
    tamomock::ZelApi::Domains domains = tamomock::ZelApi::defaultDomains();
    domains.core = std::make_unique<ReadyCore>();
    domains.deviceInfo = std::make_unique<DeviceOfVersion>("7.8.9.10");
    const InstalledPlatform platform(std::move(domains));

    const QString version = tamo::platform::osVersion();
    std::cout << "the version is " << version.toStdString() << '\n';
    return version == "7.8.9.10" ? 0 : 1;
}
