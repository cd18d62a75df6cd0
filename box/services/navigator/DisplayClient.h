// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DISPLAYCLIENT_H
#define TAMOBOX_DISPLAYCLIENT_H

#include "common/Timer.h"
#include "pps/ObjectFile.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tamobox {

/** Has the display service turn the first internal display. */
class DisplayClient
{
public:
    /** Called with nothing where the display is turned, and else with the reason. */
    using AnswerHandler = std::function<void(const std::optional<std::string>& failure)>;

    /** @param loop must outlive the object */
    DisplayClient(EventLoop& loop, AnswerHandler onAnswer);
    ~DisplayClient();
    DisplayClient(const DisplayClient&) = delete;
    DisplayClient& operator=(const DisplayClient&) = delete;

    /**
     * Asks for a rotation in degrees; replaces what was asked before. The answer never comes from
     * within this call. While the service is being started again it is asked again.
     */
    void turn(int rotation);

    /** No answer is waited for any longer. */
    void cancel();

    /** What is published of the first internal display; nothing where nothing is. */
    static std::optional<int> publishedRotation();

private:
    void send();
    void readAnswers();
    void finish(const std::optional<std::string>& failure);

    EventLoop& m_loop;
    AnswerHandler m_onAnswer;
    Timer m_timer;
    std::unique_ptr<ObjectFile> m_mailbox;
    int m_rotation = 0;
    int m_id = 0;
    bool m_waits = false;
};

} // namespace tamobox

#endif
