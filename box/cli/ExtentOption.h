// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_EXTENTOPTION_H
#define TAMOBOX_EXTENTOPTION_H

#include <CLI/CLI.hpp>

#include <optional>
#include <string>

namespace tamobox {

/** A width and a height. */
struct Extent
{
    int width = 0;
    int height = 0;
};

/** Reads a text like `1920x1080`: whole numbers that are not below `least`. Nothing: it is none. */
std::optional<Extent> parseExtent(const std::string& text, int least);

/**
 * Adds an option whose value is an extent.
 *
 * @param value set when the option is given; must outlive the command line
 */
CLI::Option* addExtentOption(CLI::App& command, const std::string& name,
                             std::optional<Extent>& value, int least,
                             const std::string& description);

} // namespace tamobox

#endif
