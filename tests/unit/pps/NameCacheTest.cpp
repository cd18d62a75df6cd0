// SPDX-License-Identifier: Apache-2.0
#include "pps/NameCache.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

namespace tamo {
namespace {

/** The text of a name that lies in the middle of others. */
QString textOf(const std::string& utf8, char behind = '\0')
{
    const std::string readable = utf8 + '\0' + std::string(NameCache::ReadableSize, behind);
    return NameCache::ofThisThread()->text(readable.c_str());
}

TEST(NameCacheTest, AnswersWithTheSameTextAgain)
{
    const QString first = textOf("StateOfCharge");
    const QString second = textOf("StateOfCharge");
    EXPECT_EQ(first, QStringLiteral("StateOfCharge"));
    EXPECT_EQ(first.constData(), second.constData());
}

TEST(NameCacheTest, TakesANameToEndAtItsZeroWhateverLiesBehind)
{
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string name(length, 'n');
        for (const char behind : {'\0', '\1', 'n', '\x80', '\xff'})
            ASSERT_EQ(textOf(name, behind), QString::fromStdString(name));
    }
}

TEST(NameCacheTest, TellsMoreNamesApartThanItHolds)
{
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 10'000; ++i) {
            const std::string name = "attribute" + std::to_string(i);
            ASSERT_EQ(textOf(name), QString::fromStdString(name));
        }
    }
}

TEST(NameCacheTest, TellsNamesApartThatDifferInOneByteOnly)
{
    for (std::size_t length = 1; length < 40; ++length) {
        const std::string name(length, 'n');
        ASSERT_EQ(textOf(name), QString::fromStdString(name));
        for (std::size_t place = 0; place < length; ++place) {
            std::string other = name;
            other[place] = 'm';
            ASSERT_EQ(textOf(other), QString::fromStdString(other));
            ASSERT_EQ(textOf(name), QString::fromStdString(name));
        }
    }
}

TEST(NameCacheTest, KeepsAByteOrderMarkAtTheBeginning)
{
    const QString expected = QChar(QChar::ByteOrderMark) + QStringLiteral("name");
    EXPECT_EQ(textOf("\xef\xbb\xbfname"), expected);
    EXPECT_EQ(textOf("\xef\xbb\xbfname"), expected);
}

TEST(NameCacheTest, MakesTheEmptyText)
{
    EXPECT_EQ(textOf(""), QString());
}

TEST(NameCacheTest, IsAnotherOneInEachThread)
{
    NameCache* other = nullptr;
    std::thread([&other] { other = NameCache::ofThisThread(); }).join();
    EXPECT_NE(other, nullptr);
    EXPECT_NE(other, NameCache::ofThisThread());
}

TEST(NameCacheTest, HasGoneWhenItsThreadEnds)
{
    struct AsksLate
    {
        NameCache** answer;
        ~AsksLate() { *answer = NameCache::ofThisThread(); }
    };
    NameCache* late = NameCache::ofThisThread();
    std::thread([&late] {
        static thread_local std::unique_ptr<AsksLate> asksLate; // ends after the cache
        asksLate = std::make_unique<AsksLate>(AsksLate{&late});
        ASSERT_NE(NameCache::ofThisThread(), nullptr);
    }).join();
    EXPECT_EQ(late, nullptr);
}

} // namespace
} // namespace tamo
