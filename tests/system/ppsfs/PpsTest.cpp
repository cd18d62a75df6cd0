// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

namespace tamotest {
namespace {

int exitStatus(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

std::string PpsTest::textOfSize(const std::string& object, std::size_t size)
{
    std::string text = '@' + object + "\npad::";
    text.resize(size - 1, 'x');
    return text + '\n';
}

std::string PpsTest::contentOf(const std::string& object)
{
    return PpsDescriptor(object, O_RDONLY).read();
}

bool PpsTest::eventually(const std::function<bool()>& attempt)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!attempt()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::yield();
    }
    return true;
}

int PpsTest::inChild(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    return exitStatus(status);
}

int PpsTest::shell(const std::string& command, std::string* output)
{
    FILE* const pipe = popen(("LC_ALL=C; " + command).c_str(), "r");
    std::string text;
    for (int character; (character = fgetc(pipe)) != EOF;)
        text += static_cast<char>(character);
    if (output)
        *output = text;
    return exitStatus(pclose(pipe));
}

} // namespace tamotest
