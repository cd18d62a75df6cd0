// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_QUESTIONLEDGER_H
#define TAMOBOX_QUESTIONLEDGER_H

#include <sys/types.h>

#include <deque>
#include <string>

namespace tamobox {

/**
 * The questions that applications were asked, and what an answer is worth. It remembers the latest
 * 256 of them, so that it can say what was wrong with an answer.
 */
class QuestionLedger
{
public:
    enum class Kind { Check, Orientation };

    enum class Verdict {
        Answers,     ///< it is the answer that is waited for
        Late,        ///< nobody waits for it any longer
        Twice,       ///< the question has been answered
        NotItsOwn,   ///< another process was asked
        AnotherKind, ///< the question was not of this kind
        NeverAsked   ///< there is no such question, or none that is remembered
    };

    /** @param prefix of every id; no two ledgers that the same applications meet share one */
    explicit QuestionLedger(std::string prefix) : m_prefix(std::move(prefix)) {}

    /** Notes that a process is asked; returns the question's id. */
    std::string ask(Kind kind, pid_t process);

    /** Nobody waits for the answer any longer. */
    void close(const std::string& id);

    /** Judges an answer; the first good one closes the question. */
    Verdict answer(const std::string& id, Kind kind, pid_t process);

private:
    enum class Fate { Open, Answered, Closed };

    struct Question
    {
        std::string id;
        Kind kind;
        pid_t process;
        Fate fate;
    };

    Question* find(const std::string& id);

    std::string m_prefix;
    int m_count = 0;
    std::deque<Question> m_questions;
};

/** What is wrong with an answer, as the end of a sentence. */
const char* textForVerdict(QuestionLedger::Verdict verdict);

} // namespace tamobox

#endif
