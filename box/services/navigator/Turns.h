// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_TURNS_H
#define TAMOBOX_TURNS_H

#include "ApplicationTable.h"
#include "DisplayClient.h"
#include "EventPost.h"
#include "QuestionLedger.h"
#include "Turn.h"
#include "services/Complaints.h"
#include "services/PendingCommands.h"

#include "common/Timer.h"

#include <deque>
#include <optional>

namespace tamobox {

/**
 * Carries out turns of the display, one at a time: those that a command plays, and those that an
 * application wishes, which wait in a queue.
 */
class Turns
{
public:
    /** What it works with; all of it must outlive the object. */
    struct Surroundings
    {
        ApplicationTable& applications;
        EventPost& post;
        PendingCommands& commands;
        Complaints& complaints;
        std::function<void()> publish; ///< called when an application has changed
    };

    Turns(EventLoop& loop, Surroundings surroundings);

    bool isUnderWay() const { return m_current.has_value(); }

    /**
     * Plays a turn of the device, which the command is answered at the end of. None may be under
     * way.
     *
     * @param application that is asked; null: nobody
     * @param limit for each of its answers
     */
    void begin(const ControlRequest& request, const WindowGroup* application, int angle,
               std::chrono::milliseconds limit);

    /**
     * An application wishes to be turned, and is told the result under its id. Throws Failure where
     * it has too many wishes.
     */
    void wish(const WindowGroup& application, int angle, const std::string& id);

    /** An application answers a question. Throws Failure where nobody waits for that answer. */
    void answerCheck(pid_t process, const std::string& id, bool accepted);
    void answerOrientation(pid_t process, const std::string& id);

    /**
     * Ends the turn that an application was in when the service ended before this one: the display
     * has been turned, and nobody waits for its answer any more. Nothing where it was in none.
     */
    void endCutOffTurn(WindowGroup& application);

    /** A process has ended, or does not listen any longer. */
    void applicationGone(pid_t process);

private:
    using Clock = EventLoop::Clock;
    using Stage = Turn::Stage;

    struct Wish
    {
        pid_t process;
        int angle;
        std::string id;
    };

    struct Current
    {
        Turn turn;
        int angle;
        std::optional<ControlRequest> request; // of a command
        std::optional<std::string> wishId;     // of an application
        pid_t process = 0;                     // 0: nobody is concerned
        std::string group = {};
        std::string questionId = {};
        std::optional<Stage> followed = {};
    };

    void beginNextWish();
    void grant(const Wish& wish, WindowGroup& application);
    void follow();
    void enterStage(Stage stage);
    void ask(QuestionLedger::Kind kind, EventCode code);
    bool judge(QuestionLedger::Kind kind, pid_t process, const std::string& id);
    void finish();
    void setTurning(int angle);
    void tellEnd(const Current& ended, WindowGroup& application);
    void answerCommand(const Current& ended);
    void tell(const WindowGroup& application, const NavigatorEvent& event);

    Surroundings m_surroundings;
    QuestionLedger m_questions;
    std::deque<Wish> m_wishes;
    std::optional<Current> m_current;
    DisplayClient m_display;
    Timer m_timer;
};

} // namespace tamobox

#endif
