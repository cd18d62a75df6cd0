// SPDX-License-Identifier: Apache-2.0
// What the channels of both services have in common, and the paths of one. The other's default
// channel has fixed paths and is tried over a real /pps, in tests/system/library.
#include <tamo/Exception.h>
#include <tamo/device/Led.h>
#include <tamo/platform/Notification.h>
#include <tamomock/LedPpsChannel.h>
#include <tamomock/NotificationPpsChannel.h>

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using tamo::device::Led;
using tamo::platform::Notification;
using tamomock::LedPpsChannel;
using tamomock::NotificationPpsChannel;

namespace {

void deleteTheDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/** Runs functions in threads of Qt's, each in one, to their ends. */
void runInThreads(const std::vector<std::function<void()>>& functions)
{
    std::vector<std::unique_ptr<QThread>> threads;
    for (const auto& function : functions) {
        threads.emplace_back(QThread::create(function));
        threads.back()->start();
    }
    for (const auto& thread : threads)
        EXPECT_TRUE(thread->wait(60'000));
}

struct LedKind
{
    using Channel = LedPpsChannel;
    using User = Led;
};

struct NotificationKind
{
    using Channel = NotificationPpsChannel;
    using User = Notification;
};

template<class Kind>
class InstalledChannelTest : public testing::Test
{
protected:
    ~InstalledChannelTest() override { Kind::Channel::resetChannel(); }

    static QSharedPointer<typename Kind::Channel> make()
    {
        return QSharedPointer<typename Kind::Channel>::create(typename Kind::Channel::WithoutPps());
    }
};

using Kinds = testing::Types<LedKind, NotificationKind>;
TYPED_TEST_SUITE(InstalledChannelTest, Kinds, );

TYPED_TEST(InstalledChannelTest, IsCurrentWhileSomebodyHoldsIt)
{
    using Channel = typename TypeParam::Channel;
    auto channel = this->make();
    Channel::setChannel(channel);
    EXPECT_EQ(Channel::channel(), channel);
    {
        const typename TypeParam::User user;
        const QPointer<Channel> watched = channel.data();
        channel.reset();
        EXPECT_FALSE(watched.isNull());
        EXPECT_EQ(Channel::channel().data(), watched.data());
    }
    // A default one, which nothing here can open.
    EXPECT_THROW(Channel::channel(), tamo::Exception);
}

TYPED_TEST(InstalledChannelTest, UsersKeepTheirsWhenItIsReplaced)
{
    using Channel = typename TypeParam::Channel;
    auto first = this->make();
    const auto second = this->make();
    const QPointer<Channel> watched = first.data();
    Channel::setChannel(first);
    {
        typename TypeParam::User user;
        Channel::setChannel(second);
        first.reset();
        EXPECT_FALSE(watched.isNull());
        EXPECT_EQ(Channel::channel(), second);
    }
    EXPECT_TRUE(watched.isNull());
}

TYPED_TEST(InstalledChannelTest, IsNotDeletedUnderItsHoldersByAReset)
{
    using Channel = typename TypeParam::Channel;
    int deletions = 0;
    auto channel = this->make();
    QObject::connect(channel.data(), &QObject::destroyed, [&deletions] { ++deletions; });
    Channel::setChannel(channel);
    auto user = std::make_unique<typename TypeParam::User>();
    Channel::resetChannel();
    EXPECT_THROW(Channel::channel(), tamo::Exception);
    QCoreApplication::processEvents();
    deleteTheDeferred();
    ASSERT_EQ(deletions, 0);

    QSignalSpy sent(channel.data(), &Channel::sendPassthrough);
    QMetaObject::invokeMethod(user.get(),
                              std::is_same_v<Channel, LedPpsChannel> ? "flash" : "notify");
    EXPECT_EQ(sent.count(), 1);
    channel.reset();
    EXPECT_EQ(deletions, 0);
    user.reset();
    deleteTheDeferred();
    EXPECT_EQ(deletions, 1);
}

TYPED_TEST(InstalledChannelTest, IsDeletedOnceByItsHolderAfterAReset)
{
    using Channel = typename TypeParam::Channel;
    int deletions = 0;
    for (const bool isLater : {true, false}) {
        deletions = 0;
        auto channel = isLater
                           ? QSharedPointer<Channel>(new Channel(typename Channel::WithoutPps()),
                                                     &QObject::deleteLater)
                           : this->make();
        QObject::connect(channel.data(), &QObject::destroyed, [&deletions] { ++deletions; });
        Channel::setChannel(channel);
        Channel::resetChannel();
        Channel::resetChannel();
        channel.reset();
        deleteTheDeferred();
        EXPECT_EQ(deletions, 1);
    }
}

TYPED_TEST(InstalledChannelTest, ResetWithoutOneAndNullDoNothing)
{
    using Channel = typename TypeParam::Channel;
    Channel::resetChannel();
    Channel::setChannel({});
    EXPECT_THROW(Channel::channel(), tamo::Exception);
    const auto channel = this->make();
    Channel::setChannel(channel);
    Channel::setChannel({});
    EXPECT_THROW(Channel::channel(), tamo::Exception);
}

TYPED_TEST(InstalledChannelTest, UserWhoseChannelCannotBeMadeIsNotMade)
{
    QObject parent;
    EXPECT_THROW(typename TypeParam::User{&parent}, tamo::Exception);
    EXPECT_TRUE(parent.children().isEmpty());
}

/** With a file in place of the PPS object: what is written is in it, and it can always be read. */
class NotificationPpsChannelTest : public testing::Test
{
protected:
    NotificationPpsChannelTest()
    {
        for (const QString& path : {fifo, otherFifo})
            EXPECT_EQ(mkfifo(path.toUtf8().constData(), 0600), 0);
        NotificationPpsChannel::setPath(fifo);
    }
    ~NotificationPpsChannelTest() override
    {
        deleteTheDeferred();
        NotificationPpsChannel::resetPath();
    }

    QTemporaryDir directory;
    const QString fifo = directory.filePath("control");
    const QString otherFifo = directory.filePath("other");
};

TEST_F(NotificationPpsChannelTest, PathIsSetAndReset)
{
    EXPECT_EQ(NotificationPpsChannel::path(), fifo);
    NotificationPpsChannel::resetPath();
    EXPECT_EQ(NotificationPpsChannel::path(), "/pps/services/notification/control");
    NotificationPpsChannel::setPath(otherFifo);
    NotificationPpsChannel::setPath(QString());
    EXPECT_EQ(NotificationPpsChannel::path(), "/pps/services/notification/control");
}

TEST_F(NotificationPpsChannelTest, UsersShareOneAndTheNextAfterThemGetsANewOne)
{
    QPointer<NotificationPpsChannel> channel;
    {
        const Notification one;
        const Notification other;
        channel = NotificationPpsChannel::channel().data();
    }
    ASSERT_FALSE(channel.isNull());
    // It is not current any more, also before the event loop has deleted it.
    const Notification early;
    EXPECT_NE(NotificationPpsChannel::channel().data(), channel.data());
    deleteTheDeferred();
    EXPECT_TRUE(channel.isNull());
}

/** Whether a notification's channel writes to a FIFO. */
bool writesTo(const QString& path, Notification& notification)
{
    const int descriptor = open(path.toUtf8().constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    notification.notify();
    char byte = 0;
    const bool isWritten = read(descriptor, &byte, 1) == 1;
    close(descriptor);
    return isWritten;
}

TEST_F(NotificationPpsChannelTest, PathIsThatOfTheChannelsMadeLater)
{
    auto first = std::make_unique<Notification>();
    NotificationPpsChannel::setPath(otherFifo);
    Notification sharing;
    EXPECT_TRUE(writesTo(fifo, sharing));
    NotificationPpsChannel::resetChannel();
    Notification second;
    EXPECT_TRUE(writesTo(otherFifo, second));
}

TEST_F(NotificationPpsChannelTest, ConcurrentFirstUsersGetOne)
{
    for (int turn = 0; turn < 20; ++turn) {
        std::array<QSharedPointer<NotificationPpsChannel>, 4> channels;
        std::vector<std::function<void()>> users;
        for (auto& channel : channels)
            users.emplace_back([&channel] { channel = NotificationPpsChannel::channel(); });
        runInThreads(users);
        for (const auto& channel : channels)
            EXPECT_EQ(channel, channels[0]);
    }
}

TEST_F(NotificationPpsChannelTest, MovesToTheApplicationsThreadWhenItsOwnEnds)
{
    QSharedPointer<NotificationPpsChannel> channel;
    runInThreads({[&channel] { channel = NotificationPpsChannel::channel(); }});
    const QPointer<NotificationPpsChannel> watched = channel.data();
    EXPECT_EQ(channel->thread(), QCoreApplication::instance()->thread());

    // It sends, receives, and is deleted there.
    auto notification = std::make_unique<Notification>();
    EXPECT_EQ(NotificationPpsChannel::channel(), channel);
    QSignalSpy received(channel.data(), &NotificationPpsChannel::receivePassthrough);
    notification->notify(); // the FIFO holds it then, for the channel itself to read
    EXPECT_TRUE(received.wait());
    channel.reset();
    notification.reset();
    EXPECT_FALSE(watched.isNull());
    EXPECT_TRUE(QTest::qWaitFor([&watched] {
        deleteTheDeferred();
        return watched.isNull();
    }));
}

TEST_F(NotificationPpsChannelTest, LastUserMayBeInAnotherThread)
{
    auto channel = NotificationPpsChannel::channel();
    const QPointer<NotificationPpsChannel> watched = channel.data();
    runInThreads({[&channel] { channel.reset(); }});
    EXPECT_FALSE(watched.isNull());
    deleteTheDeferred();
    EXPECT_TRUE(watched.isNull());
}

TEST_F(NotificationPpsChannelTest, UsersComeAndGoInManyThreads)
{
    const auto comeAndGo = [] {
        for (int turn = 0; turn < 50; ++turn) {
            const auto channel = NotificationPpsChannel::channel();
            EXPECT_FALSE(channel.isNull());
            if (turn % 10 == 0)
                NotificationPpsChannel::resetChannel();
        }
    };
    runInThreads({comeAndGo, comeAndGo, comeAndGo});
    deleteTheDeferred();
    EXPECT_FALSE(NotificationPpsChannel::channel().isNull());
}

TEST_F(NotificationPpsChannelTest, WithoutItsObjectThereIsNone)
{
    NotificationPpsChannel::setPath(directory.filePath("absent"));
    EXPECT_THROW(NotificationPpsChannel::channel(), tamo::Exception);
    EXPECT_THROW(Notification(), tamo::Exception);
    NotificationPpsChannel::setPath(fifo);
    EXPECT_NO_THROW(Notification());
}

} // namespace
