// SPDX-License-Identifier: Apache-2.0
#include "CapturedProgram.h"

#include "common/Descriptor.h"
#include "common/Failure.h"
#include "common/Program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace tamobox {

CapturedProgram runCaptured(const std::vector<std::string>& command)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) == -1)
        throw systemFailure("cannot create a pipe");
    const Descriptor reader(ends[0]);
    Descriptor writer(ends[1]);
    const pid_t pid = fork();
    if (pid == -1)
        throw systemFailure("cannot start " + command[0]);
    if (pid == 0) {
        dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
        dup2(writer.get(), STDOUT_FILENO);
        dup2(writer.get(), STDERR_FILENO);
        const int error = executeProgram(command);
        dprintf(STDERR_FILENO, "%s\n", textForExecuteError(command[0], error).c_str());
        _exit(statusForExecuteError(error));
    }
    writer.reset();
    std::string text;
    std::array<char, 4096> buffer;
    for (ssize_t size = 0; (size = read(reader.get(), buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(size));
    int result = 0;
    while (waitpid(pid, &result, 0) == -1 && errno == EINTR)
        continue;
    return {statusForWaitResult(result), text.substr(0, text.find('\n'))};
}

} // namespace tamobox
