// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include "ProcessTable.h"
#include "Programs.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <stdexcept>

namespace boxtest {

namespace {

// Whatever is mounted where boxes mount; other programs may mount elsewhere meanwhile.
std::vector<std::string> mountsOfBoxes()
{
    std::ifstream file("/proc/self/mountinfo");
    std::vector<std::string> found;
    for (std::string line; std::getline(file, line);)
        if (line.find(" /pps ") != std::string::npos || line.find("newroot") != std::string::npos)
            found.push_back(line);
    return found;
}

bool isNothingLeft(pid_t bwrap, ino_t processNamespace)
{
    const std::vector<pid_t> all = allProcesses();
    return processesIn(processNamespace).empty() &&
           std::find(all.begin(), all.end(), bwrap) == all.end();
}

bool isOneLine(const std::string& text)
{
    return !text.empty() && text.find('\n') == text.size() - 1;
}

} // namespace

pid_t Box::find(const std::string& program) const
{
    for (const pid_t process : processesIn(processNamespace))
        if (programOf(process) == program)
            return process;
    return -1;
}

pid_t Box::signal(const std::string& program, int number) const
{
    const pid_t process = find(program);
    // To kill(), -1 is every process of the machine.
    if (process <= 0)
        throw std::runtime_error("no process of the box executes " + program);
    kill(process, number);
    return process;
}

bool Box::isGone() const
{
    return isNothingLeft(bwrap, processNamespace);
}

void BoxTest::SetUp()
{
    m_mountsBefore = mountsOfBoxes();
}

void BoxTest::TearDown()
{
    EXPECT_EQ(mountsOfBoxes(), m_mountsBefore);
    EXPECT_TRUE(waitUntil([] { return childrenOf(getpid()).empty(); }));
    for (const auto& isGone : m_boxesGone)
        EXPECT_TRUE(waitUntil(isGone));
}

std::vector<std::string> BoxTest::tamoBox(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), Programs::tamoBox());
    return arguments;
}

std::string BoxTest::helper(const std::string& name)
{
    return Programs::helper(name);
}

Result BoxTest::run(const std::vector<std::string>& arguments, const std::string& input) const
{
    Process process(tamoBox(arguments), GetParam(), input);
    const int status = process.wait();
    return {status, process.output(), process.errors()};
}

Box BoxTest::start(std::vector<std::string> application, const std::string& started,
                   const Process::Preparation& prepare) const
{
    return startNamed(uniqueName(), {}, application, started, prepare);
}

Box BoxTest::startNamed(const std::string& name, std::vector<std::string> options,
                        const std::vector<std::string>& application, const std::string& started,
                        const Process::Preparation& prepare) const
{
    Box box;
    box.name = name;
    options.insert(options.begin(), {"run", "--box", name});
    options.push_back("--");
    options.insert(options.end(), application.begin(), application.end());
    box.launcher =
        std::make_unique<Process>(tamoBox(std::move(options)), GetParam(), std::string(), prepare);
    // Without its process ids a test must not go on: a signal to -1 reaches the whole machine.
    if (!box.launcher->printed(started))
        throw std::runtime_error("the box did not start: " + box.launcher->errors());
    box.bwrap = childrenOf(box.launcher->pid()).at(0);
    box.init = childrenOf(box.bwrap).at(0);
    box.processNamespace = processNamespaceOf(box.init);
    m_boxesGone.push_back([bwrap = box.bwrap, processNamespace = box.processNamespace] {
        return isNothingLeft(bwrap, processNamespace);
    });
    return box;
}

Box BoxTest::startIdle() const
{
    return start({helper("tamo-test-idle")});
}

Box BoxTest::startIdleWith(const std::vector<std::string>& options, const std::string& name,
                           const Process::Preparation& prepare) const
{
    return startNamed(name.empty() ? uniqueName() : name, options, {helper("tamo-test-idle")},
                      "started", prepare);
}

Result BoxTest::in(const Box& box, std::vector<std::string> arguments,
                   const std::string& input) const
{
    const auto end = std::find(arguments.begin(), arguments.end(), "--");
    arguments.insert(end, {"--box", box.name});
    return run(arguments, input);
}

std::string BoxTest::uniqueName()
{
    static int count = 0;
    return "test-" + std::to_string(getpid()) + '-' + std::to_string(++count);
}

testing::Matcher<const Result&> failsWith(int status, const std::string& text)
{
    using namespace testing;
    return AllOf(Field("status", &Result::status, status),
                 Field("errors", &Result::errors,
                       AllOf(HasSubstr(text), StartsWith("tamo-box: "), Truly(isOneLine))));
}

testing::Matcher<const Result&> succeeds()
{
    using namespace testing;
    return AllOf(Field("status", &Result::status, 0), Field("errors", &Result::errors, IsEmpty()));
}

std::string userName(const testing::TestParamInfo<User>& info)
{
    return nameOf(info.param);
}

void PrintTo(const Result& result, std::ostream* stream)
{
    *stream << "status " << result.status << "\noutput: " << result.output
            << "\nerrors: " << result.errors;
}

} // namespace boxtest
