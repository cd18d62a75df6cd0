// SPDX-License-Identifier: Apache-2.0
// Tells ThreadSanitizer what Qt orders by delivering events. QCoreApplication::postEvent() is
// called within Qt, too, where no definition of ours can stand in front of it; therefore a release
// is put where the application calls Qt, and the acquisition where Qt delivers.
#include "HappensBefore.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QThreadStorage>

using tamotest::endOf;
using tamotest::inboxOf;
using tamotest::originalOf;

// Qt's hook for tools, which it declares in a private header: called for every signal, Qt's own
// included.
struct QSignalSpyCallbackSet
{
    using Begin = void (*)(QObject* caller, int signalOrMethod, void** arguments);
    using End = void (*)(QObject* caller, int signalOrMethod);
    Begin signalBegin;
    Begin slotBegin;
    End signalEnd;
    End slotEnd;
};
// ThreadSanitizer's own.
extern "C" void AnnotateIgnoreReadsBegin(const char* file, int line);
extern "C" void AnnotateIgnoreReadsEnd(const char* file, int line);

Q_CORE_EXPORT void qt_register_signal_spy_callbacks(QSignalSpyCallbackSet* callbacks);

namespace {

/** A signal is before the slots that are called for it in other threads. Which threads those are,
 * Qt does not tell, so one place stands for all of them. */
char signalPlace;

/** Lives as long as its thread has something to do: Qt destroys it last. */
class ThreadEnd
{
public:
    ThreadEnd() = default;
    explicit ThreadEnd(QThread* thread) : m_thread(thread) {}
    ~ThreadEnd()
    {
        if (m_thread)
            __tsan_release(endOf(m_thread));
    }

private:
    QThread* m_thread = nullptr;
};

QThreadStorage<ThreadEnd>& threadEnd()
{
    static QThreadStorage<ThreadEnd> storage;
    return storage;
}

void signalBegins(QObject* caller, int, void**)
{
    __tsan_release(&signalPlace);
    // QThread::started() is the first that happens in a thread, and is emitted there.
    QThread* const thread = QThread::currentThread();
    if (caller == thread && !threadEnd().hasLocalData())
        threadEnd().setLocalData(ThreadEnd(thread));
}

// Looked at before it is known what the event is after, so ThreadSanitizer must not look as well.
QEvent::Type unwatchedTypeOf(const QEvent* event)
{
    AnnotateIgnoreReadsBegin(__FILE__, __LINE__);
    const QEvent::Type type = event->type();
    AnnotateIgnoreReadsEnd(__FILE__, __LINE__);
    return type;
}

bool deliveryBegins(void** receiverEventResult)
{
    __tsan_acquire(inboxOf(QThread::currentThread()));
    const QEvent::Type type = unwatchedTypeOf(static_cast<QEvent*>(receiverEventResult[1]));
    // These come from the thread's own descriptors and timers; no signal has posted them.
    if (type != QEvent::SockAct && type != QEvent::Timer)
        __tsan_acquire(&signalPlace);
    return false; // it is not delivered yet
}

QSignalSpyCallbackSet spies{signalBegins, nullptr, nullptr, nullptr};

const bool registered = [] {
    qt_register_signal_spy_callbacks(&spies);
    return QInternal::registerCallback(QInternal::EventNotifyCallback, deliveryBegins);
}();

} // namespace

void QCoreApplication::postEvent(QObject* receiver, QEvent* event, int priority)
{
    static const auto original = originalOf<void(QObject*, QEvent*, int)>(
        "_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(inboxOf(receiver->thread()));
    original(receiver, event, priority);
}

void QObject::deleteLater()
{
    static const auto original = originalOf<void(QObject*)>("_ZN7QObject11deleteLaterEv");
    __tsan_release(inboxOf(thread()));
    original(this);
}

void QObject::moveToThread(QThread* target)
{
    static const auto original =
        originalOf<void(QObject*, QThread*)>("_ZN7QObject12moveToThreadEP7QThread");
    if (target)
        __tsan_release(inboxOf(target));
    original(this, target);
}
