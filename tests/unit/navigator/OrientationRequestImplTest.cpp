// SPDX-License-Identifier: Apache-2.0
#include "navigator/OrientationRequestImpl.h"

#include "SubstitutePlatform.h"

#include <QSharedPointer>

#include <gmock/gmock.h>

#include <type_traits>

using namespace tamotest;
using namespace testing;
using tamo::OrientationHandler;
using tamo::OrientationRequestImpl;

namespace {

using Request = QSharedPointer<OrientationHandler::OrientationRequest>;

class OrientationRequestImplTest : public PlatformTest
{
protected:
    static Request make(const QByteArray& id)
    {
        return QSharedPointer<OrientationRequestImpl>::create(id);
    }

    int answers() const { return journal.count("navigator.doneOrientationId"); }
};

TEST_F(OrientationRequestImplTest, DoneAnswersOnce)
{
    const Request request = make("turn-1");
    EXPECT_EQ(answers(), 0);
    request->done();
    request->done();
    ASSERT_EQ(answers(), 1);
    EXPECT_EQ(journal.calls("navigator.doneOrientationId").at(0).arguments, "turn-1");
    EXPECT_THAT(log.lines(), ElementsAre("OrientationRequestImpl::done - id=turn-1"));
}

TEST_F(OrientationRequestImplTest, FailedAnswerIsLoggedAndNotRepeated)
{
    for (const int error : {EIO, 0}) {
        log.clear();
        journal.clear();
        journal.fail("navigator.doneOrientationId", 1, error);
        const Request request = make("turn-1");
        errno = ERANGE;
        request->done();
        EXPECT_EQ(journal.calls("navigator.doneOrientationId").at(0).errnoBefore, 0);
        EXPECT_THAT(log.lines(), ElementsAre("OrientationRequestImpl::done - id=turn-1",
                                             "OrientationRequestImpl::done - exlpode"));
        request->done();
        EXPECT_EQ(answers(), 1);
        EXPECT_EQ(log.lines().size(), 2u);
    }
}

TEST_F(OrientationRequestImplTest, WithoutDoneNothingIsAnswered)
{
    make("turn-1").reset();
    EXPECT_EQ(answers(), 0);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(OrientationRequestImplTest, OwnsItsId)
{
    QByteArray id("turn-1");
    const Request request = make(QByteArray::fromRawData(id.constData(), id.size()));
    const Request copy = make(id);
    id.fill('x');
    copy->done();
    EXPECT_EQ(journal.calls("navigator.doneOrientationId").at(0).arguments, "turn-1");
}

TEST_F(OrientationRequestImplTest, ManyThreadsAtOnceAnswerOnce)
{
    for (int round = 1; round <= 50; ++round) {
        const Request request = make("turn-1");
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; ++i)
            threads.emplace_back([request] { request->done(); });
        for (std::thread& thread : threads)
            thread.join();
        ASSERT_EQ(answers(), round);
    }
}

TEST_F(OrientationRequestImplTest, HasNoPublicDestructorToDeleteItByItsBase)
{
    EXPECT_FALSE(std::is_destructible<OrientationHandler::OrientationRequest>::value);
    EXPECT_FALSE(std::has_virtual_destructor<OrientationHandler::OrientationRequest>::value);
}

} // namespace
