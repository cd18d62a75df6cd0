// SPDX-License-Identifier: Apache-2.0
#include "services/notification/ChoiceSearch.h"

#include "common/Failure.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

using Text = std::optional<std::string>;

Notification withChoices(const std::vector<NotificationChoice>& choices)
{
    Notification notification;
    notification.id = "{n}";
    notification.choices = choices;
    return notification;
}

const Notification offer =
    withChoices({{"{c1}", "Yes", {}}, {"{c2}", "No", {}}, {"{c11}", "Yes", {}}});

std::string failureOf(const Notification& notification, const Text& label, const Text& choiceId)
{
    try {
        return "found " + std::to_string(findChoice(notification, label, choiceId));
    } catch (const Failure& failure) {
        return failure.what();
    }
}

TEST(ChoiceSearchTest, LabelIsEnoughWhereItIsTheOnlyOne)
{
    EXPECT_EQ(findChoice(offer, "No", {}), 1U);
    EXPECT_EQ(failureOf(offer, "Yes", {}), "{n} has 2 choices 'Yes'; name one with --choice-id: "
                                           "{c1} 'Yes', {c11} 'Yes'");
}

TEST(ChoiceSearchTest, IdTellsChoicesOfOneLabelApart)
{
    EXPECT_EQ(findChoice(offer, "Yes", "{c11}"), 2U);
    EXPECT_EQ(findChoice(offer, {}, "c11"), 2U);
    EXPECT_EQ(findChoice(offer, {}, "{c1}"), 0U);
    EXPECT_THAT(failureOf(offer, {}, "c1"), HasSubstr("has 2 choices of the id 'c1'; name one"));
}

TEST(ChoiceSearchTest, UnknownOnesAreAnsweredWithThoseThatThereAre)
{
    EXPECT_EQ(failureOf(offer, "yes", {}),
              "{n} has no choice 'yes'; there are: 'Yes', 'No', 'Yes'");
    EXPECT_EQ(failureOf(offer, "No", "{c1}"),
              "{n} has no choice 'No' of the id '{c1}'; there are: 'Yes', 'No', 'Yes'");
    EXPECT_EQ(failureOf(withChoices({}), "Yes", {}),
              "{n} offers no choices; acknowledge it instead");
}

} // namespace
