// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "LedSummary.h"

#include "common/Descriptor.h"
#include "common/Failure.h"
#include "pps/ObjectFile.h"
#include "services/led/LedText.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

void print(const std::string& text)
{
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

int show(const CommonOptions& options)
{
    enterBox(options.box, Depth::Files);
    const LedState state = publishedLed();
    print(options.json ? ledToJson(state) + '\n' : ledToText(state));
    return 0;
}

Descriptor interrupts()
{
    sigset_t interrupt;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    sigprocmask(SIG_BLOCK, &interrupt, nullptr);
    Descriptor descriptor(signalfd(-1, &interrupt, SFD_CLOEXEC));
    if (!descriptor)
        throw systemFailure("cannot wait for a signal");
    return descriptor;
}

int follow(const CommonOptions& options)
{
    enterBox(options.box, Depth::Files);
    const Descriptor interrupted = interrupts();
    ObjectFile file(ledObject, O_RDONLY | O_NONBLOCK);
    std::string shown;
    for (;;) {
        if (const auto text = file.read()) {
            const LedState state = readLed(*text);
            const std::string line = (options.json ? ledToJson(state) : ledSummary(state)) + '\n';
            if (line != shown)
                print(line);
            shown = line;
        }
        std::array<pollfd, 2> entries = {
            {{file.descriptor(), POLLIN, 0}, {interrupted.get(), POLLIN, 0}}};
        if (poll(entries.data(), entries.size(), -1) == -1 && errno != EINTR)
            throw systemFailure("cannot wait for the LED");
        if (entries[1].revents != 0)
            return 0;
    }
}

} // namespace

void addLedCommand(CommandLine& commandLine)
{
    const auto follows = std::make_shared<bool>(false);
    CLI::App& command = commandLine.add(commandLine.root(), "led", "Show the LED, and for whom",
                                        [follows](const CommonOptions& options) {
                                            return *follows ? follow(options) : show(options);
                                        });
    command.add_flag("--follow", *follows, "Go on with a line for each change, until SIGINT");
    command.footer("With --json: an object of lit, the colour at this moment, shown, the request "
                   "that flashes, and waiting.");
}

} // namespace tamobox
