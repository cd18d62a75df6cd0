// SPDX-License-Identifier: Apache-2.0
// What docs/platform-objects.md says of the host's functions, against the host.
#include "HostFunction.h"

#include <zel/audiodevice.h>
#include <zel/audiomixer.h>
#include <zel/clock.h>
#include <zel/dialog.h>
#include <zel/geolocation.h>
#include <zel/led.h>
#include <zel/locale.h>
#include <zel/mmrenderer.h>
#include <zel/navigator.h>
#include <zel/netstatus.h>
#include <zel/orientation.h>
#include <zel/paymentservice.h>
#include <zel/screen.h>
#include <zel/sensor.h>
#include <zel/virtualkeyboard.h>

#include <gmock/gmock.h>

#include <cerrno>
#include <set>
#include <string>
#include <vector>

namespace {

class HostOffers : public testing::TestWithParam<HostFunction>
{
};

TEST_P(HostOffers, WhatTheDocumentSays)
{
    errno = 0;
    const bool isNone = GetParam().call();
    const int error = errno;
    if (GetParam().works) {
        EXPECT_NE(error, ENOTSUP);
    } else {
        EXPECT_EQ(error, ENOTSUP);
        EXPECT_TRUE(isNone) << "it does not return what its header says";
    }
}

INSTANTIATE_TEST_SUITE_P(Every, HostOffers, testing::ValuesIn(hostFunctions()),
                         [](const auto& function) { return std::string(function.param.name); });

TEST(HostOffers, EveryServiceHasADomainOfItsOwnThatEventsCanBeMadeOf)
{
    const std::vector<int (*)()> domainFunctions = {
#include "providerDomains.inc"
    };
    ASSERT_EQ(domainFunctions.size(), 15u);
    std::set<int> domains;
    for (int (*const getDomain)() : domainFunctions) {
        errno = 0;
        const int domain = getDomain();
        EXPECT_EQ(errno, 0);
        EXPECT_EQ(getDomain(), domain);
        EXPECT_TRUE(domains.insert(domain).second) << domain << " is another one's";
        zel_event_t* event = nullptr;
        ASSERT_EQ(zel_event_create(&event, domain, 1, nullptr, nullptr), 0) << domain;
        EXPECT_EQ(zel_event_get_domain(event), domain);
        zel_event_destroy(event);
    }
}

/** A pointer that is not to be freed, and is to be overwritten. */
template<typename Record>
Record* leftover()
{
    static int something;
    return reinterpret_cast<Record*>(&something);
}

TEST(HostOffers, RecordsThatAreNotGivenAreNull)
{
    auto* device = leftover<audiodevice_details_t>();
    EXPECT_EQ(audiodevice_get_details("any", &device), -1);
    EXPECT_EQ(device, nullptr);

    auto* info = leftover<sensor_info_t>();
    EXPECT_EQ(sensor_info(SENSOR_TYPE_LIGHT, &info), -1);
    EXPECT_EQ(info, nullptr);
}

} // namespace
