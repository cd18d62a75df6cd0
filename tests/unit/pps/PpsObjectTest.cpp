// SPDX-License-Identifier: Apache-2.0
#include "SubstituteSystem.h"

#include <cerrno>
#include <fcntl.h>
#include <vector>

using tamo::PpsObject;
using tamotest::Fail;
using tamotest::Message;
using tamotest::SubstitutedObject;
using testing::_;
using testing::AtLeast;
using testing::InSequence;
using testing::Invoke;
using testing::Return;
using testing::StrEq;

namespace {

constexpr int descriptor = 7;

class PpsObjectTest : public testing::Test
{
protected:
    PpsObjectTest() : object(std::make_unique<SubstitutedObject>()), system(object->system) {}

    std::unique_ptr<SubstitutedObject> object;
    tamotest::SubstituteSystem& system;
};

TEST_F(PpsObjectTest, IsClosedWithoutErrorAtFirst)
{
    EXPECT_CALL(system, open).Times(0);
    EXPECT_FALSE(object->isOpen());
    EXPECT_EQ(object->error(), 0);
    EXPECT_TRUE(object->isReadyReadEnabled());
}

struct Mode
{
    PpsObject::OpenMode mode;
    int flags;
};

class OpenFlags : public testing::TestWithParam<Mode>
{
};

TEST_P(OpenFlags, AreThoseOfTheMode)
{
    SubstitutedObject object(QStringLiteral("/pps/\u00e9?wait"));
    EXPECT_CALL(object.system, open(StrEq("/pps/\xc3\xa9?wait"), GetParam().flags, 0666))
        .WillOnce(Return(descriptor));
    EXPECT_TRUE(object.open(GetParam().mode));
}

INSTANTIATE_TEST_SUITE_P(
    PpsObjectTest, OpenFlags,
    testing::Values(Mode{PpsObject::OpenMode(), O_RDONLY}, Mode{PpsObject::Subscribe, O_RDONLY},
                    Mode{PpsObject::Publish, O_WRONLY},
                    Mode{PpsObject::Publish | PpsObject::Subscribe, O_RDWR},
                    Mode{PpsObject::Create, O_RDONLY | O_CREAT | O_EXCL},
                    Mode{PpsObject::Truncate, O_RDONLY | O_TRUNC},
                    Mode{PpsObject::Publish | PpsObject::Create | PpsObject::Truncate,
                         O_WRONLY | O_CREAT | O_EXCL | O_TRUNC},
                    Mode{PpsObject::Publish | PpsObject::Subscribe | PpsObject::Create |
                             PpsObject::Truncate,
                         O_RDWR | O_CREAT | O_EXCL | O_TRUNC}));

TEST_F(PpsObjectTest, OpenMakesANotifierAndConnectsIt)
{
    EXPECT_CALL(system, open).WillOnce(Return(descriptor));
    {
        const InSequence inThisOrder;
        EXPECT_CALL(system, createNotifier(descriptor, QSocketNotifier::Read));
        EXPECT_CALL(system, setNotifierEnabled(true));
        EXPECT_CALL(system, connect(StrEq("2activated(int)"), object.get(), StrEq("2readyRead()")));
    }
    EXPECT_TRUE(object->open(PpsObject::Subscribe));
    EXPECT_TRUE(object->isOpen());
    EXPECT_EQ(object->error(), 0);
}

TEST_F(PpsObjectTest, FailedOpenTellsWhyAndLeavesItClosed)
{
    EXPECT_CALL(system, open).WillOnce(Fail(&system, ENOENT));
    EXPECT_CALL(system, createNotifier).Times(0);
    EXPECT_FALSE(object->open(PpsObject::Subscribe));
    EXPECT_EQ(object->error(), ENOENT);
    EXPECT_FALSE(object->isOpen());
}

TEST_F(PpsObjectTest, OpenOfAnOpenObjectIsRefusedAndKeepsTheDescriptor)
{
    EXPECT_CALL(system, open).WillOnce(Return(descriptor));
    ASSERT_TRUE(object->open(PpsObject::Publish));
    EXPECT_CALL(system, close).Times(0);
    EXPECT_FALSE(object->open(PpsObject::Publish));
    EXPECT_EQ(object->error(), EBUSY);
    EXPECT_TRUE(object->isOpen());
    EXPECT_CALL(system, write(descriptor, _, 1)).WillOnce(Return(1));
    EXPECT_EQ(object->write("x"), 1);
    EXPECT_CALL(system, close(descriptor));
}

TEST_F(PpsObjectTest, DisabledReadyReadLeavesTheNotifierDisabledFromTheStart)
{
    object->setReadyReadEnabled(false);
    EXPECT_FALSE(object->isReadyReadEnabled());
    EXPECT_CALL(system, setNotifierEnabled(true)).Times(0);
    EXPECT_CALL(system, setNotifierEnabled(false));
    object->openAs(descriptor);
}

TEST_F(PpsObjectTest, ReadyReadFlagReachesTheNotifierOfAnOpenObjectAlone)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, setNotifierEnabled(false));
    object->setReadyReadEnabled(false);
    ASSERT_TRUE(object->close());
    EXPECT_CALL(system, setNotifierEnabled).Times(0);
    object->setReadyReadEnabled(true);
    object->setReadyReadEnabled(false);
    EXPECT_CALL(system, setNotifierEnabled(false));
    object->openAs(descriptor);
}

TEST_F(PpsObjectTest, ReadyReadFlagLeavesTheErrorAsItIs)
{
    object->close();
    ASSERT_EQ(object->error(), EBADF);
    object->setReadyReadEnabled(false);
    EXPECT_FALSE(object->isReadyReadEnabled());
    EXPECT_FALSE(object->isOpen());
    EXPECT_EQ(object->error(), EBADF);
}

TEST_F(PpsObjectTest, CloseDeletesTheNotifierBeforeTheDescriptor)
{
    object->openAs(descriptor);
    {
        const InSequence inThisOrder;
        EXPECT_CALL(system, deleteNotifier);
        EXPECT_CALL(system, close(descriptor)).WillOnce(Return(0));
    }
    EXPECT_TRUE(object->close());
    EXPECT_FALSE(object->isOpen());
    EXPECT_EQ(object->error(), 0);
}

TEST_F(PpsObjectTest, FailedCloseTellsWhyAndClosesNevertheless)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, close(descriptor)).WillOnce(Fail(&system, EIO));
    EXPECT_FALSE(object->close());
    EXPECT_EQ(object->error(), EIO);
    EXPECT_FALSE(object->isOpen());
}

TEST_F(PpsObjectTest, DestructionClosesAnOpenObjectOnce)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, close(descriptor)).Times(1);
    object.reset();
}

TEST_F(PpsObjectTest, DestructionOfAClosedObjectClosesNothing)
{
    EXPECT_CALL(system, close).Times(0);
    object.reset();
}

TEST_F(PpsObjectTest, OperationsOfAClosedObjectFailWithoutASystemCall)
{
    EXPECT_CALL(system, read).Times(0);
    EXPECT_CALL(system, write).Times(0);
    EXPECT_CALL(system, close).Times(0);
    EXPECT_CALL(system, fcntl(_, _)).Times(0);
    QByteArray data("untouched");

    EXPECT_FALSE(object->close());
    EXPECT_EQ(object->error(), EBADF);
    EXPECT_TRUE(object->remove());
    EXPECT_FALSE(object->read(data));
    EXPECT_EQ(object->error(), EBADF);
    EXPECT_EQ(data, "untouched");
    EXPECT_TRUE(object->remove());
    EXPECT_EQ(object->write("x"), -1);
    EXPECT_EQ(object->error(), EBADF);
    EXPECT_TRUE(object->remove());
    EXPECT_FALSE(object->setBlocking(true));
    EXPECT_EQ(object->error(), EBADF);
    EXPECT_TRUE(object->remove());
    EXPECT_FALSE(object->isBlocking());
    EXPECT_EQ(object->error(), EBADF);
}

TEST_F(PpsObjectTest, LongMessageIsReadWithDoublingBuffers)
{
    object->openAs(descriptor);
    const QByteArray message(5000, 'm');
    std::vector<size_t> sizes;
    EXPECT_CALL(system, read(descriptor, _, _))
        .Times(4)
        .WillRepeatedly(testing::DoAll(Invoke([&sizes](int, void*, size_t size) -> ssize_t {
                                           sizes.push_back(size);
                                           return 0;
                                       }),
                                       Message(&system, message)));
    QByteArray data("before");
    EXPECT_TRUE(object->read(data));
    EXPECT_EQ(data, message);
    EXPECT_EQ(object->error(), 0);
    EXPECT_THAT(sizes, testing::ElementsAre(1024, 2048, 4096, 8192));
}

TEST_F(PpsObjectTest, MessageIsReadHoweverLongItIs)
{
    object->openAs(descriptor);
    const QByteArray message(40 << 20, 'm');
    EXPECT_CALL(system, read).WillRepeatedly(Message(&system, message));
    QByteArray data;
    EXPECT_TRUE(object->read(data));
    EXPECT_EQ(data, message);
}

TEST_F(PpsObjectTest, MessageThatNoBufferHoldsFails)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, read).WillRepeatedly(Fail(&system, EMSGSIZE));
    QByteArray data("before");
    EXPECT_FALSE(object->read(data));
    EXPECT_TRUE(data.isEmpty());
    EXPECT_THAT(object->error(), testing::AnyOf(EMSGSIZE, ENOMEM));
    EXPECT_TRUE(object->isOpen());
}

TEST_F(PpsObjectTest, ReadOfNothingFails)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, read).WillOnce(Return(0));
    QByteArray data("before");
    EXPECT_FALSE(object->read(data));
    EXPECT_EQ(object->error(), EAGAIN);
    EXPECT_TRUE(data.isEmpty());
}

TEST_F(PpsObjectTest, FailedReadTellsWhyAndIsNotRepeated)
{
    object->openAs(descriptor);
    for (const int error : {EIO, EAGAIN, EINTR, ENOTCONN}) {
        EXPECT_CALL(system, read).WillOnce(Fail(&system, error));
        QByteArray data("before");
        EXPECT_FALSE(object->read(data));
        EXPECT_EQ(object->error(), error);
        EXPECT_TRUE(data.isEmpty());
    }
}

TEST_F(PpsObjectTest, FailureAfterALargerBufferTellsWhy)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, read).WillOnce(Fail(&system, EMSGSIZE)).WillOnce(Fail(&system, EINTR));
    QByteArray data;
    EXPECT_FALSE(object->read(data));
    EXPECT_EQ(object->error(), EINTR);
    EXPECT_TRUE(data.isEmpty());
}

TEST_F(PpsObjectTest, ReadLeavesACopyOfTheArrayAlone)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, read).WillOnce(Message(&system, QByteArray("new")));
    QByteArray data("old");
    const QByteArray copy = data;
    EXPECT_TRUE(object->read(data));
    EXPECT_EQ(data, "new");
    EXPECT_EQ(copy, "old");
}

TEST_F(PpsObjectTest, WriteHandsOverTheWholeArrayAndReturnsTheCount)
{
    object->openAs(descriptor);
    const QByteArray message("a::b\0c", 6);
    QByteArray written;
    EXPECT_CALL(system, write(descriptor, _, 6))
        .WillOnce(Invoke([&written](int, const void* bytes, size_t size) {
            written = QByteArray(static_cast<const char*>(bytes), static_cast<int>(size));
            return 4;
        }));
    EXPECT_EQ(object->write(message), 4);
    EXPECT_EQ(written, message);
    EXPECT_EQ(object->error(), 0);
}

TEST_F(PpsObjectTest, FailedWriteTellsWhy)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, write).WillOnce(Fail(&system, EPIPE));
    EXPECT_EQ(object->write("x"), -1);
    EXPECT_EQ(object->error(), EPIPE);
}

TEST_F(PpsObjectTest, RemoveUnlinksThePathOpenOrClosed)
{
    EXPECT_CALL(system, unlink(StrEq("/pps/object"))).Times(2).WillRepeatedly(Return(0));
    EXPECT_TRUE(object->remove());
    object->openAs(descriptor);
    EXPECT_TRUE(object->remove());
    EXPECT_TRUE(object->isOpen());
    EXPECT_EQ(object->error(), 0);
}

TEST_F(PpsObjectTest, FailedRemoveTellsWhy)
{
    EXPECT_CALL(system, unlink).WillOnce(Fail(&system, EACCES));
    EXPECT_FALSE(object->remove());
    EXPECT_EQ(object->error(), EACCES);
}

TEST_F(PpsObjectTest, BlockingModeChangesOneFlagOfTheDescriptor)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, fcntl(descriptor, F_GETFL)).WillOnce(Return(O_RDWR | O_APPEND));
    EXPECT_CALL(system, fcntl(descriptor, F_SETFL, O_RDWR | O_APPEND | O_NONBLOCK))
        .WillOnce(Return(0));
    EXPECT_TRUE(object->setBlocking(false));
    EXPECT_CALL(system, fcntl(descriptor, F_GETFL))
        .WillOnce(Return(O_RDWR | O_APPEND | O_NONBLOCK));
    EXPECT_CALL(system, fcntl(descriptor, F_SETFL, O_RDWR | O_APPEND)).WillOnce(Return(0));
    EXPECT_TRUE(object->setBlocking(true));
    EXPECT_EQ(object->error(), 0);
}

TEST_F(PpsObjectTest, BlockingModeIsReadFromTheDescriptor)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, fcntl(descriptor, F_GETFL))
        .WillOnce(Return(O_RDWR))
        .WillOnce(Return(O_RDWR | O_NONBLOCK));
    EXPECT_TRUE(object->isBlocking());
    EXPECT_FALSE(object->isBlocking());
    EXPECT_EQ(object->error(), 0);
}

TEST_F(PpsObjectTest, FailedChangeOfTheBlockingModeTellsWhy)
{
    object->openAs(descriptor);
    EXPECT_CALL(system, fcntl(descriptor, F_GETFL))
        .WillOnce(Fail(&system, EIO))
        .WillOnce(Return(O_RDWR))
        .WillOnce(Fail(&system, ENOTCONN));
    EXPECT_FALSE(object->setBlocking(false));
    EXPECT_EQ(object->error(), EIO);
    EXPECT_CALL(system, fcntl(descriptor, F_SETFL, _)).WillOnce(Fail(&system, EPERM));
    EXPECT_FALSE(object->setBlocking(false));
    EXPECT_EQ(object->error(), EPERM);
    EXPECT_FALSE(object->isBlocking());
    EXPECT_EQ(object->error(), ENOTCONN);
}

TEST_F(PpsObjectTest, EachOperationForgetsTheErrorBefore)
{
    object->openAs(descriptor);
    const auto provoke = [this] {
        EXPECT_FALSE(object->open(PpsObject::Subscribe));
        EXPECT_EQ(object->error(), EBUSY);
    };
    ON_CALL(system, read).WillByDefault(Return(1));
    QByteArray data;
    provoke();
    object->read(data);
    EXPECT_EQ(object->error(), 0);
    provoke();
    object->write("x");
    EXPECT_EQ(object->error(), 0);
    provoke();
    object->setBlocking(true);
    EXPECT_EQ(object->error(), 0);
    provoke();
    object->isBlocking();
    EXPECT_EQ(object->error(), 0);
    provoke();
    object->remove();
    EXPECT_EQ(object->error(), 0);
    provoke();
    object->close();
    EXPECT_EQ(object->error(), 0);
}

TEST_F(PpsObjectTest, PathThatIsNoFileNameIsRefused)
{
    for (const QString& path :
         {QStringLiteral("/pps/a") + QChar(0) + QLatin1Char('b'),
          QStringLiteral("/pps/") + QChar(0xd800), QStringLiteral("/pps/") + QChar(0xdc00)}) {
        SubstitutedObject strange(path);
        EXPECT_CALL(strange.system, open).Times(0);
        EXPECT_CALL(strange.system, unlink).Times(0);
        EXPECT_FALSE(strange.open(PpsObject::Subscribe));
        EXPECT_EQ(strange.error(), EINVAL);
        EXPECT_FALSE(strange.remove());
        EXPECT_EQ(strange.error(), EINVAL);
    }
}

} // namespace
