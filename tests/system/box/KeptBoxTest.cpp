// SPDX-License-Identifier: Apache-2.0
#include "PaymentTest.h"

#include <signal.h>
#include <sys/stat.h>

#include <sstream>

using namespace boxtest;
using namespace testing;

namespace {

namespace fs = std::filesystem;

class KeptBoxTest : public PaymentTest
{
protected:
    Process::Preparation stateHome() const
    {
        return [path = directory().string()] { setenv("XDG_STATE_HOME", path.c_str(), 1); };
    }

    Box startKept(const std::string& name = {}) const
    {
        return startIdleWith({"--keep"}, name, stateHome());
    }

    fs::path stateOf(const std::string& box) const { return directory() / "tamo-box" / box; }

    static void end(Box& box)
    {
        kill(box.launcher->pid(), SIGTERM);
        EXPECT_EQ(box.launcher->wait(), 128 + SIGTERM);
    }
};

TEST_P(KeptBoxTest, WhatWasBoughtIsThereInTheNextBoxOfTheName)
{
    Box first = startKept();
    EXPECT_THAT(answerTo(first, purchase("1", "approved-subscription")), HasSubstr("purchase-1"));
    EXPECT_THAT(in(first, {"clock", "advance", "8d"}), succeeds());
    end(first);
    Box second = startKept(first.name);
    EXPECT_THAT(answerTo(second, existing("1")),
                AllOf(HasSubstr("purchase-1"), HasSubstr(R"("itemState":"2")")));
    EXPECT_THAT(in(second, {"clock"}).output, HasSubstr("(advanced by 8d)"));
    EXPECT_THAT(answerTo(second, purchase("2", "approved")), HasSubstr("purchase-"));
    second.signal("payment-service", SIGKILL);
    EXPECT_TRUE(second.launcher->complained("payment-service ended by signal 9; started again\n"));
    EXPECT_EQ(occurrences(purchasesAsJson(second), "purchaseID"), 2);
    end(second);
    const Box other = startKept();
    EXPECT_EQ(purchasesAsJson(other), "[]\n");
}

TEST_P(KeptBoxTest, AKilledBoxKeepsWhatWasAnswered)
{
    Box first = startKept();
    EXPECT_THAT(answerTo(first, purchase("1", "approved")), HasSubstr("purchase-1"));
    kill(first.launcher->pid(), SIGKILL);
    EXPECT_EQ(first.launcher->wait(), 128 + SIGKILL);
    ASSERT_TRUE(waitUntil([&] { return first.isGone(); }));
    const Box second = startKept(first.name);
    EXPECT_THAT(answerTo(second, existing("1")), HasSubstr("purchase-1"));
}

TEST_P(KeptBoxTest, TheStateIsTheUsersAlone)
{
    const Box box = startKept();
    EXPECT_THAT(answerTo(box, purchase("1", "approved")), HasSubstr("purchase-1"));
    struct stat status = {};
    ASSERT_EQ(stat(stateOf(box.name).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
    ASSERT_EQ(stat((stateOf(box.name) / "payments.json").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    EXPECT_THAT(in(box, {"exec", "--", "env"}).output, Not(HasSubstr("TAMO_BOX_STATE")));
}

TEST_P(KeptBoxTest, WithoutKeepNothingIsLeft)
{
    Box box = startIdleWith({}, {}, stateHome());
    EXPECT_THAT(answerTo(box, purchase("1", "approved")), HasSubstr("purchase-1"));
    end(box);
    EXPECT_FALSE(fs::exists(directory() / "tamo-box"));
    const Box again = startIdleWith({}, box.name, stateHome());
    EXPECT_EQ(purchasesAsJson(again), "[]\n");
}

TEST_P(KeptBoxTest, ADamagedStateIsToldOfAndKeptAside)
{
    Box first = startKept();
    EXPECT_THAT(answerTo(first, purchase("1", "approved")), HasSubstr("purchase-1"));
    end(first);
    const fs::path file = stateOf(first.name) / "payments.json";
    fs::resize_file(file, fs::file_size(file) / 2);
    const Box second = startKept(first.name);
    EXPECT_TRUE(second.launcher->complained("payments.json.damaged-1, and what was bought"));
    EXPECT_EQ(purchasesAsJson(second), "[]\n");
    EXPECT_TRUE(fs::exists(stateOf(first.name) / "payments.json.damaged-1"));
}

TEST_P(KeptBoxTest, WhatCannotBeRecordedIsNotBought)
{
    const Box box = startKept();
    fs::create_directory(stateOf(box.name) / "payments.json.new"); // in the way, also of root
    EXPECT_THAT(answerTo(box, purchase("1", "approved")),
                HasSubstr(R"({"errorID":8,"errorText":"The purchase could not be recorded."})"));
    EXPECT_TRUE(box.launcher->complained("failed: cannot create"));
    Client client = startClient(box, {purchase("2", "coins-100")});
    EXPECT_THAT(in(box, {"payment", "approve"}), failsWith(1, "cannot create"));
    fs::remove(stateOf(box.name) / "payments.json.new");
    EXPECT_THAT(in(box, {"payment", "approve"}), succeeds()); // it has waited on
    EXPECT_TRUE(client.heard("id::2 res::paymentSystemSuccess"));
}

TEST_P(KeptBoxTest, NumbersThatHaveEndedAreAnErrorAndDoNotWrap)
{
    Box first = startKept();
    EXPECT_THAT(answerTo(first, purchase("1", "approved")), HasSubstr("purchase-1"));
    end(first);
    const fs::path file = stateOf(first.name) / "payments.json";
    std::stringstream state;
    state << std::ifstream(file).rdbuf();
    std::string text = state.str();
    text.replace(text.find("\"number\":1,"), 11, "\"number\":1000000000,");
    std::ofstream(file) << text;
    const Box second = startKept(first.name);
    EXPECT_THAT(
        answerTo(second, purchase("2", "approved")),
        HasSubstr(R"({"errorID":11,"errorText":"There are no more numbers for requests."})"));
    EXPECT_EQ(occurrences(purchasesAsJson(second), "\"number\":1000000000"), 1);
    second.signal("payment-service", SIGKILL);
    EXPECT_TRUE(second.launcher->complained("payment-service ended by signal 9; started again\n"));
    EXPECT_EQ(occurrences(purchasesAsJson(second), "purchaseID"), 1);
}

TEST_P(KeptBoxTest, AnImpossiblePlaceIsRefused)
{
    const auto launch = [&](const char* stateHome) {
        Process launcher(tamoBox({"run", "--keep", "--", "true"}), GetParam(), {},
                         [stateHome] { setenv("XDG_STATE_HOME", stateHome, 1); });
        const int status = launcher.wait();
        return Result{status, launcher.output(), launcher.errors()};
    };
    EXPECT_THAT(launch("relative"), failsWith(125, "XDG_STATE_HOME must be an absolute path"));
    EXPECT_THAT(launch("/dev/null"), failsWith(125, "cannot create /dev/null"));
}

BOX_TEST_USERS(KeptBoxTest);

} // namespace
