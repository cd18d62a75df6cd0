// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <random>
#include <string>
#include <vector>

namespace tamotest {
namespace {

using RandomInput = PpsTest;

/** Pieces that are nearly text, so that many combinations come far. */
const char* const Pieces[] = {"@o",       "@box",    ".1",        "\n",
                              ":",        "n:",      "b:",        "json:",
                              "-",        "+",       "true",      "1",
                              "1e400",    "{\"a\":", "[",         "]",
                              "}",        "null",    "\\n",       "\\",
                              "\xc3\xa4", "\xff",    "\r",        "name",
                              "a:n:1\n",  "-a\n",    "s::text\n", "j:json:[{}]\n",
                              "@o\n",     "@box.2\n"};

class Generator
{
public:
    explicit Generator(unsigned seed) : m_engine(seed) {}

    std::size_t below(std::size_t limit)
    {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_engine);
    }

    std::string text()
    {
        std::string text;
        for (std::size_t pieces = below(12); pieces > 0; --pieces)
            text += below(20) == 0 ? std::string(1, static_cast<char>(below(256)))
                                   : Pieces[below(std::size(Pieces))];
        return text;
    }

private:
    std::mt19937 m_engine;
};

TEST_F(RandomInput, DoesNoHarm)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    Generator random(seed);
    const char* const names[] = {"o",          "o?wait",   "o?changes", "o?serve",
                                 "box",        "box?wait", "box?serve", "box?changes",
                                 "o?nonsense", "d/o",      "d"};
    std::vector<PpsDescriptor> open;
    for (int i = 0; i < 20'000; ++i) {
        const std::string name = names[random.below(std::size(names))];
        switch (random.below(12)) {
        case 0:
            open.emplace_back(name, O_RDWR | O_NONBLOCK | (random.below(2) ? O_CREAT : 0) |
                                        (random.below(4) ? 0 : O_TRUNC));
            if (open.back().error())
                open.pop_back();
            break;
        case 1:
            if (!open.empty() && (random.below(3) == 0 || open.size() > 40)) {
                std::swap(open[random.below(open.size())], open.back());
                open.pop_back();
            }
            break;
        case 2:
            if (random.below(10) == 0)
                unlink(("/pps/" + name).c_str());
            break;
        case 3:
            random.below(2) ? mkdir("/pps/d", 0755) : rmdir("/pps/d");
            break;
        case 4:
        case 5:
        case 6:
        case 7:
            if (!open.empty())
                open[random.below(open.size())].write(random.text());
            break;
        default:
            if (!open.empty()) {
                const PpsDescriptor& descriptor = open[random.below(open.size())];
                const short events = descriptor.events();
                ASSERT_EQ(events & (POLLERR | POLLHUP | POLLNVAL), 0);
                const ReadResult result = descriptor.tryRead();
                ASSERT_EQ((events & POLLIN) != 0, !result.text.empty());
            }
        }
    }
    ASSERT_EQ(kill(filesystem().pid(), 0), 0);
    open.clear();
    publish("alive", "a:n:1\n");
    EXPECT_EQ(contentOf("alive"), "@alive\na:n:1\n");
}

} // namespace
} // namespace tamotest
