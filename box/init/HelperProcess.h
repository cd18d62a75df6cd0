// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_HELPERPROCESS_H
#define TAMOBOX_HELPERPROCESS_H

#include "common/Descriptor.h"
#include "common/EventLoop.h"

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace tamobox {

/**
 * A program of the box's own that runs beside the application: the filesystem, or a service. It is
 * started in a process group of its own, so that the terminal's keys do not reach it, says over an
 * inherited pipe that it is ready (`--ready-fd N`: any byte there), and what it writes to standard
 * error is handed on line by line.
 */
class HelperProcess
{
public:
    enum class Privilege {
        None, ///< no capability, whoever the user is
        Kept  ///< what the caller has
    };
    using LineHandler = std::function<void(const std::string& line)>;

    /**
     * @param loop must outlive the object
     * @param arguments the first is the program's path; `--ready-fd N` is inserted after it
     * @param onLine called for each line that it writes, and not from the constructor
     * @throws Failure where no process can be made
     */
    HelperProcess(EventLoop& loop, const std::vector<std::string>& arguments, Privilege privilege,
                  LineHandler onLine);
    ~HelperProcess();
    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;

    pid_t pid() const { return m_pid; }
    bool isReady() const { return m_ready; }
    bool hasEnded() const { return m_ended; }

    /** To be called when waitpid() has reported its end: hands on what it had still written. */
    void setEnded();

private:
    void start(const std::vector<std::string>& arguments, Privilege privilege, int readyWriter,
               int outputWriter);
    void readReady();
    void readOutput();

    EventLoop& m_loop;
    LineHandler m_onLine;
    pid_t m_pid = -1;
    bool m_ready = false;
    bool m_ended = false;
    Descriptor m_readyReader;
    Descriptor m_outputReader;
    std::string m_unfinishedLine;
};

} // namespace tamobox

#endif
