// SPDX-License-Identifier: Apache-2.0
#include <tamo/Application.h>

#include "Storm.h"
#include "SubstitutePlatform.h"

#include <tamo/Exception.h>
#include <tamo/Navigator.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <semaphore.h>

namespace {

using tamo::Application;
using tamo::Navigator;
using tamotest::EventContent;
using tamotest::eventually;
using tamotest::Storm;

/** The Navigator lives for ever, and so does the platform; application objects come and go. */
class ApplicationTest : public tamotest::SharedPlatformTest
{
protected:
    ApplicationTest() { make(); }

    void TearDown() override
    {
        application.reset();
        SharedPlatformTest::TearDown();
    }

    void make() { application = std::make_unique<Application>(m_argc, m_argv); }

    bool deliver(int code, const EventContent& content = {})
    {
        return eventually([&] { return navigator.deliver(code, content); });
    }

    std::unique_ptr<Application> application;

private:
    int m_argc = 1;
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
};

struct Relay
{
    const char* name;
    const char* signal;
    int code;
    int windowState;
    QVariantList arguments;
};

class Relayed : public ApplicationTest, public testing::WithParamInterface<Relay>
{
};

TEST_P(Relayed, InTheApplicationsThread)
{
    const Relay& relay = GetParam();
    QSignalSpy spy(application.get(), relay.signal);
    ASSERT_TRUE(spy.isValid());
    EventContent content;
    content.windowState = relay.windowState;
    content.groupId = "group";
    content.data = "scheme://host";
    ASSERT_TRUE(deliver(relay.code, content));
    // The dispatch thread has done with it; the signal waits for the application's event loop.
    ASSERT_TRUE(journal.waitForCount("core.eventGetCode", 1));
    ASSERT_TRUE(journal.waitForCount("core.getEvent", journal.count("core.eventGetDomain") + 1));
    EXPECT_TRUE(spy.isEmpty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !spy.isEmpty(); }));
    EXPECT_EQ(spy.at(0), relay.arguments);
}

INSTANTIATE_TEST_SUITE_P(
    Each, Relayed,
    testing::Values(
        Relay{"Thumbnail", SIGNAL(thumbnail(QString)), 3, 1, {"group"}},
        Relay{"Fullscreen", SIGNAL(fullscreen(QString)), 3, 0, {"group"}},
        Relay{"Invisible", SIGNAL(invisible(QString)), 3, 2, {"group"}},
        Relay{"SwipeDown", SIGNAL(swipeDown()), 4, 0, {}},
        Relay{"LowMemory", SIGNAL(lowMemory()), 6, 0, {}},
        Relay{"Asleep", SIGNAL(asleep(QString)), 11, 0, {"group"}},
        Relay{"Awake", SIGNAL(awake(QString)), 10, 0, {"group"}},
        Relay{"UrlHandlerInvoked", SIGNAL(urlHandlerInvoked(QUrl)), 1, 0, {QUrl("scheme://host")}}),
    [](const testing::TestParamInfo<Relay>& row) { return std::string(row.param.name); });

TEST_P(Relayed, UntilTheApplicationTakesItApart)
{
    const char* const signal = GetParam().signal;
    const auto* const sender = tamo::Navigator::getInstance();
    EXPECT_TRUE(QObject::disconnect(sender, signal, application.get(), signal));
    EXPECT_FALSE(QObject::disconnect(sender, signal, application.get(), signal));
}

TEST_F(ApplicationTest, StaysWhereItHasDisconnectedExit)
{
    const auto* const sender = tamo::Navigator::getInstance();
    EXPECT_TRUE(QObject::disconnect(sender, SIGNAL(exit()), application.get(), SLOT(quit())));
    QTimer::singleShot(0, application.get(), [&] {
        EXPECT_TRUE(deliver(2));
        EXPECT_TRUE(deliver(4)); // handed out after it
    });
    QObject::connect(application.get(), &Application::swipeDown, application.get(),
                     [] { Application::exit(7); });
    EXPECT_EQ(Application::exec(), 7);
}

TEST_F(ApplicationTest, ExitEndsTheEventLoop)
{
    QTimer::singleShot(0, application.get(), [&] { EXPECT_TRUE(deliver(2)); });
    EXPECT_EQ(Application::exec(), 0);
}

TEST_F(ApplicationTest, WhenItGoesTheDispatchThreadHasEnded)
{
    ASSERT_TRUE(deliver(4));
    application.reset();
    EXPECT_EQ(log.lines().back(), "ZelEventDispatcher::processZelEvents() - thread stopped");
    EXPECT_FALSE(navigator.deliver(4));
}

TEST_F(ApplicationTest, OtherReceiversKeepTheNavigator)
{
    QObject receiver;
    QObject::connect(Navigator::getInstance(), &Navigator::swipeDown, &receiver, [] {});
    application.reset();
    EXPECT_TRUE(deliver(4));
    QObject::disconnect(Navigator::getInstance(), nullptr, nullptr, nullptr);
}

TEST_F(ApplicationTest, SeveralComeAndGoWhileEventsPourIn)
{
    journal.setKeeping(false);
    log.setKeeping(false);
    const Storm storm([&] { navigator.deliver(4); });
    for (int i = 0; i < 100; ++i) {
        application.reset();
        make();
        QSignalSpy spy(application.get(), &Application::swipeDown);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !spy.isEmpty(); }));
    }
    application.reset();
}

TEST_F(ApplicationTest, OneThatCannotSubscribeThrowsAndTheNextWorks)
{
    application.reset();
    journal.fail("core.initialize", 2);
    EXPECT_THROW(make(), tamo::Exception);
    make();
    QSignalSpy spy(application.get(), &Application::lowMemory);
    ASSERT_TRUE(deliver(6));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !spy.isEmpty(); }));
}

TEST_F(ApplicationTest, ASlotThatWaitsForTheMainThreadDelaysItsEndByTheLimitOnly)
{
    std::atomic<bool> isWaiting{false};
    sem_t mainThread;
    ASSERT_EQ(sem_init(&mainThread, 0, 0), 0);
    QObject::connect(
        Navigator::getInstance(), &Navigator::swipeDown, Navigator::getInstance(),
        [&] {
            isWaiting = true;
            while (sem_wait(&mainThread) != 0) {
            }
        },
        Qt::DirectConnection);
    ASSERT_TRUE(deliver(4));
    ASSERT_TRUE(eventually([&] { return isWaiting.load(); }));
    QElapsedTimer timer;
    timer.start();
    application.reset();
    EXPECT_GE(timer.elapsed(), 4'900);
    EXPECT_LT(timer.elapsed(), 9'000) << "milliseconds; the limit is 5 seconds";
    QObject::disconnect(Navigator::getInstance(), nullptr, nullptr, nullptr);
    sem_post(&mainThread);
    EXPECT_THAT(platform.leftovers(), testing::IsEmpty());
    sem_destroy(&mainThread);
}

} // namespace
