// SPDX-License-Identifier: Apache-2.0
#include "PrivatePps.h"

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace tamotest {
namespace {

constexpr char InsideVariable[] = "TAMO_TEST_IN_PRIVATE_NAMESPACE";
constexpr int SkippedStatus = 77;
constexpr int StartTimeoutMs = 10'000;
constexpr char Mountpoint[] = "/pps";

[[noreturn]] void skip(const std::string& reason)
{
    std::fprintf(stderr, "skipped: %s\n", reason.c_str());
    std::exit(SkippedStatus);
}

[[noreturn]] void fail(const std::string& what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

std::string linkTarget(const std::string& path)
{
    char target[4096];
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    if (length <= 0)
        skip("cannot read the link " + path);
    return std::string(target, static_cast<std::size_t>(length));
}

std::string ownProgram()
{
    return linkTarget("/proc/self/exe");
}

/** Puts a root together out of the machine's own entries, and adds an empty `/pps`. */
std::vector<std::string> bubblewrapArguments()
{
    std::vector<std::string> arguments{"bwrap", "--die-with-parent"};
    const std::unique_ptr<DIR, int (*)(DIR*)> root(opendir("/"), &closedir);
    if (!root)
        skip("cannot list the root directory");
    while (const dirent* const entry = readdir(root.get())) {
        const std::string name = entry->d_name;
        const std::string path = '/' + name;
        struct stat status
        {
        };
        if (name == "." || name == ".." || path == Mountpoint || lstat(path.c_str(), &status) != 0)
            continue;
        if (S_ISLNK(status.st_mode)) {
            arguments.insert(arguments.end(), {"--symlink", linkTarget(path), path});
        } else if (S_ISDIR(status.st_mode) || S_ISREG(status.st_mode)) {
            arguments.insert(arguments.end(), {"--dev-bind-try", path, path});
        }
    }
    arguments.insert(arguments.end(), {"--dir", Mountpoint});
    if (geteuid() == 0)
        arguments.insert(arguments.end(), {"--cap-add", "ALL"});
    else
        arguments.insert(arguments.end(), {"--unshare-user", "--cap-add", "CAP_SYS_ADMIN"});
    return arguments;
}

/** The arguments as exec() wants them; valid as long as the strings are. */
std::vector<char*> pointers(std::vector<std::string>& arguments)
{
    std::vector<char*> result;
    for (std::string& argument : arguments)
        result.push_back(argument.data());
    result.push_back(nullptr);
    return result;
}

/** Runs a command and waits for it. The reason why it failed is its standard error's business. */
bool succeeds(std::vector<std::string> arguments)
{
    const std::vector<char*> argv = pointers(arguments);
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

/** Waits for the byte that ppsfs writes when it serves. */
bool isReady(int descriptor)
{
    pollfd ready{descriptor, POLLIN, 0};
    int result;
    do
        result = poll(&ready, 1, StartTimeoutMs);
    while (result < 0 && errno == EINTR);
    char byte;
    return result == 1 && read(descriptor, &byte, 1) == 1;
}

void makeParents(const std::string& path)
{
    for (std::size_t slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        const std::string parent = path.substr(0, slash);
        if (mkdir(parent.c_str(), 0777) != 0 && errno != EEXIST)
            fail(parent);
    }
}

} // namespace

void enterPrivateNamespace(int argc, char** argv)
{
    if (getenv(InsideVariable))
        return;
    if (access("/dev/fuse", R_OK | W_OK) != 0)
        skip("/dev/fuse cannot be used here");
    std::vector<std::string> arguments = bubblewrapArguments();

    std::vector<std::string> probe = arguments;
    probe.insert(probe.end(), {"--", "true"});
    if (!succeeds(std::move(probe)))
        skip("bwrap cannot make a private mount namespace here");

    arguments.insert(arguments.end(), {"--setenv", InsideVariable, "1", "--", ownProgram()});
    for (int i = 1; i < argc; ++i)
        arguments.emplace_back(argv[i]);
    execvp("bwrap", pointers(arguments).data());
    skip(std::string("bwrap: ") + std::strerror(errno));
}

PpsFilesystem::PpsFilesystem()
{
    int ready[2];
    if (pipe2(ready, O_CLOEXEC) != 0)
        fail("pipe");
    std::vector<std::string> arguments{TAMO_TEST_PPSFS, "--ready-fd", std::to_string(ready[1]),
                                       Mountpoint};
    const std::vector<char*> argv = pointers(arguments);
    m_pid = fork();
    if (m_pid < 0)
        fail("fork");
    if (m_pid == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        fcntl(ready[1], F_SETFD, 0);
        execv(argv[0], argv.data());
        _exit(127);
    }
    close(ready[1]);
    const bool serves = isReady(ready[0]);
    close(ready[0]);
    if (!serves) {
        kill();
        throw std::runtime_error("ppsfs did not start");
    }
}

PpsFilesystem::~PpsFilesystem()
{
    if (m_pid > 0) {
        ::kill(m_pid, SIGTERM);
        waitpid(m_pid, nullptr, 0);
    } else {
        umount2(Mountpoint, MNT_DETACH); // what a killed filesystem leaves behind
    }
}

void PpsFilesystem::kill()
{
    if (m_pid <= 0)
        return;
    ::kill(m_pid, SIGKILL);
    waitpid(std::exchange(m_pid, -1), nullptr, 0);
}

void publish(const std::string& path, const std::string& text)
{
    const std::string prefix = std::string(Mountpoint) + '/';
    const std::string full = path.compare(0, prefix.size(), prefix) == 0 ? path : prefix + path;
    makeParents(full);
    const int object = open(full.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (object < 0)
        fail(full);
    const ssize_t written = write(object, text.data(), text.size());
    const int error = errno;
    close(object);
    errno = error;
    if (written != static_cast<ssize_t>(text.size()))
        fail(full);
}

} // namespace tamotest
