// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "DurationOption.h"
#include "MessageJson.h"
#include "NumberCheck.h"
#include "ObjectServer.h"

#include "pps/MessageReader.h"
#include "pps/ObjectCreation.h"
#include "pps/ObjectFile.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

constexpr std::chrono::milliseconds forEver(-1); // for poll()

struct PpsArguments
{
    std::string object;
    std::vector<std::string> lines;
    bool create = false;
    std::chrono::milliseconds wait = std::chrono::milliseconds(0);
    int count = 0;
};

void printMessage(const CommonOptions& options, const std::string& text)
{
    const std::string shown = options.json ? messageToJson(text) + '\n' : text;
    std::fwrite(shown.data(), 1, shown.size(), stdout);
    std::fflush(stdout);
}

// Arguments are the lines of a message; a lone `-` stands for a message on standard input.
std::string messageFrom(const std::vector<std::string>& lines)
{
    std::string message;
    if (lines == std::vector<std::string>{"-"}) {
        std::array<char, 65536> buffer;
        for (std::size_t size = 0;
             (size = std::fread(buffer.data(), 1, buffer.size(), stdin)) > 0;) {
            message.append(buffer.data(), size);
            if (message.size() > longestMessage)
                throw Failure("the message is longer than " + std::to_string(longestMessage) +
                              " bytes");
        }
    } else {
        for (const std::string& line : lines) {
            if (line.find('\n') != std::string::npos)
                throw Failure("an attribute is one line; write a line end in a string as \\n",
                              status::usage);
            message += line + '\n';
        }
    }
    if (message.empty())
        throw Failure("a message is missing: give its lines, like StateOfCharge:n:57",
                      status::usage);
    const MessageReader check(message); // says which line is malformed, which write() does not
    return message;
}

void createIfAsked(const PpsArguments& arguments)
{
    if (arguments.create)
        createObject(arguments.object, 0644);
}

bool waitFor(const ObjectFile& file, std::chrono::milliseconds limit)
{
    pollfd entry = {file.descriptor(), POLLIN, 0};
    int count = 0;
    do
        count = poll(&entry, 1, static_cast<int>(limit.count()));
    while (count == -1 && errno == EINTR);
    return count > 0;
}

int get(const CommonOptions& options, const PpsArguments& arguments)
{
    enterBox(options.box, Depth::Files);
    const auto message = ObjectFile(arguments.object, O_RDONLY | O_NONBLOCK).read();
    if (!message)
        throw Failure(objectPath(arguments.object) + " has never been published");
    printMessage(options, *message);
    return 0;
}

int set(const CommonOptions& options, const PpsArguments& arguments)
{
    std::vector<std::string> lines = arguments.lines;
    lines.insert(lines.end(), options.rest.begin(), options.rest.end());
    const std::string message = messageFrom(lines);
    enterBox(options.box, Depth::Files);
    const bool waits = arguments.wait.count() != 0;
    createIfAsked(arguments);
    ObjectFile file(arguments.object, waits ? O_RDWR | O_NONBLOCK : O_WRONLY);
    if (waits)
        file.read(); // what the object is like already is no answer
    file.write(message);
    if (!waits)
        return 0;
    const auto answer = waitFor(file, arguments.wait) ? file.read() : std::nullopt;
    if (!answer)
        throw Failure("no answer came in time");
    printMessage(options, *answer);
    return 0;
}

int watch(const CommonOptions& options, const PpsArguments& arguments)
{
    enterBox(options.box, Depth::Files);
    ObjectFile file(arguments.object, O_RDONLY | O_NONBLOCK);
    for (int seen = 0; arguments.count == 0 || seen < arguments.count;) {
        waitFor(file, forEver);
        const auto message = file.read();
        if (!message)
            continue;
        printMessage(options, *message);
        ++seen;
        if (message->rfind("-@", 0) == 0)
            throw Failure(objectPath(arguments.object) + " has been removed");
    }
    return 0;
}

int serve(const CommonOptions& options, const PpsArguments& arguments)
{
    enterBox(options.box, Depth::Files);
    createIfAsked(arguments);
    ObjectServer server(arguments.object);
    std::fprintf(stderr, "tamo-box: serving %s\n", objectPath(arguments.object).c_str());
    server.run(arguments.count,
               [&](const std::string& message) { printMessage(options, message); });
    return 0;
}

} // namespace

void addPpsCommands(CommandLine& commandLine)
{
    const auto arguments = std::make_shared<PpsArguments>();
    CLI::App& pps = commandLine.addGroup(commandLine.root(), "pps",
                                         "Any object below /pps, one whole message per call");
    using Action = int (*)(const CommonOptions&, const PpsArguments&);
    const auto add = [&](const char* name, const char* description, Action action) -> CLI::App& {
        CLI::App& command =
            commandLine.add(pps, name, description, [=](const CommonOptions& options) {
                return action(options, *arguments);
            });
        command.add_option("object", arguments->object, "Its path, with or without /pps/ in front")
            ->type_name("OBJECT")
            ->required();
        return command;
    };

    add("get", "Print what an object is like now", get);

    CLI::App& setCommand = add("set", "Publish attributes, or send a request to a mailbox", set);
    setCommand
        .add_option("lines", arguments->lines,
                    "name:marker:value, or -name, after '--', to delete one; or a lone - for a "
                    "message on standard input")
        ->type_name("LINE...");
    commandLine.takeRest(setCommand, "lines that begin with '-' come after '--'");
    setCommand.add_flag("--create", arguments->create, "Create the object where there is none");
    addDurationOption(setCommand, "--wait", arguments->wait,
                      "Wait that long for a mailbox's answer, and print it");

    CLI::App& watchCommand =
        add("watch", "Print an object whenever it is published, and as it is now", watch);
    watchCommand.add_option("--count", arguments->count, "End after so many messages")
        ->type_name("N")
        ->check(wholeNumber(1));

    CLI::App& serveCommand =
        add("serve", "Be an object's server: print requests, answer them", serve);
    serveCommand.add_option("--count", arguments->count, "End after so many requests")
        ->type_name("N")
        ->check(wholeNumber(1));
    serveCommand.add_flag("--create", arguments->create, "Create the object where there is none");
    serveCommand.footer("Each request is answered with the next block of lines on standard input; "
                        "an empty line or the\n"
                        "end of the input ends it. It goes to the client that asked, or to those "
                        "whose @object.N lines\n"
                        "head it. An empty block is no answer.");
}

} // namespace tamobox
