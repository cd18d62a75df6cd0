// SPDX-License-Identifier: Apache-2.0
// A race in a slot beneath Qt's event loop: the receiver's thread and the main one write the same
// integer, the latter after it has posted the event, with nothing between them.
#include <QCoreApplication>
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

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QThread thread;
    QObject receiver;
    receiver.moveToThread(&thread);
    thread.start();
    QMetaObject::invokeMethod(&receiver, [] {
        started.store(true, std::memory_order_relaxed);
        count();
    });
    while (!started.load(std::memory_order_relaxed))
        QThread::yieldCurrentThread();
    count();
    thread.quit();
    thread.wait();
    std::printf("%d\n", counter);
}
