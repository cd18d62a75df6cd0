// SPDX-License-Identifier: Apache-2.0
// Every operation of the seams' default objects, against the table of slots: a program in which
// recorders stand for the platform's functions.
#include "SeamSlot.h"
#include "implementations.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>

namespace {

class Slots : public testing::TestWithParam<SeamSlot>
{
};

TEST_P(Slots, IsWhereTheTableHasIt)
{
    EXPECT_EQ(GetParam().number, GetParam().expectedNumber);
}

TEST_P(Slots, CallsItsFunctionOnceAndNoOther)
{
    for (std::size_t round = 0; round < GetParam().rounds; ++round) {
        const Outcome outcome = GetParam().call(round);
        std::vector<PlatformRecorder::Call> expected;
        if (GetParam().function)
            expected.push_back({GetParam().function, outcome.passed});
        EXPECT_EQ(PlatformRecorder::calls(), expected) << "round " << round;
    }
}

TEST_P(Slots, ReturnsWhatItsFunctionReturnsAndLeavesErrnoAlone)
{
    for (std::size_t round = 0; round < GetParam().rounds; ++round) {
        const Outcome outcome = GetParam().call(round);
        const Word result = GetParam().function ? outcome.told : 0;
        EXPECT_EQ(outcome.returned.value_or(result), result) << "round " << round;
        EXPECT_EQ(outcome.error, GetParam().function ? outcome.toldError : 0) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, Slots, testing::ValuesIn(seamSlots()), [](const auto& slot) {
    return std::string(slot.param.className) + "_" + slot.param.operation;
});

class Classes : public testing::TestWithParam<SeamClass>
{
};

TEST_P(Classes, HasTheTablesOperationsAndNoMore)
{
    EXPECT_EQ(GetParam().slots, GetParam().expectedSlots);
}

TEST_P(Classes, IsAProviderOfEventsIfTheTableSaysSo)
{
    EXPECT_EQ(GetParam().events, GetParam().expectedEvents);
}

INSTANTIATE_TEST_SUITE_P(Table, Classes, testing::ValuesIn(seamClasses()),
                         [](const auto& seam) { return std::string(seam.param.className); });

struct AfterZelApi : tamomock::ZelApi
{
    virtual void after();
};

TEST(ZelApi, HasNoVirtualOperationBesideItsDestructor)
{
    EXPECT_EQ(slotNumber(&AfterZelApi::after), 0);
}

TEST(ZelApi, ReturnsTheDomainsThatItWasGiven)
{
    tamomock::ZelApi::Domains domains = tamomock::ZelApi::defaultDomains();
    std::vector<const void*> given;
    std::vector<const void*> returned;
#define DOMAIN(name, Class) given.push_back(domains.name.get());
#include "domains.inc"
#undef DOMAIN
    const tamomock::ZelApi api(std::move(domains));
#define DOMAIN(name, Class) returned.push_back(api.name());
#include "domains.inc"
#undef DOMAIN
    EXPECT_EQ(given.size(), 18u);
    EXPECT_THAT(given, testing::Each(testing::NotNull()));
    EXPECT_EQ(returned, given);
}

TEST(ZelApi, DeletesTheDomainsThatItWasGiven)
{
    static int deleted;
    deleted = 0;
#define DOMAIN(name, Class)                                                                        \
    struct Deleted##Class : tamomock::Class##Impl                                                  \
    {                                                                                              \
        ~Deleted##Class() override { ++deleted; }                                                  \
    };
#include "domains.inc"
#undef DOMAIN
    tamomock::ZelApi::Domains domains;
#define DOMAIN(name, Class) domains.name = std::make_unique<Deleted##Class>();
#include "domains.inc"
#undef DOMAIN
    {
        const tamomock::ZelApi api(std::move(domains));
        EXPECT_EQ(deleted, 0);
    }
    EXPECT_EQ(deleted, 18);
}

TEST(ZelApi, MayHoldNoDomains)
{
    const tamomock::ZelApi api({});
#define DOMAIN(name, Class) EXPECT_EQ(api.name(), nullptr);
#include "domains.inc"
#undef DOMAIN
}

} // namespace
