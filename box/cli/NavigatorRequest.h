// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NAVIGATORREQUEST_H
#define TAMOBOX_NAVIGATORREQUEST_H

#include <CLI/CLI.hpp>

#include <chrono>
#include <memory>
#include <string>

namespace tamobox {

class MessageWriter;

/** The navigator's control mailbox. */
inline constexpr const char* navigatorMailbox = "box/navigator";

/** Which application a command means, and how long it waits for it. */
struct NavigatorTarget
{
    std::string group; ///< empty: the one in the foreground
    std::chrono::milliseconds wait = std::chrono::seconds(2);

    /** Adds it to a request's arguments. */
    void writeTo(MessageWriter& arguments) const;
};

/** Adds the options that set a target, `--group` and `--wait`. */
std::shared_ptr<NavigatorTarget> addNavigatorTarget(CLI::App& command);

} // namespace tamobox

#endif
