// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_TURN_H
#define TAMOBOX_TURN_H

#include <chrono>
#include <optional>
#include <string>

namespace tamobox {

/** What a turn is to be. */
struct TurnPlan
{
    /** Whom it concerns. */
    enum class Application {
        Nobody,
        Asked, ///< the application is asked whether it turns
        Locked ///< it keeps its angle, and is not asked
    };

    int angle = 0; ///< degrees
    Application application = Application::Nobody;
    bool isOwnWish = false;   ///< the application wants it itself, so it is not asked
    bool changesAngle = true; ///< the application is told the angle and is waited for
    std::chrono::milliseconds limit = std::chrono::seconds(2); ///< for each of its answers
    std::chrono::milliseconds displayLimit = std::chrono::seconds(2);
};

/** How a turn went. */
struct TurnReport
{
    using Milliseconds = std::chrono::duration<double, std::milli>;

    std::string check = "not asked"; ///< accepted, refused, none, locked, gone, not asked
    std::optional<Milliseconds> checkTime = {};
    std::string done = "not asked"; ///< done, none, gone, not asked
    std::optional<Milliseconds> doneTime = {};
    bool turned = false;      ///< the display was
    std::string failure = {}; ///< why it could not go on; empty where it could
};

/**
 * The turning of the display, step by step: the application is asked, the display turned, the
 * application told and waited for. It says what is to be done now, and is told what came of it; it
 * does nothing itself. What it is told out of turn changes nothing.
 */
class Turn
{
public:
    using Clock = std::chrono::steady_clock;

    enum class Stage {
        Check,       ///< the application has to be asked, and its answer is waited for
        Display,     ///< the display has to be turned, and its service's answer is waited for
        Orientation, ///< the application has to be told, and its done is waited for
        Finished
    };

    Turn(const TurnPlan& plan, Clock::time_point now);

    Stage stage() const { return m_stage; }
    const TurnReport& report() const { return m_report; }

    /** When timeOut() has to be called; nothing where it is finished. */
    std::optional<Clock::time_point> deadline() const;

    void answerCheck(bool accepted, Clock::time_point now);
    void answerOrientation(Clock::time_point now);
    void displayTurned(Clock::time_point now);
    void displayFailed(const std::string& reason, Clock::time_point now);

    /** The application cannot be told anything. */
    void fail(const std::string& reason, Clock::time_point now);

    /** The application has ended, or does not listen any longer. */
    void applicationGone(Clock::time_point now);

    /** Time has passed. */
    void timeOut(Clock::time_point now);

private:
    void enter(Stage stage, Clock::time_point now);
    TurnReport::Milliseconds sinceEntered(Clock::time_point now) const { return now - m_entered; }
    void finishCheck(const char* outcome, Clock::time_point now);
    void finishOrientation(const char* outcome, Clock::time_point now);

    TurnPlan m_plan;
    TurnReport m_report;
    Stage m_stage = Stage::Finished;
    Clock::time_point m_entered;
    bool m_applicationIsGone = false;
};

} // namespace tamobox

#endif
