// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_COMMANDLINE_H
#define TAMOBOX_COMMANDLINE_H

#include <CLI/CLI.hpp>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tamobox {

/** What every command can be told. */
struct CommonOptions
{
    std::string box; ///< `--box`: empty where it was not given
    bool json = false;
    /**
     * What follows the first `--`, as it stands; CLI11, which would take some of it for its own,
     * never sees it. Empty for commands that do not take it.
     */
    std::vector<std::string> rest;
};

/**
 * The command line: a tree of commands, each with its options. A command is added with add(), gets
 * its own options as CLI11 has them, and is carried out by its function, which throws Failure or
 * returns the exit status.
 */
class CommandLine
{
public:
    CommandLine();

    /** What add() hangs commands into. */
    CLI::App& root() { return m_root; }

    /**
     * Adds a command with `--box` and `--json`.
     *
     * @param parent root(), or a group
     * @param action called when the command was given; not called where there is a deeper one
     */
    CLI::App& add(CLI::App& parent, const std::string& name, const std::string& description,
                  std::function<int(const CommonOptions&)> action);

    /** Lets a command take what follows `--`; `hint` says in a few words what that is. */
    void takeRest(CLI::App& command, const std::string& hint);

    /** Adds a command that is nothing but a group of others, one of which must be given. */
    CLI::App& addGroup(CLI::App& parent, const std::string& name, const std::string& description);

    /** Carries out what the arguments say, and returns the exit status. Throws nothing. */
    int run(int argc, const char* const* argv);

private:
    std::string sentenceFor(const CLI::ParseError& error, const CLI::App& command) const;
    int reportUsage(const CLI::ParseError& error) const;

    CLI::App m_root;
    CommonOptions m_options;
    std::map<const CLI::App*, std::string> m_restHints;
    int m_exitStatus = 0;
};

} // namespace tamobox

#endif
