// SPDX-License-Identifier: Apache-2.0
#include "ServiceProgram.h"

#include "common/Failure.h"
#include "common/SignalQueue.h"
#include "pps/ObjectFile.h"

#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>

namespace tamobox {

namespace {

Descriptor readyDescriptor(int argc, char** argv)
{
    int fd = -1;
    const bool isGiven = argc == 3 && std::strcmp(argv[1], "--ready-fd") == 0;
    if (isGiven)
        std::from_chars(argv[2], argv[2] + std::strlen(argv[2]), fd);
    if (fd < 0)
        throw Failure("a service is started by tamo-box-init, with --ready-fd NUMBER",
                      status::usage);
    return Descriptor(fd);
}

} // namespace

int serviceMain(int argc, char** argv, const char* program,
                const std::function<void(EventLoop&, const std::function<void()>&)>& runWith)
{
    try {
        Descriptor readyPipe = readyDescriptor(argc, argv);
        SignalQueue signals;
        EventLoop loop;
        loop.watch(signals.descriptor(), [&] {
            while (const auto signal = signals.next())
                if (signal->ssi_signo == SIGTERM)
                    loop.quit();
        });
        runWith(loop, [&] {
            if (write(readyPipe.get(), "\n", 1) == 1)
                readyPipe.reset();
        });
        return 0;
    } catch (const ObjectFailure& failure) {
        // The box says itself that the filesystem has ended.
        if (failure.error() == ENOTCONN)
            return status::ppsGone;
        std::fprintf(stderr, "%s: %s\n", program, failure.what());
        return failure.exitStatus();
    } catch (const Failure& failure) {
        std::fprintf(stderr, "%s: %s\n", program, failure.what());
        return failure.exitStatus();
    }
}

} // namespace tamobox
