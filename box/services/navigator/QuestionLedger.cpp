// SPDX-License-Identifier: Apache-2.0
#include "QuestionLedger.h"

namespace tamobox {

namespace {

constexpr std::size_t mostRemembered = 256;

} // namespace

std::string QuestionLedger::ask(Kind kind, pid_t process)
{
    const std::string id = m_prefix + std::to_string(++m_count);
    m_questions.push_back({id, kind, process, Fate::Open});
    if (m_questions.size() > mostRemembered)
        m_questions.pop_front();
    return id;
}

void QuestionLedger::close(const std::string& id)
{
    Question* const question = find(id);
    if (question != nullptr && question->fate == Fate::Open)
        question->fate = Fate::Closed;
}

QuestionLedger::Verdict QuestionLedger::answer(const std::string& id, Kind kind, pid_t process)
{
    Question* const question = find(id);
    if (question == nullptr)
        return Verdict::NeverAsked;
    if (question->process != process)
        return Verdict::NotItsOwn;
    if (question->kind != kind)
        return Verdict::AnotherKind;
    if (question->fate == Fate::Answered)
        return Verdict::Twice;
    const bool isOpen = question->fate == Fate::Open;
    question->fate = Fate::Answered;
    return isOpen ? Verdict::Answers : Verdict::Late;
}

QuestionLedger::Question* QuestionLedger::find(const std::string& id)
{
    for (Question& question : m_questions)
        if (question.id == id)
            return &question;
    return nullptr;
}

const char* textForVerdict(QuestionLedger::Verdict verdict)
{
    switch (verdict) {
    case QuestionLedger::Verdict::Answers:
        break;
    case QuestionLedger::Verdict::Late:
        return "came too late";
    case QuestionLedger::Verdict::Twice:
        return "came twice";
    case QuestionLedger::Verdict::NotItsOwn:
        return "is to what another process was asked";
    case QuestionLedger::Verdict::AnotherKind:
        return "is to a question of another kind";
    case QuestionLedger::Verdict::NeverAsked:
        return "is to what was never asked";
    }
    return "is good";
}

} // namespace tamobox
