// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_SERVICEPROGRAM_H
#define TAMOBOX_SERVICEPROGRAM_H

#include "common/EventLoop.h"

#include <functional>

namespace tamobox {

/**
 * The main() of every service. The service says that it is ready as soon as it has been made, and
 * runs until SIGTERM.
 *
 * @param program the service's name, which heads what it complains of
 * @param runWith makes the service, so that it listens, calls `ready`, and runs the loop it was
 * given
 * @return the status to exit with; status::ppsGone where `/pps` ended
 */
int serviceMain(
    int argc, char** argv, const char* program,
    const std::function<void(EventLoop& loop, const std::function<void()>& ready)>& runWith);

/** serviceMain() for a service that is one object, made from the loop. */
template<typename Service>
int runService(int argc, char** argv, const char* program)
{
    return serviceMain(argc, argv, program,
                       [](EventLoop& loop, const std::function<void()>& ready) {
                           Service service(loop);
                           ready();
                           loop.run();
                       });
}

} // namespace tamobox

#endif
