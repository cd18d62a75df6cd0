// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DURATIONOPTION_H
#define TAMOBOX_DURATIONOPTION_H

#include <CLI/CLI.hpp>

#include <chrono>
#include <string>

namespace tamobox {

/**
 * Adds an option whose value is a duration, see parseDuration().
 *
 * @param value set when the option is given; must outlive the command line
 */
CLI::Option* addDurationOption(CLI::App& command, const std::string& name,
                               std::chrono::milliseconds& value, const std::string& description);

} // namespace tamobox

#endif
