// SPDX-License-Identifier: Apache-2.0
#include "fuse/Capabilities.h"
#include "fuse/FuseServer.h"
#include "fuse/Mount.h"

#include <CLI/CLI.hpp>

#include <fcntl.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

constexpr int UsageError = 2;

host::FileDescriptor takeReadyDescriptor(int number)
{
    if (number < 0)
        return host::FileDescriptor();
    if (fcntl(number, F_SETFD, FD_CLOEXEC) != 0)
        throw std::runtime_error("--ready-fd " + std::to_string(number) + ": " +
                                 std::strerror(errno));
    return host::FileDescriptor(number);
}

void check(const char* what, int error)
{
    if (error)
        throw std::runtime_error(std::string(what) + ": " + std::strerror(error));
}

void serve(const std::string& mountpoint, int readyDescriptor)
{
    host::FileDescriptor ready = takeReadyDescriptor(readyDescriptor);
    const ppsfs::Mount mount(mountpoint);
    check("cannot give up capabilities", ppsfs::shelveCapabilities());
    ppsfs::FuseServer server(mount.device(), std::move(ready));
    check("/dev/fuse", server.run());
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Serves the objects of /pps. Runs in the foreground until it is unmounted or "
                 "gets SIGTERM, SIGINT or SIGHUP.",
                 "ppsfs");
    std::string mountpoint;
    int readyDescriptor = -1;
    app.add_option("MOUNTPOINT", mountpoint, "The directory to mount on")->required();
    app.add_option("--ready-fd", readyDescriptor,
                   "A descriptor that gets one byte when the filesystem is being served")
        ->check(CLI::Range(0, std::numeric_limits<int>::max()));
    app.set_version_flag("--version", "ppsfs " PPSFS_VERSION);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& asked) { // --help, --version
        return app.exit(asked);
    } catch (const CLI::ParseError& error) {
        std::cerr << "ppsfs: " << error.what() << "; see 'ppsfs --help'\n";
        return UsageError;
    }

    try {
        serve(mountpoint, readyDescriptor);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "ppsfs: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
