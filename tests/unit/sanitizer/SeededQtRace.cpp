// SPDX-License-Identifier: Apache-2.0
// A race beneath Qt's event loop: the receiver's thread and the main one write the same integer,
// the latter after it has posted an event, with nothing between them. A functor would put them in
// order, where its caller is the last to let go of it.
#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <atomic>
#include <cstdio>

namespace {

int counter = 0;
std::atomic<bool> started{false}; // relaxed, so that it puts nothing in order

void count()
{
    for (int i = 0; i < 1000; ++i)
        ++counter;
}

class Receiver : public QObject
{
protected:
    void customEvent(QEvent*) override
    {
        started.store(true, std::memory_order_relaxed);
        count();
    }
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QThread thread;
    Receiver receiver;
    receiver.moveToThread(&thread);
    thread.start();
    QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
    while (!started.load(std::memory_order_relaxed))
        QThread::yieldCurrentThread();
    count();
    thread.quit();
    thread.wait();
    std::printf("%d\n", counter);
}
