// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace tamotest {
namespace {

using PublishingP1 = PpsTest;
using PublishingP2 = PpsTest;
using PublishingP3 = PpsTest;
using PublishingP4 = PpsTest;
using PublishingP5 = PpsTest;
using PublishingP6 = PpsTest;

constexpr std::size_t PageSize = 4096;

/** Memory that begins right after, or some bytes after, a page's beginning. */
class PlacedBuffer
{
public:
    PlacedBuffer(std::size_t size, std::size_t offset)
        : m_memory(static_cast<char*>(std::aligned_alloc(PageSize, roundedUp(size + offset))),
                   &std::free)
        , m_offset(offset)
    {
    }
    char* data() { return m_memory.get() + m_offset; }

private:
    static std::size_t roundedUp(std::size_t size)
    {
        return (size + PageSize - 1) / PageSize * PageSize;
    }

    std::unique_ptr<char, void (*)(void*)> m_memory;
    std::size_t m_offset;
};

TEST_F(PublishingP1, AttributesAreMergedInPlace)
{
    const PpsDescriptor object("o");
    ASSERT_EQ(object.write("a:n:1\nb:n:1\nc:n:1\n"), 0);
    ASSERT_EQ(object.write("d:n:2\nb::two\n-a\n-unknown\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\nb::two\nc:n:1\nd:n:2\n");
}

TEST_F(PublishingP1, MalformedLineChangesNothing)
{
    const PpsDescriptor reader("o");
    const PpsDescriptor writer("o");
    ASSERT_EQ(writer.write("a:n:1\n"), 0);
    EXPECT_EQ(reader.read(), "@o\na:n:1\n");
    EXPECT_EQ(writer.write("a:n:2\nb:n:2\n-a\nc:n:x\n"), EINVAL);
    EXPECT_FALSE(reader.isReadable());
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\n");
}

TEST_F(PublishingP2, HeadingIsOptional)
{
    const PpsDescriptor object("o");
    EXPECT_EQ(object.write("@o\na:n:1\n"), 0);
    EXPECT_EQ(object.write("b:n:1\n@o\nc:n:1\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:1\nc:n:1\n");
}

TEST_F(PublishingP2, AnotherObjectsNameIsRefused)
{
    const PpsDescriptor object("o");
    for (const char* const text : {"@p\na:n:1\n", "a:n:1\n@o.1\n", "@oo\n", "-@o\n", "+@o.1\n"})
        EXPECT_EQ(object.write(text), EINVAL) << text;
    EXPECT_EQ(contentOf("o"), "");
}

TEST_F(PublishingP2, HeadingAlonePublishes)
{
    const PpsDescriptor object("o");
    EXPECT_EQ(contentOf("o"), "");
    EXPECT_EQ(object.write("@o\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\n");
    EXPECT_EQ(object.write("a:n:1\n"), 0);
    EXPECT_EQ(object.write("@o\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\n");
}

TEST_F(PublishingP3, TruncationReplacesWithTheNextWrite)
{
    publish("o", "a:n:1\nb:n:1\n");
    const PpsDescriptor reader("o?changes", O_RDONLY);
    EXPECT_EQ(reader.read(), "@o\na:n:1\nb:n:1\n");
    const PpsDescriptor writer("o", O_WRONLY | O_TRUNC);
    EXPECT_FALSE(reader.isReadable());
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:1\n");
    EXPECT_EQ(writer.write("c:n:x\n"), EINVAL);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:1\n");
    EXPECT_EQ(writer.write("c:n:2\nb:n:2\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\nc:n:2\nb:n:2\n");
    EXPECT_EQ(reader.read(), "@o\n-a\nc:n:2\nb:n:2\n");
    EXPECT_FALSE(reader.isReadable());
    EXPECT_EQ(writer.write("d:n:3\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\nc:n:2\nb:n:2\nd:n:3\n");
}

TEST_F(PublishingP3, FtruncateToZeroDoesTheSame)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor writer("o");
    ASSERT_EQ(ftruncate(writer.get(), 0), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\n");
    EXPECT_EQ(writer.write("b:n:1\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\nb:n:1\n");
}

TEST_F(PublishingP3, OtherTruncationIsRefused)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor writer("o");
    EXPECT_EQ(ftruncate(writer.get(), 1), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(truncate("/pps/o", 0), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(writer.write("b:n:1\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:1\n");
}

TEST_F(PublishingP4, TheLimitHoldsToTheByte)
{
    const PpsDescriptor object("o");
    const std::string longest = textOfSize("o", MaxText);
    EXPECT_EQ(object.write(textOfSize("o", MaxText + 1)), EFBIG);
    EXPECT_EQ(contentOf("o"), "");
    ASSERT_EQ(object.write(longest), 0);
    EXPECT_EQ(contentOf("o"), longest);
    EXPECT_EQ(object.write("p::\n"), EFBIG);
    EXPECT_EQ(object.write("pad::short\nmore" + longest), EFBIG);
    EXPECT_EQ(contentOf("o"), longest);
    EXPECT_EQ(object.write("-pad\nb:n:1\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\nb:n:1\n");
}

TEST_F(PublishingP4, TheHeadingCountsWhetherOrNotItIsWritten)
{
    const PpsDescriptor object("o");
    const std::string attributes = textOfSize("o", MaxText).substr(3);
    EXPECT_EQ(object.write('b' + attributes), EFBIG);
    EXPECT_EQ(object.write(attributes), 0);
}

TEST_F(PublishingP4, TheLongestTextGoesThroughBuffersAtAnyAddress)
{
    const PpsDescriptor object("o?wait");
    const PpsDescriptor reader("o", O_RDONLY);
    const std::string longest = textOfSize("o", MaxText);
    for (const std::size_t offset : {0U, 1U, 2047U, 4095U}) {
        PlacedBuffer from(MaxText, offset);
        std::memcpy(from.data(), longest.data(), MaxText);
        ASSERT_EQ(write(object.get(), from.data(), MaxText), static_cast<ssize_t>(MaxText));
        const std::size_t room = 1 << 20;
        PlacedBuffer to(room, offset);
        ASSERT_EQ(read(reader.get(), to.data(), room), static_cast<ssize_t>(MaxText)) << offset;
        EXPECT_EQ(std::memcmp(to.data(), longest.data(), MaxText), 0);
        EXPECT_EQ(read(reader.get(), to.data(), room), 0);
    }
}

TEST_F(PublishingP4, NoPartOfALongWriteIsPublished)
{
    publish("o", "a:n:1\n");
    // Of whole lines, so that every part of it would be well formed.
    std::string text;
    while (text.size() < 3 << 20)
        text += "b:n:2\n";
    for (const int flags : {O_WRONLY, O_WRONLY | O_APPEND, O_WRONLY | O_TRUNC}) {
        const PpsDescriptor writer("o", flags);
        for (const std::size_t offset : {0U, 1U}) {
            PlacedBuffer from(text.size(), offset);
            std::memcpy(from.data(), text.data(), text.size());
            EXPECT_EQ(write(writer.get(), from.data(), text.size()), -1);
            EXPECT_EQ(errno, EFBIG);
        }
        EXPECT_EQ(contentOf("o"), "@o\na:n:1\n");
    }
}

TEST_F(PublishingP1, PiecesOfOneWriteAreOneText)
{
    const PpsDescriptor object("o");
    std::string pieces[] = {"a:", "n:", "1\nb:n", ":2\n"};
    std::vector<iovec> vector;
    for (std::string& piece : pieces)
        vector.push_back({piece.data(), piece.size()});
    EXPECT_EQ(writev(object.get(), vector.data(), static_cast<int>(vector.size())), 12);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:2\n");
}

TEST_F(PublishingP1, MorePiecesThanTheKernelHandsOverAreAShortWrite)
{
    const PpsDescriptor object("o", O_WRONLY | O_CREAT);
    std::string line = "a:n:1\n";
    const std::vector<iovec> vector(300, iovec{line.data(), line.size()});
    EXPECT_EQ(writev(object.get(), vector.data(), 300), 256 * 6);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\n");
}

TEST_F(PublishingP1, UnderAppendTheOtherPiecesAreAWriteOfTheirOwn)
{
    const PpsDescriptor object("o", O_WRONLY | O_CREAT | O_APPEND);
    std::string first = "a:n:1\n";
    std::string second = "b:n:2\n";
    std::vector<iovec> vector(256, iovec{first.data(), first.size()});
    vector.resize(300, iovec{second.data(), second.size()});
    EXPECT_EQ(writev(object.get(), vector.data(), 300), 300 * 6);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:2\n");
}

TEST_F(PublishingP1, AppendingDescriptorsPublishLikeOthers)
{
    const PpsDescriptor object("o", O_WRONLY | O_CREAT | O_APPEND);
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(object.write("a:n:" + std::to_string(i) + "\nb::x\n"), 0);
    EXPECT_EQ(PpsDescriptor("o", O_WRONLY | O_APPEND).write("c:n:1\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:4\nb::x\nc:n:1\n");
}

TEST_F(PublishingP5, EveryWriteIsAPublication)
{
    const PpsDescriptor reader("o");
    const PpsDescriptor writer("o");
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(writer.write("a:n:1\n"), 0);
        EXPECT_TRUE(reader.isReadable());
        EXPECT_EQ(reader.read(), "@o\na:n:1\n");
    }
    EXPECT_EQ(writer.write("-unknown\n"), 0);
    EXPECT_EQ(reader.read(), "@o\na:n:1\n");
}

TEST_F(PublishingP6, ObjectsOutliveTheirPublishers)
{
    EXPECT_EQ(inChild([] { return PpsDescriptor("o").write("a:n:1\n"); }), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\n");
    EXPECT_EQ(unlink("/pps/o"), 0);
    EXPECT_EQ(PpsDescriptor("o", O_RDONLY).error(), ENOENT);
}

} // namespace
} // namespace tamotest
