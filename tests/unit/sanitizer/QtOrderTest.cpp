// SPDX-License-Identifier: Apache-2.0
// What Qt puts in order is no race: each test passes when ThreadSanitizer has nothing to report.
#include <QCoreApplication>
#include <QEvent>
#include <QMutex>
#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <QWaitCondition>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>

namespace {

constexpr int Rounds = 200;

/** An argument whose copies are written by code of our own. */
struct Payload
{
    Payload() = default;
    explicit Payload(int n) : number(n), text(std::to_string(n)) {}
    Payload(const Payload& other) : number(other.number), text(other.text) {}
    Payload& operator=(const Payload&) = default;

    int number = 0;
    std::string text;
};

class PayloadEvent : public QEvent
{
public:
    explicit PayloadEvent(int n) : QEvent(QEvent::User), payload(n) {}
    const Payload payload;
};

class Sender : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void sent(const Payload& payload);
};

class Receiver : public QObject
{
    Q_OBJECT

public:
    std::string text; ///< what the last payload held
    std::atomic<int> count{0};

public Q_SLOTS:
    void take(const Payload& payload)
    {
        text = payload.text;
        ++count;
    }

protected:
    void customEvent(QEvent* event) override { take(static_cast<PayloadEvent*>(event)->payload); }
};

class QtOrderTest : public testing::Test
{
protected:
    QtOrderTest()
    {
        qRegisterMetaType<Payload>("Payload");
        receiver->moveToThread(&thread);
        ender.moveToThread(&thread);
        thread.start();
    }
    ~QtOrderTest() override { end(); }

    /** Ends the thread after what was posted to it before. */
    void quit()
    {
        QMetaObject::invokeMethod(&ender, [this] { thread.quit(); });
    }

    void end()
    {
        if (!thread.isFinished())
            quit();
        thread.wait();
    }

    bool waitForCount(int count)
    {
        return QTest::qWaitFor([this, count] { return receiver->count == count; });
    }

    std::unique_ptr<Receiver> receiver = std::make_unique<Receiver>();
    QObject ender;
    QThread thread;
};

TEST_F(QtOrderTest, PostedEventIsBeforeItsDelivery)
{
    for (int i = 1; i <= Rounds; ++i)
        QCoreApplication::postEvent(receiver.get(), new PayloadEvent(i));
    end();
    EXPECT_EQ(receiver->count, Rounds);
    EXPECT_EQ(receiver->text, std::to_string(Rounds));
}

TEST_F(QtOrderTest, QueuedSignalIsBeforeItsSlot)
{
    Sender sender;
    QObject::connect(&sender, &Sender::sent, receiver.get(), &Receiver::take);
    for (int i = 1; i <= Rounds; ++i)
        Q_EMIT sender.sent(Payload(i));
    end();
    EXPECT_EQ(receiver->count, Rounds);
    EXPECT_EQ(receiver->text, std::to_string(Rounds));
}

TEST_F(QtOrderTest, QueuedSignalIsBeforeItsFunctor)
{
    std::string text;
    for (int i = 1; i <= Rounds; ++i) {
        Sender sender;
        QObject::connect(&sender, &Sender::sent, receiver.get(),
                         [this, &text, i = std::to_string(i)](const Payload& payload) {
                             text = i + payload.text;
                             ++receiver->count;
                         });
        Q_EMIT sender.sent(Payload(i));
        if (i % 2) { // else the connection may end before the functor is called
            ASSERT_TRUE(waitForCount(i));
        }
    }
    end();
    EXPECT_EQ(receiver->count, Rounds);
    EXPECT_EQ(text, std::to_string(Rounds) + std::to_string(Rounds));
}

TEST_F(QtOrderTest, InvokedFunctorIsInOrderWithItsCaller)
{
    std::string text;
    for (int i = 1; i <= Rounds; ++i) {
        QMetaObject::invokeMethod(receiver.get(), [&text, i] { text = std::to_string(i); });
        QMetaObject::invokeMethod(
            receiver.get(), [&text] { text += '.'; }, Qt::BlockingQueuedConnection);
        EXPECT_EQ(text, std::to_string(i) + '.');
        text.clear();
    }
}

TEST_F(QtOrderTest, DeletionLaterIsAfterTheCall)
{
    receiver->text = "written here";
    receiver.release()->deleteLater();
}

TEST_F(QtOrderTest, WhatAThreadDidIsBeforeTheReturnFromWait)
{
    auto* const worker = new QObject;
    worker->moveToThread(&thread);
    std::string text;
    QObject::connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
    QObject::connect(worker, &QObject::destroyed, worker, [&text] { text = "destroyed"; });
    QMetaObject::invokeMethod(worker, [&text] { text = "invoked"; });
    quit();
    while (!thread.isFinished()) // so that wait() has nothing to wait for
        QThread::yieldCurrentThread();
    thread.wait();
    EXPECT_EQ(text, "destroyed");
}

TEST_F(QtOrderTest, FinishedIsAfterTheThread)
{
    std::string text;
    std::string seen;
    QMetaObject::invokeMethod(receiver.get(), [&text] { text = "written there"; });
    QObject::connect(&thread, &QThread::finished, qApp, [&] { seen = text; });
    quit();
    EXPECT_TRUE(QTest::qWaitFor([&seen] { return !seen.empty(); }));
}

TEST_F(QtOrderTest, MutexAndWaitConditionHandOver)
{
    QMutex mutex;
    QWaitCondition changed;
    int turn = 0;
    std::string text;
    const auto play = [&](int own) {
        for (int i = 0; i < Rounds; ++i) {
            QMutexLocker locker(&mutex);
            while (turn != own)
                changed.wait(&mutex);
            text += static_cast<char>('a' + own);
            turn = 1 - own;
            changed.wakeAll();
        }
    };
    QMetaObject::invokeMethod(receiver.get(), [&play] { play(1); });
    play(0);
    end();
    EXPECT_EQ(text.size(), 2u * Rounds);
}

TEST_F(QtOrderTest, RecursiveMutexExcludes)
{
    QRecursiveMutex mutex;
    std::string text;
    const auto add = [&] {
        for (int i = 0; i < Rounds; ++i) {
            const QMutexLocker outer(&mutex);
            const QMutexLocker inner(&mutex);
            text += 'x';
        }
    };
    QMetaObject::invokeMethod(receiver.get(), add);
    add();
    end();
    EXPECT_EQ(text.size(), 2u * Rounds);
}

TEST_F(QtOrderTest, SemaphoreHandsOver)
{
    QSemaphore full;
    QSemaphore empty(1);
    std::string text;
    QMetaObject::invokeMethod(receiver.get(), [&] {
        for (int i = 0; i < Rounds; ++i) {
            empty.acquire();
            text = std::to_string(i);
            full.release();
        }
    });
    for (int i = 0; i < Rounds; ++i) {
        full.acquire();
        EXPECT_EQ(text, std::to_string(i));
        empty.release();
    }
}

} // namespace

Q_DECLARE_METATYPE(Payload)

#include "QtOrderTest.moc"
