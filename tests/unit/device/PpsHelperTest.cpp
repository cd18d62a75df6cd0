// SPDX-License-Identifier: Apache-2.0
// Over a FIFO, which carries the malformed text that /pps would refuse.
#include "device/PpsHelper.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using tamo::device::detail::PpsHelper;

namespace {

class PpsHelperTest : public testing::Test
{
protected:
    PpsHelperTest()
    {
        const QByteArray name = path.toUtf8();
        EXPECT_EQ(mkfifo(name.constData(), 0600), 0);
        writer = open(name.constData(), O_RDWR | O_CLOEXEC);
        EXPECT_NE(writer, -1);
    }
    ~PpsHelperTest() override { close(writer); }

    void publish(const QByteArray& text)
    {
        EXPECT_EQ(write(writer, text.constData(), static_cast<size_t>(text.size())), text.size());
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("fifo"));
    int writer = -1;
};

TEST_F(PpsHelperTest, RelaysEachPublication)
{
    PpsHelper helper(path);
    QSignalSpy received(&helper, &PpsHelper::received);
    publish("@o\na:n:1\n");
    ASSERT_TRUE(received.wait());
    EXPECT_EQ(received.at(0).at(0).toMap(), (QVariantMap{{"@o", QVariantMap{{"a", 1.0}}}}));
}

TEST_F(PpsHelperTest, RelaysMalformedTextAsAnEmptyMap)
{
    PpsHelper helper(path);
    QSignalSpy received(&helper, &PpsHelper::received);
    publish("malformed");
    ASSERT_TRUE(received.wait());
    ASSERT_EQ(received.count(), 1);
    EXPECT_EQ(received.at(0).at(0).toMap(), QVariantMap());
}

TEST_F(PpsHelperTest, ReadsMalformedTextAsAnEmptyMap)
{
    PpsHelper helper(path);
    publish("@o\na:n:1\n");
    EXPECT_EQ(helper.read(), (QVariantMap{{"@o", QVariantMap{{"a", 1.0}}}}));
    publish("malformed");
    EXPECT_EQ(helper.read(), QVariantMap());
}

TEST_F(PpsHelperTest, ReadsWhatIsNotThereAsAnEmptyMap)
{
    PpsHelper helper(directory.filePath(QStringLiteral("absent")));
    EXPECT_EQ(helper.read(), QVariantMap());
}

} // namespace
