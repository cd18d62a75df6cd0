// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"

#include "common/BoxSocket.h"
#include "common/Failure.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

namespace tamobox {

namespace {

int complain(std::string sentence, int exitStatus)
{
    std::replace(sentence.begin(), sentence.end(), '\n', ' ');
    std::fprintf(stderr, "tamo-box: %s\n", sentence.c_str());
    return exitStatus;
}

const CLI::App& deepestCommand(const CLI::App& app)
{
    const auto given = app.get_subcommands();
    return given.empty() ? app : deepestCommand(*given.front());
}

// Whether a command's exit status is somebody else's, so that its own failures have a status apart.
bool runsSomething(const CLI::App& command)
{
    const std::string name = command.get_name();
    return name == "run" || name == "exec" || name == "shell";
}

std::string fullName(const CLI::App& app)
{
    return app.get_parent() == nullptr ? "tamo-box"
                                       : fullName(*app.get_parent()) + ' ' + app.get_name();
}

} // namespace

CommandLine::CommandLine() : m_root("A phone in a box, for the applications of a phone", "tamo-box")
{
    m_root.require_subcommand(1);
    m_root.footer(
        "Exit status: 0, or 1 for a command that failed, 2 for one that was asked in a wrong "
        "way.\nrun, exec and shell end with the status of what they ran: 128 plus N for the "
        "signal N,\n127 where it was not found, 126 where it is not executable, and 125 where "
        "the box itself failed.");
}

CLI::App& CommandLine::add(CLI::App& parent, const std::string& name,
                           const std::string& description,
                           std::function<int(const CommonOptions&)> action)
{
    CLI::App* const command = parent.add_subcommand(name, description);
    command->add_option("--box", m_options.box, "The box that is meant (default: the only one)")
        ->type_name("NAME")
        ->check([](const std::string& box) {
            return boxsocket::isName(box)
                       ? std::string()
                       : "'" + box +
                             "' is no name for a box: 1 to 48 letters, digits, '.', '_', '-'";
        });
    command->add_flag("--json", m_options.json, "Print JSON");
    command->callback([this, command, action = std::move(action)] {
        if (!command->get_subcommands().empty())
            return;
        if (!m_options.rest.empty() && m_restHints.count(command) == 0)
            throw CLI::ExtrasError(m_options.rest);
        m_exitStatus = action(m_options);
    });
    return *command;
}

void CommandLine::takeRest(CLI::App& command, const std::string& hint)
{
    m_restHints[&command] = hint;
}

CLI::App& CommandLine::addGroup(CLI::App& parent, const std::string& name,
                                const std::string& description)
{
    CLI::App* const group = parent.add_subcommand(name, description);
    group->require_subcommand(1);
    return *group;
}

int CommandLine::run(int argc, const char* const* argv)
{
    try {
        const char* const* const end = argv + argc;
        const char* const* const dashes =
            std::find_if(argv, end, [](const char* text) { return text == std::string("--"); });
        if (dashes != end)
            m_options.rest.assign(dashes + 1, end);
        m_root.parse(static_cast<int>(dashes - argv), argv);
        return m_exitStatus;
    } catch (const CLI::CallForHelp&) {
        std::cout << m_root.help();
        return 0;
    } catch (const CLI::ParseError& error) {
        return reportUsage(error);
    } catch (const Failure& failure) {
        const bool isOwnFailure = failure.exitStatus() <= status::usage;
        return complain(failure.what(), runsSomething(deepestCommand(m_root)) && isOwnFailure
                                            ? status::boxFailed
                                            : failure.exitStatus());
    } catch (const std::exception& error) {
        return complain(error.what(),
                        runsSomething(deepestCommand(m_root)) ? status::boxFailed : status::failed);
    }
}

std::string CommandLine::sentenceFor(const CLI::ParseError& error, const CLI::App& command) const
{
    const auto hint = m_restHints.find(&command);
    if (hint != m_restHints.end() && dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)
        return std::string(error.what()) + "; " + hint->second;
    if (command.get_require_subcommand_min() == 0)
        return error.what();
    // CLI11 misses the subcommand before it says that there is none of that name.
    std::string names;
    for (const CLI::App* known : command.get_subcommands([](const CLI::App*) { return true; }))
        names += (names.empty() ? "" : ", ") + known->get_name();
    const std::vector<std::string> unknown = command.remaining();
    return (unknown.empty() ? "a command is missing" : "there is no command '" + unknown[0] + "'") +
           "; there are: " + names;
}

int CommandLine::reportUsage(const CLI::ParseError& error) const
{
    const CLI::App& command = deepestCommand(m_root);
    return complain(sentenceFor(error, command) + "; see '" + fullName(command) + " --help'",
                    runsSomething(command) ? status::boxFailed : status::usage);
}

} // namespace tamobox
