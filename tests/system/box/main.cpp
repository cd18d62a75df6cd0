// SPDX-License-Identifier: Apache-2.0
// Runs the tests of the box; ends with 77 (skipped) where this machine cannot run a box.
#include "FuseDevice.h"
#include "Process.h"
#include "Programs.h"
#include "RunTests.h"

#include <gtest/gtest.h>

#include <sched.h>

#include <cstdio>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Boxes are found through the network namespace: in one of their own, tests do not see the
    // boxes of other programs. Only root may have one just so; others must have no box running.
    unshare(CLONE_NEWNET);
    tamotest::openFuseDevice();
    const boxtest::Programs programs;
    for (const boxtest::User user : boxtest::users()) {
        boxtest::Process doctor({boxtest::Programs::tamoBox(), "doctor"}, user);
        if (doctor.wait() != 0) {
            std::printf("skipped: this machine does not run a box (%s):\n%s%s",
                        boxtest::nameOf(user).c_str(), doctor.output().c_str(),
                        doctor.errors().c_str());
            return 77;
        }
    }
    return tamotest::runTests();
}
