// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_SUPERVISEDSERVICE_H
#define TAMOBOX_SUPERVISEDSERVICE_H

#include "HelperProcess.h"

#include <deque>
#include <memory>
#include <string>

namespace tamobox {

/** One service of the box, started again whenever it ends, within reason. */
class SupervisedService
{
public:
    using NoteHandler = std::function<void(const std::string& text)>;

    /**
     * Starts the service.
     *
     * @param loop must outlive the object
     * @param program the helper program's name
     * @param note called with what people should know of it
     */
    SupervisedService(EventLoop& loop, const std::string& program, NoteHandler note);

    const std::string& name() const { return m_name; }

    /** -1 while it does not run. */
    pid_t pid() const { return m_process ? m_process->pid() : -1; }

    bool isReady() const { return m_process && m_process->isReady(); }

    /** What it complained of last; empty where it did not. */
    const std::string& lastLine() const { return m_lastLine; }

    /** To be called when waitpid() has reported the end of pid(). Starts it again where `/pps` is
     * there. */
    void ended(int waitResult, bool ppsIsThere);

    /** Hands on what it has complained of until now; it is not listened to any longer. */
    void readRest();

private:
    void start();
    bool mayStartAgain();

    EventLoop& m_loop;
    std::string m_name;
    std::string m_path;
    NoteHandler m_note;
    std::unique_ptr<HelperProcess> m_process;
    std::deque<EventLoop::Clock::time_point> m_ends; // the latest ones
    bool m_wasReady = false;
    std::string m_lastLine;
};

} // namespace tamobox

#endif
