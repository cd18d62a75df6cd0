// SPDX-License-Identifier: Apache-2.0
#include "MachineChecks.h"

#include "CapturedProgram.h"

#include "common/Descriptor.h"
#include "common/Failure.h"
#include "common/Program.h"
#include "launcher/PrivateRoot.h"
#include "services/ServiceTable.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <fstream>

namespace tamobox {

namespace {

using Verdict = CheckResult::Verdict;

CheckResult good(const std::string& detail)
{
    return {Verdict::Good, detail, {}};
}

CheckResult bad(const std::string& detail, const std::string& mend)
{
    return {Verdict::Bad, detail, mend};
}

std::string firstWordOf(const std::string& path)
{
    std::ifstream file(path);
    std::string word;
    file >> word;
    return word;
}

// --- the checks, in the order of the table below

CheckResult checkKernel()
{
    std::ifstream filesystems("/proc/filesystems");
    for (std::string word; filesystems >> word;)
        if (word == "fuse")
            return good("knows FUSE filesystems");
    return bad("does not know FUSE filesystems", "sudo modprobe fuse");
}

CheckResult checkDevice()
{
    if (Descriptor(open("/dev/fuse", O_RDWR | O_CLOEXEC)))
        return good("can be opened");
    if (errno == ENOENT || errno == ENXIO || errno == ENODEV)
        return bad("does not exist",
                   "sudo modprobe fuse (a container needs it passed in: --device /dev/fuse)");
    return bad("cannot be opened: " + errorText(errno), "sudo chmod 666 /dev/fuse");
}

CheckResult checkBwrap()
{
    const std::string install = "sudo apt-get install bubblewrap";
    const std::string path = findInPath("bwrap");
    if (path.empty())
        return bad("is not installed", install);
    const CapturedProgram version = runCaptured({path, "--version"});
    int major = 0;
    int minor = 0;
    if (std::sscanf(version.firstLine.c_str(), "bubblewrap %d.%d", &major, &minor) != 2)
        return bad("does not say its version: " + version.firstLine, install);
    // 0.4 is the first that has all the options a box is made with.
    if (major == 0 && minor < 4)
        return bad(version.firstLine + " is too old, 0.4 is needed", install);
    return good(version.firstLine);
}

struct Setting
{
    const char* path;
    const char* forbiddingValue;
    const char* mend;
};

constexpr std::array<Setting, 3> namespaceSettings = {{
    {"/proc/sys/user/max_user_namespaces", "0", "sudo sysctl user.max_user_namespaces=15000"},
    {"/proc/sys/kernel/unprivileged_userns_clone", "0",
     "sudo sysctl kernel.unprivileged_userns_clone=1"},
    {"/proc/sys/kernel/apparmor_restrict_unprivileged_userns", "1",
     "sudo sysctl kernel.apparmor_restrict_unprivileged_userns=0"},
}};

CapturedProgram tryNamespaces(std::vector<std::string> moreOptions)
{
    std::vector<std::string> command = {"bwrap", "--unshare-pid", "--dev-bind", "/", "/"};
    if (needsUserNamespace())
        command.insert(command.end(), {"--unshare-user", "--cap-add", "CAP_SYS_ADMIN"});
    command.insert(command.end(), moreOptions.begin(), moreOptions.end());
    command.insert(command.end(), {"--", "true"});
    return runCaptured(command);
}

CheckResult checkNamespaces()
{
    const CapturedProgram attempt = tryNamespaces({});
    if (attempt.exitStatus == 0)
        return good(needsUserNamespace() ? "may be made, with a user namespace"
                                         : "may be made; root needs no user namespace");
    for (const Setting& setting : namespaceSettings)
        if (needsUserNamespace() && firstWordOf(setting.path) == setting.forbiddingValue)
            return bad(std::string("are forbidden by ") + setting.path, setting.mend);
    return bad("cannot be made: " + attempt.firstLine,
               "sudo -s, and there tamo-box (a container needs --privileged)");
}

CheckResult checkProcesses()
{
    const CapturedProgram attempt = tryNamespaces({"--proc", "/proc"});
    if (attempt.exitStatus == 0)
        return good("can be mounted for the box alone");
    return {
        Verdict::Tolerable,
        "cannot be mounted for the box alone, which will show the machine's: " + attempt.firstLine,
        "nothing, outside of a container; a container needs --security-opt systempaths=unconfined"};
}

CheckResult checkPrograms()
{
    try {
        std::string found = "tamo-box-init, ppsfs";
        findOwnProgram("tamo-box-init");
        findOwnProgram("ppsfs");
        for (const ServiceEntry& service : serviceTable()) {
            findOwnProgram(service.program);
            found += ", " + service.program;
        }
        return good("are there: " + found);
    } catch (const Failure& failure) {
        return bad(failure.what(), "cmake --build and cmake --install, for all of tamo");
    }
}

CheckResult checkBox()
{
    const std::string name = "doctor-" + std::to_string(getpid());
    const CapturedProgram box = runCaptured({"/proc/self/exe", "run", "--box", name, "--", "test",
                                             "-e", "/pps/services/power/battery"});
    if (box.exitStatus == 0)
        return good("starts and ends, with /pps and the services");
    return bad(box.firstLine.empty() ? "starts without /pps" : "does not start: " + box.firstLine,
               "what is said above; where all of that is good, this is a fault of tamo-box");
}

} // namespace

const std::vector<MachineCheck>& machineChecks()
{
    static const std::vector<MachineCheck> checks = {
        {"the kernel", checkKernel}, {"/dev/fuse", checkDevice},
        {"bwrap", checkBwrap},       {"namespaces", checkNamespaces},
        {"/proc", checkProcesses},   {"the box's programs", checkPrograms},
        {"a box", checkBox},
    };
    return checks;
}

} // namespace tamobox
