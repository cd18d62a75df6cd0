// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_BOXCOMMANDS_H
#define TAMOBOX_BOXCOMMANDS_H

#include "ApplicationTable.h"
#include "Departures.h"
#include "EventPost.h"
#include "ProcessWatch.h"
#include "Turns.h"
#include "services/PendingCommands.h"

#include "services/ControlMailbox.h"

#include <functional>
#include <map>
#include <string>

namespace tamobox {

/** Carries out the commands through which a person plays the navigator. */
class BoxCommands
{
public:
    /** What it works with; all of it must outlive the object. */
    struct Surroundings
    {
        ApplicationTable& applications;
        EventPost& post;
        Turns& turns;
        Departures& departures;
        PendingCommands& pending;
        Complaints& complaints;
    };

    explicit BoxCommands(Surroundings surroundings) : m_surroundings(surroundings) {}

    /** The commands by their names, for the mailbox that takes them. */
    std::map<std::string, ControlMailbox::Command> table();

    /** Tells others what came of a change that one application went through. */
    void tellOthers(const std::vector<AddressedEvent>& events);

private:
    using Outcome = ControlMailbox::Outcome;
    using Trial = PendingCommands::Trial;
    using Action = std::function<void(WindowGroup&)>;

    /** Which application a command means, and how long it waits for it. */
    struct Target
    {
        std::string group;
        std::chrono::milliseconds wait;
    };

    static Target targetIn(const MessageReader& arguments);
    Outcome whenItListens(const ControlRequest& request, const Target& target, Action action);
    WindowGroup* listenerFor(const Target& target, std::string& reason);
    std::string reasonFor(const Target& target, const WindowGroup* application);

    Outcome tellEach(const ControlRequest& request, MessageReader& arguments, EventCode code);
    Outcome setState(const ControlRequest& request, MessageReader& arguments, WindowState state);
    Outcome setActive(const ControlRequest& request, MessageReader& arguments, bool active);
    Outcome swipeDown(const ControlRequest& request, MessageReader& arguments);
    Outcome lowMemory(const ControlRequest& request, MessageReader& arguments);
    Outcome setLocked(const ControlRequest& request, bool locked);
    Outcome invoke(const ControlRequest& request, MessageReader& arguments);
    Outcome exit(const ControlRequest& request, MessageReader& arguments);
    Outcome rotate(const ControlRequest& request, MessageReader& arguments);
    Outcome anyEvent(const ControlRequest& request, MessageReader& arguments);

    bool tell(const WindowGroup& application, const NavigatorEvent& event, std::string& trouble);
    void tellOrFail(const WindowGroup& application, const NavigatorEvent& event,
                    const std::function<void()>& whenTold = {});
    void reportGroup(const ControlRequest& request, const WindowGroup& application);

    Surroundings m_surroundings;
};

} // namespace tamobox

#endif
