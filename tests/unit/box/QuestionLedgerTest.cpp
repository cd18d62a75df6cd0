// SPDX-License-Identifier: Apache-2.0
#include "services/navigator/QuestionLedger.h"

#include <gtest/gtest.h>

using namespace tamobox;

namespace {

using Kind = QuestionLedger::Kind;
using Verdict = QuestionLedger::Verdict;

constexpr pid_t asked = 5;
constexpr pid_t other = 6;

TEST(QuestionLedgerTest, FirstAnswerOfWhoWasAskedIsGood)
{
    QuestionLedger ledger("9-");
    const std::string id = ledger.ask(Kind::Check, asked);
    EXPECT_EQ(id, "9-1");
    EXPECT_EQ(ledger.answer(id, Kind::Check, asked), Verdict::Answers);
    EXPECT_EQ(ledger.answer(id, Kind::Check, asked), Verdict::Twice);
}

TEST(QuestionLedgerTest, EachQuestionHasAnIdOfItsOwn)
{
    QuestionLedger ledger("");
    EXPECT_NE(ledger.ask(Kind::Check, asked), ledger.ask(Kind::Check, asked));
}

TEST(QuestionLedgerTest, WrongAnswersLeaveTheQuestionOpen)
{
    QuestionLedger ledger("9-");
    const std::string id = ledger.ask(Kind::Orientation, asked);
    EXPECT_EQ(ledger.answer("9-2", Kind::Orientation, asked), Verdict::NeverAsked);
    EXPECT_EQ(ledger.answer("", Kind::Orientation, asked), Verdict::NeverAsked);
    EXPECT_EQ(ledger.answer(id, Kind::Orientation, other), Verdict::NotItsOwn);
    EXPECT_EQ(ledger.answer(id, Kind::Check, asked), Verdict::AnotherKind);
    EXPECT_EQ(ledger.answer(id, Kind::Orientation, asked), Verdict::Answers);
}

TEST(QuestionLedgerTest, AnswerAfterTheClosingIsLateThenTwice)
{
    QuestionLedger ledger("9-");
    const std::string id = ledger.ask(Kind::Check, asked);
    ledger.close(id);
    ledger.close("unknown");
    EXPECT_EQ(ledger.answer(id, Kind::Check, asked), Verdict::Late);
    EXPECT_EQ(ledger.answer(id, Kind::Check, asked), Verdict::Twice);
}

TEST(QuestionLedgerTest, OldQuestionsAreForgotten)
{
    QuestionLedger ledger("9-");
    const std::string first = ledger.ask(Kind::Check, asked);
    for (int i = 0; i < 255; ++i)
        ledger.close(ledger.ask(Kind::Check, asked));
    EXPECT_EQ(ledger.answer(first, Kind::Check, asked), Verdict::Answers);
    ledger.ask(Kind::Check, asked);
    EXPECT_EQ(ledger.answer(first, Kind::Check, asked), Verdict::NeverAsked);
}

} // namespace
