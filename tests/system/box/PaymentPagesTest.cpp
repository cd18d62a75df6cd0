// SPDX-License-Identifier: Apache-2.0
#include "PaymentTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

/** Tests of what outlives the payment service on more than one object. */
class PaymentPagesTest : public PaymentTest
{
protected:
    /** The length of a full object. */
    static constexpr std::size_t full = 1'044'480;

    static std::string page(int number) { return "box/purchases/" + std::to_string(number); }

    std::string textOf(const Box& box, const std::string& object) const
    {
        return in(box, {"exec", "--", "cat", "/pps/" + object}).output;
    }

    void set(const Box& box, const std::string& object, const std::string& attributes) const
    {
        EXPECT_THAT(in(box, {"pps", "set", object, "-"}, attributes), succeeds());
    }

    /** Leaves no room on an object, by an attribute that is no record. */
    void fill(const Box& box, const std::string& object) const
    {
        const std::size_t size = textOf(box, object).size() + std::string("pad::\n").size();
        set(box, object, "pad::" + std::string(full - size, 'x') + '\n');
    }

    /** Ends fill(). */
    void makeRoom(const Box& box, const std::string& object) const { set(box, object, "-pad\n"); }

    /** Which of the first objects hold the record of a number. */
    std::string pagesOf(const Box& box, int number) const
    {
        std::string pages;
        for (int i = 0; i < 3; ++i)
            if (textOf(box, page(i)).find('\n' + std::to_string(number) + "::") !=
                std::string::npos)
                pages += std::to_string(i);
        return pages;
    }

    /** The line of a record. */
    std::string recordOf(const Box& box, int onPage, int number) const
    {
        const std::string text = textOf(box, page(onPage));
        const std::size_t begin = text.find('\n' + std::to_string(number) + "::") + 1;
        return text.substr(begin, text.find('\n', begin) + 1 - begin);
    }

    void restart(const Box& box) const
    {
        const pid_t killed = box.signal("payment-service", SIGKILL);
        EXPECT_TRUE(waitUntil([&] {
            const pid_t now = box.find("payment-service");
            return now != -1 && now != killed;
        }));
        EXPECT_EQ(in(box, {"payment", "list", "--json"}).status, 0);
    }

    /** Buys a subscription for an application; returns its number. */
    int subscribe(const Box& box, const std::string& application) const
    {
        const std::string answer =
            answerTo(box, purchase("1", "approved-subscription", application));
        const std::string name = "\"purchase-";
        const std::size_t begin = answer.find(name);
        EXPECT_NE(begin, std::string::npos) << answer;
        return std::stoi(answer.substr(begin + name.size()));
    }

    void cancel(const Box& box, const std::string& application, int number) const
    {
        EXPECT_THAT(
            answerTo(box, cancellation("1", "purchase-" + std::to_string(number), application)),
            HasSubstr("cancelSubscriptionSuccess"));
    }

    std::string listOf(const Box& box, const std::string& application) const
    {
        return answerTo(box, existing("1", application));
    }
};

constexpr const char* canceled = R"("itemState":"3")";

TEST_P(PaymentPagesTest, WhatHasNoRoomGoesToTheNextPage)
{
    const Box box = startIdle();
    const int first = subscribe(box, "app.1");
    fill(box, page(0));
    const int second = subscribe(box, "app.2");
    EXPECT_EQ(pagesOf(box, first), "0");
    EXPECT_EQ(pagesOf(box, second), "1");
    restart(box);
    EXPECT_THAT(listOf(box, "app.1"), HasSubstr("\"purchase-" + std::to_string(first) + '"'));
    EXPECT_THAT(listOf(box, "app.2"), HasSubstr("\"purchase-" + std::to_string(second) + '"'));
    EXPECT_EQ(occurrences(purchasesAsJson(box), "\"number\""), 2);
}

TEST_P(PaymentPagesTest, WhatChangesOnAFullPageMoves)
{
    const Box box = startIdle();
    const int number = subscribe(box, "app.1");
    fill(box, page(0));
    cancel(box, "app.1", number);
    EXPECT_EQ(pagesOf(box, number), "1");
    EXPECT_THAT(listOf(box, "app.1"), HasSubstr(canceled));
    restart(box);
    EXPECT_THAT(listOf(box, "app.1"), HasSubstr(canceled));
    EXPECT_EQ(occurrences(purchasesAsJson(box), "\"number\""), 1);
}

TEST_P(PaymentPagesTest, OfTwoPagesTheOneThatItWasMovingToCounts)
{
    const Box box = startIdle();
    const int number = subscribe(box, "app.1");
    const std::string before = recordOf(box, 0, number);
    fill(box, page(0));
    cancel(box, "app.1", number);
    makeRoom(box, page(0));
    set(box, page(0), before); // as where the service was killed between its two steps
    EXPECT_EQ(pagesOf(box, number), "01");
    restart(box);
    EXPECT_THAT(listOf(box, "app.1"), HasSubstr(canceled));
    EXPECT_EQ(pagesOf(box, number), "1");
}

TEST_P(PaymentPagesTest, AnEmptiedPageIsUsedAgain)
{
    const Box box = startIdle();
    const int first = subscribe(box, "app.1");
    fill(box, page(0));
    cancel(box, "app.1", first); // which leaves the first page empty
    makeRoom(box, page(0));
    const int second = subscribe(box, "app.2");
    EXPECT_EQ(pagesOf(box, second), "1");
    const std::string before = recordOf(box, 1, second);
    fill(box, page(1));
    cancel(box, "app.2", second);
    EXPECT_EQ(pagesOf(box, second), "0");
    makeRoom(box, page(1));
    set(box, page(1), before); // as where the service was killed between its two steps
    restart(box);
    EXPECT_THAT(listOf(box, "app.1"), HasSubstr(canceled));
    EXPECT_THAT(listOf(box, "app.2"), HasSubstr(canceled));
    EXPECT_EQ(pagesOf(box, first), "1");
    EXPECT_EQ(pagesOf(box, second), "0");
}

BOX_TEST_USERS(PaymentPagesTest);

} // namespace
