// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <unistd.h>

#include <fstream>
#include <string>

namespace tamotest {
namespace {

class Memory : public PpsTest
{
protected:
    /** The memory of the filesystem's process in KiB. */
    long residentKiB()
    {
        std::ifstream status("/proc/" + std::to_string(filesystem().pid()) + "/status");
        long size = 0;
        for (std::string word; status >> word;) {
            if (word == "VmRSS:")
                status >> size;
        }
        return size;
    }
};

TEST_F(Memory, PublicationsAndVisitsLeaveNoMemoryBehind)
{
    const auto publishAndVisit = [] {
        const PpsDescriptor writer("o");
        const PpsDescriptor reader("o?changes");
        for (int i = 0; i < 2000; ++i) {
            ASSERT_EQ(writer.write("a" + std::to_string(i % 100) + ":n:" + std::to_string(i) +
                                   "\n-a" + std::to_string((i + 50) % 100) + '\n'),
                      0);
            ASSERT_NE(reader.read(), "");
            const std::string visited = "visited" + std::to_string(i);
            ASSERT_EQ(PpsDescriptor(visited).write("a:n:1\n"), 0);
            ASSERT_EQ(unlink(("/pps/" + visited).c_str()), 0);
        }
        PpsDescriptor server("box?serve");
        for (int i = 0; i < 2000; ++i) {
            const PpsDescriptor client("box");
            if (i % 2)
                continue;
            ASSERT_EQ(client.write("a:n:1\n"), 0);
            while (!server.read().empty())
                continue;
        }
    };
    publishAndVisit();
    const long before = residentKiB();
    for (int i = 0; i < 5; ++i)
        publishAndVisit();
    EXPECT_LE(residentKiB(), before + 512);
}

} // namespace
} // namespace tamotest
