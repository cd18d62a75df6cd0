// SPDX-License-Identifier: Apache-2.0
#include "NavigatorTest.h"

#include "navigator/OrientationEvent.h"

#include <tamo/OrientationHandler.h>

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimerEvent>

#include <gmock/gmock.h>

#include <future>
#include <stdexcept>

using namespace tamotest;
using namespace testing;
using tamo::Navigator;
using tamo::NavigatorImpl;
using tamo::OrientationEvent;
using tamo::OrientationHandler;

namespace {

using Request = QSharedPointer<OrientationHandler::OrientationRequest>;

/** Calls a function for each request. */
class Handler : public OrientationHandler
{
public:
    using Function = std::function<void(int angle, Request request)>;

    explicit Handler(Function function) : m_function(std::move(function)) {}

    void handleOrientationRequest(int angle, Request request) override
    {
        m_function(angle, request);
    }

private:
    const Function m_function;
};

QSharedPointer<OrientationHandler> handlerOf(Handler::Function function)
{
    return QSharedPointer<Handler>::create(std::move(function));
}

/** A handler that keeps what it is given. */
struct Keeper
{
    std::vector<int> angles;
    std::vector<Request> requests;
    std::vector<QThread*> threads;

    QSharedPointer<OrientationHandler> handler()
    {
        return handlerOf([this](int angle, const Request& request) {
            angles.push_back(angle);
            requests.push_back(request);
            threads.push_back(QThread::currentThread());
        });
    }
};

const std::string posting = "NavigatorPrivate::handleOrientation - ";
const std::string delivering = "NavigatorPrivate::event - ";

class OrientationHandlerTest : public NavigatorTest
{
protected:
    OrientationHandlerTest()
    {
        make();
        listen();
    }

    /** Has the window turned, up to where the event is posted. */
    void turn(int angle, std::optional<std::string> id)
    {
        EventContent content;
        content.angle = angle;
        content.id = std::move(id);
        deliver(NAVIGATOR_ORIENTATION, content);
    }

    /** Delivers what is posted to the navigator. */
    void deliverPosted() { QCoreApplication::sendPostedEvents(&navigatorImpl(), 0); }

    std::vector<std::string> doneIds() const { return argumentsOf("navigator.doneOrientationId"); }
};

TEST_F(OrientationHandlerTest, WithoutOneTheTurnIsAnsweredOnceByItself)
{
    turn(90, "turn-1");
    EXPECT_THAT(logged(), ElementsAre("NavigatorPrivate::handleZelEvent - orientation",
                                      posting + "angle=90, id=turn-1"));
    EXPECT_THAT(doneIds(), IsEmpty());
    deliverPosted();
    EXPECT_THAT(logged(),
                ElementsAre(delivering + "angle=90, id=turn-1", delivering + "auto reply"));
    EXPECT_THAT(doneIds(), ElementsAre("turn-1"));
    deliverPosted();
    EXPECT_THAT(doneIds(), ElementsAre("turn-1"));
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(OrientationHandlerTest, FailedAnswerByItselfIsLogged)
{
    for (const int error : {EIO, 0}) {
        turn(0, "turn-1");
        logged();
        journal.fail("navigator.doneOrientationId", 1, error);
        errno = ERANGE;
        deliverPosted();
        EXPECT_THAT(logged(),
                    ElementsAre(delivering + "angle=0, id=turn-1", delivering + "auto reply",
                                "NavigatorPrivate::event: exlpode"));
        EXPECT_EQ(journal.calls("navigator.doneOrientationId").back().errnoBefore, 0);
    }
}

TEST_F(OrientationHandlerTest, TurnDoesNotMoveTheWindowsAngle)
{
    turn(90, "turn-1");
    deliverPosted();
    EXPECT_EQ(findAngle(), 0);
}

TEST_F(OrientationHandlerTest, IsCalledInTheNavigatorsThreadWithTheAngle)
{
    Keeper keeper;
    navigatorImpl().setOrientationHandler(keeper.handler());
    heard();
    turn(270, "turn-1");
    EXPECT_THAT(keeper.angles, IsEmpty());
    logged();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !keeper.angles.empty(); }));
    EXPECT_THAT(keeper.angles, ElementsAre(270));
    EXPECT_THAT(keeper.threads, ElementsAre(navigatorImpl().thread()));
    EXPECT_THAT(logged(), ElementsAre(delivering + "angle=270, id=turn-1"));
    EXPECT_THAT(doneIds(), IsEmpty());
    keeper.requests.at(0)->done();
    EXPECT_THAT(logged(), ElementsAre("OrientationRequestImpl::done - id=turn-1"));
    EXPECT_THAT(doneIds(), ElementsAre("turn-1"));
}

TEST_F(OrientationHandlerTest, EachTurnIsItsOwnRequestInTheirOrder)
{
    Keeper keeper;
    navigatorImpl().setOrientationHandler(keeper.handler());
    for (int i = 0; i < 5; ++i)
        turn(i * 90, "turn-" + std::to_string(i));
    deliverPosted();
    EXPECT_THAT(keeper.angles, ElementsAre(0, 90, 180, 270, 360));
    for (auto request = keeper.requests.rbegin(); request != keeper.requests.rend(); ++request)
        (*request)->done();
    EXPECT_THAT(doneIds(), ElementsAre("turn-4", "turn-3", "turn-2", "turn-1", "turn-0"));
}

TEST_F(OrientationHandlerTest, TurnWithoutAnIdIsHandedOn)
{
    turn(-1, std::nullopt);
    deliverPosted();
    EXPECT_THAT(logged(), ElementsAre("NavigatorPrivate::handleZelEvent - orientation",
                                      posting + "angle=-1, id=", delivering + "angle=-1, id=",
                                      delivering + "auto reply"));
    EXPECT_THAT(doneIds(), ElementsAre(""));
}

TEST_F(OrientationHandlerTest, DroppedRequestIsNeverAnswered)
{
    navigatorImpl().setOrientationHandler(handlerOf([](int, const Request&) {}));
    turn(90, "turn-1");
    deliverPosted();
    EXPECT_THAT(doneIds(), IsEmpty());
}

TEST_F(OrientationHandlerTest, ChangeIsEmittedOnlyWhereItIsOne)
{
    Keeper keeper;
    const QSharedPointer<OrientationHandler> handler = keeper.handler();
    navigatorImpl().setOrientationHandler({});
    EXPECT_THAT(heard(), IsEmpty());
    navigatorImpl().setOrientationHandler(handler);
    EXPECT_THAT(heard(), ElementsAre("orientationHandlerChanged()"));
    navigatorImpl().setOrientationHandler(handler);
    EXPECT_THAT(heard(), IsEmpty());
    navigatorImpl().setOrientationHandler(keeper.handler());
    EXPECT_THAT(heard(), ElementsAre("orientationHandlerChanged()"));
    navigatorImpl().setOrientationHandler({});
    EXPECT_THAT(heard(), ElementsAre("orientationHandlerChanged()"));
}

TEST_F(OrientationHandlerTest, ReplacedOneIsLetGoBeforeTheChangeIsEmitted)
{
    Keeper keeper;
    QSharedPointer<OrientationHandler> handler = keeper.handler();
    const QWeakPointer<OrientationHandler> old = handler;
    navigatorImpl().setOrientationHandler(std::move(handler));
    bool wasGone = false;
    QObject::connect(&navigatorImpl(), &Navigator::orientationHandlerChanged,
                     [&] { wasGone = old.isNull(); });
    navigatorImpl().setOrientationHandler(keeper.handler());
    EXPECT_TRUE(wasGone);
}

TEST_F(OrientationHandlerTest, ReplacedOneMayUseTheNavigatorInItsDestructor)
{
    class Leaving : public Handler
    {
    public:
        explicit Leaving(NavigatorImpl& navigator)
            : Handler([](int, const Request&) {}), m_navigator(navigator)
        {
        }
        ~Leaving() override
        {
            m_navigator.setAllowedOrientation(Navigator::AllowAll);
            m_navigator.setOrientationHandler({});
        }

    private:
        NavigatorImpl& m_navigator;
    };
    Keeper keeper;
    navigatorImpl().setOrientationHandler(QSharedPointer<Leaving>::create(navigatorImpl()));
    navigatorImpl().setOrientationHandler(keeper.handler());
    EXPECT_EQ(navigatorImpl().allowedOrientation(), Navigator::AllowAll);
    turn(90, "turn-1");
    deliverPosted();
    EXPECT_THAT(keeper.angles, IsEmpty());
    EXPECT_THAT(doneIds(), ElementsAre("turn-1"));
}

TEST_F(OrientationHandlerTest, RequestCanBeAnsweredAfterItsHandlerWasReplaced)
{
    Keeper keeper;
    navigatorImpl().setOrientationHandler(keeper.handler());
    turn(90, "turn-1");
    deliverPosted();
    navigatorImpl().setOrientationHandler({});
    turn(180, "turn-2");
    deliverPosted();
    EXPECT_THAT(doneIds(), ElementsAre("turn-2"));
    keeper.requests.at(0)->done();
    EXPECT_THAT(doneIds(), ElementsAre("turn-2", "turn-1"));
}

TEST_F(OrientationHandlerTest, MayBeReplacedInsideItself)
{
    Keeper next;
    navigatorImpl().setOrientationHandler(handlerOf([&](int, const Request& request) {
        navigatorImpl().setOrientationHandler(next.handler());
        navigatorImpl().setAllowedOrientation(Navigator::AllowLandscape);
        request->done();
    }));
    turn(90, "turn-1");
    turn(180, "turn-2");
    deliverPosted();
    EXPECT_THAT(doneIds(), ElementsAre("turn-1"));
    EXPECT_THAT(next.angles, ElementsAre(180));
    EXPECT_EQ(navigatorImpl().allowedOrientation(), Navigator::AllowLandscape);
}

TEST_F(OrientationHandlerTest, ThatThrowsIsHeardByWhoeverDeliversAndTheNextTurnComes)
{
    Keeper keeper;
    navigatorImpl().setOrientationHandler(handlerOf([](int angle, const Request& request) {
        if (angle == 90)
            throw std::runtime_error("no paint left");
        request->done();
    }));
    turn(90, "turn-1");
    turn(180, "turn-2");
    EXPECT_THROW(deliverPosted(), std::runtime_error);
    deliverPosted();
    EXPECT_THAT(doneIds(), ElementsAre("turn-2"));
    navigatorImpl().setOrientationHandler({});
}

TEST_F(OrientationHandlerTest, EventsOfEveryOtherTypeAreRefused)
{
    for (int type = 1; type < 2000; ++type) {
        QEvent event(static_cast<QEvent::Type>(type));
        EXPECT_FALSE(navigatorImpl().event(&event)) << type;
    }
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(OrientationHandlerTest, EventsTypeIsOneNumberOfItsOwn)
{
    const OrientationEvent event(90, "turn-1");
    EXPECT_EQ(event.type(), OrientationEvent::eventType());
    EXPECT_EQ(OrientationEvent(0, "").type(), event.type());
    EXPECT_GE(event.type(), QEvent::User);
    EXPECT_NE(QEvent::registerEventType(event.type()), event.type());
    EXPECT_TRUE(std::has_virtual_destructor<OrientationEvent>::value);
}

// Qt delivers these as events, too.
TEST_F(OrientationHandlerTest, QueuedCallsTimersAndLateDeletionHaveNoEffect)
{
    const QPointer<NavigatorImpl> instance = &navigatorImpl();
    bool isCalled = false;
    QMetaObject::invokeMethod(
        instance, [&] { isCalled = true; }, Qt::QueuedConnection);
    instance->deleteLater();
    QTimerEvent timer(1);
    EXPECT_FALSE(QCoreApplication::sendEvent(instance, &timer));
    QCoreApplication::sendPostedEvents(instance, 0);
    QCoreApplication::sendPostedEvents(instance, QEvent::DeferredDelete);
    EXPECT_FALSE(isCalled);
    EXPECT_FALSE(instance.isNull());
}

/** A navigator that lives in a thread with an event loop, made by start(). */
class NavigatorInAThreadTest : public NavigatorTest
{
protected:
    void TearDown() override
    {
        if (m_thread.isRunning())
            quit();
        NavigatorTest::TearDown();
    }

    void start()
    {
        m_inThread.moveToThread(&m_thread);
        m_thread.start();
        QMetaObject::invokeMethod(
            &m_inThread, [this] { make(); }, Qt::BlockingQueuedConnection);
        listen();
    }

    void quit()
    {
        m_thread.quit();
        m_thread.wait();
    }

    QThread m_thread;
    QObject m_inThread;
};

TEST_F(NavigatorInAThreadTest, HandlerIsCalledThereAndRequestsOutliveTheLoop)
{
    start();
    std::promise<Request> given;
    QThread* calledIn = nullptr;
    navigatorImpl().setOrientationHandler(handlerOf([&](int, const Request& request) {
        calledIn = QThread::currentThread();
        given.set_value(request);
    }));
    EventContent content;
    content.id = "turn-1";
    deliver(NAVIGATOR_ORIENTATION, content);
    const Request request = given.get_future().get();
    quit();
    EXPECT_EQ(calledIn, &m_thread);
    request->done();
    EXPECT_THAT(argumentsOf("navigator.doneOrientationId"), ElementsAre("turn-1"));
    navigatorImpl().setOrientationHandler({});
}

TEST_F(NavigatorInAThreadTest, TurnsAreNotAnsweredAfterTheLoopHasEnded)
{
    start();
    quit();
    EventContent content;
    content.id = "turn-1";
    deliver(NAVIGATOR_ORIENTATION, content);
    deliver(NAVIGATOR_SWIPE_DOWN);
    EXPECT_THAT(heard(), ElementsAre("swipeDown()"));
    EXPECT_EQ(journal.count("navigator.doneOrientationId"), 0);
}

} // namespace
