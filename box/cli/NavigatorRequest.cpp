// SPDX-License-Identifier: Apache-2.0
#include "NavigatorRequest.h"

#include "DurationOption.h"

#include "pps/MessageWriter.h"

namespace tamobox {

void NavigatorTarget::writeTo(MessageWriter& arguments) const
{
    if (!group.empty())
        arguments.add("group", group);
    arguments.add("wait", static_cast<int>(wait.count()));
}

std::shared_ptr<NavigatorTarget> addNavigatorTarget(CLI::App& command)
{
    const auto target = std::make_shared<NavigatorTarget>();
    command
        .add_option("--group", target->group,
                    "The application that is meant (default: the one in the foreground)")
        ->type_name("ID")
        ->check([](const std::string& group) {
            return group.empty() ? std::string("a group's id is not empty; it is like app-5")
                                 : std::string();
        });
    addDurationOption(command, "--wait", target->wait,
                      "How long to wait for an application that listens (default: 2s)");
    return target;
}

} // namespace tamobox
