// SPDX-License-Identifier: Apache-2.0
#include "NavigatedTest.h"

#include <signal.h>

#include <stdexcept>

namespace boxtest {

Box NavigatedTest::startNavigated(std::vector<std::string> arguments) const
{
    arguments.insert(arguments.begin(), helper("tamo-test-navigated"));
    return start(arguments, "started ");
}

Navigated NavigatedTest::applicationOf(const Box& box)
{
    return applicationOf(*box.launcher);
}

std::unique_ptr<Process> NavigatedTest::startBeside(const Box& box,
                                                    std::vector<std::string> arguments) const
{
    arguments.insert(arguments.begin(),
                     {"exec", "--box", box.name, "--", helper("tamo-test-navigated")});
    auto process = std::make_unique<Process>(tamoBox(arguments), GetParam());
    EXPECT_TRUE(process->printed("started ")) << process->errors();
    return process;
}

Navigated NavigatedTest::applicationOf(Process& process)
{
    EXPECT_TRUE(process.printed("\n"));
    const std::string& output = process.output();
    const std::size_t begin = output.find("started ") + 8;
    return {&process, "app-" + output.substr(begin, output.find('\n', begin) - begin)};
}

void NavigatedTest::have(const Box& box, const Navigated& application,
                         const std::string& request) const
{
    EXPECT_THAT(in(box, {"navigator", "invoke", "send " + request, "--group", application.group}),
                succeeds());
}

std::unique_ptr<Process> NavigatedTest::begin(const Box& box,
                                              std::vector<std::string> arguments) const
{
    arguments.insert(arguments.end(), {"--box", box.name});
    return std::make_unique<Process>(tamoBox(arguments), GetParam());
}

std::string NavigatedTest::applicationsWith(const Box& box, const std::string& text) const
{
    std::string shown;
    EXPECT_TRUE(waitUntil([&] {
        shown = in(box, {"navigator", "--json"}).output;
        return shown.find(text) != std::string::npos;
    })) << "not published: "
        << text << "\nbut: " << shown;
    return shown;
}

std::string NavigatedTest::valueIn(const Navigated& application, const std::string& text,
                                   const std::string& attribute)
{
    const std::string& output = application.process->output();
    const std::size_t line = output.rfind(text);
    const std::size_t name = output.find(',' + attribute + ':', line);
    const std::size_t value = output.find(':', name + attribute.size() + 2) + 1;
    return output.substr(value, output.find_first_of(",\n", value) - value);
}

int countOf(const std::string& text, const std::string& part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

} // namespace boxtest
