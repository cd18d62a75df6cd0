// SPDX-License-Identifier: Apache-2.0
// tamo-box-init: process 1 of a box. The launcher starts it, through bwrap, with one argument: the
// descriptor of its plan.
#include "BoxInit.h"

#include "common/ControlMessage.h"
#include "common/DescriptorTable.h"
#include "common/Failure.h"

#include <sys/prctl.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

using namespace tamobox;

namespace {

BoxPlan takePlan(const char* argument)
{
    const Descriptor memory(std::atoi(argument));
    BoxPlan plan = BoxPlan::fromDescriptor(memory.get());
    // The box's own descriptors are not for the application; whatever else is open was the
    // caller's.
    for (const int fd : {plan.controlSocket, plan.listeningSocket, plan.standardStreams[0],
                         plan.standardStreams[1], plan.standardStreams[2]})
        setInherited(fd, false);
    return plan;
}

} // namespace

int main(int argc, char** argv)
{
    int controlSocket = -1;
    ControlMessage last = {ControlMessage::Kind::Ended};
    try {
        // bwrap asks for the same, but before it changes its credentials, which may undo it.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        BoxPlan plan = takePlan(argc == 2 ? argv[1] : "-1");
        controlSocket = plan.controlSocket;
        last.number = BoxInit(std::move(plan)).run();
    } catch (const Failure& failure) {
        const bool isProgramMissing = failure.exitStatus() != status::failed;
        last = {ControlMessage::Kind::Failed,
                isProgramMissing ? failure.exitStatus() : status::boxFailed, failure.what()};
    } catch (const std::exception& error) {
        last = {ControlMessage::Kind::Failed, status::boxFailed, error.what()};
    }
    if (controlSocket == -1)
        std::fprintf(stderr, "tamo-box-init: %s\n", last.text.c_str());
    else
        sendControlMessage(controlSocket, last);
    return controlSocket == -1 ? status::boxFailed : 0;
}
