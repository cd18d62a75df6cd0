// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LAUNCHER_H
#define TAMOBOX_LAUNCHER_H

#include "common/Descriptor.h"
#include "common/EventLoop.h"
#include "common/SignalQueue.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/** What a box is to be like. */
struct LaunchOptions
{
    std::string boxName;              ///< empty for the first free default name
    std::vector<std::string> command; ///< the application and its arguments; not empty
    bool isKept = false;              ///< whether its state is there in the next box of the name
    std::string catalogue;            ///< a catalogue's text, checked; empty: the box's own
    std::vector<std::string> leftOut; ///< services that are not started
};

/**
 * Runs one application in a box and stays until nothing of the box is left: relays signals to it,
 * and what it has to say to standard error. Used once in a process, which must not have threads.
 */
class Launcher
{
public:
    /** Called when the application runs, with the box's name and the process id in the box. */
    using ReadyHandler = std::function<void(const std::string& boxName, int pid)>;

    Launcher(LaunchOptions options, ReadyHandler onReady);

    /**
     * @return the application's exit status, see status
     * @throws Failure where it could not be run, with the status that says why
     */
    int run();

private:
    void start();
    [[noreturn]] static void becomeBox(const std::vector<std::string>& command,
                                       int complaintWriter);
    void readControl();
    void readSignals();
    void readComplaint();
    void reapChildren();

    LaunchOptions m_options;
    ReadyHandler m_onReady;
    std::vector<int> m_callersDescriptors; // open already when the command was called
    SignalQueue m_signals;
    EventLoop m_loop;
    Descriptor m_control;         // to tamo-box-init
    Descriptor m_complaintReader; // what bwrap writes to standard error
    std::string m_complaint;
    bool m_nothingLeft = false;
    std::optional<int> m_exitStatus;
    std::optional<std::string> m_failure;
};

} // namespace tamobox

#endif
