// SPDX-License-Identifier: Apache-2.0
// Tells ThreadSanitizer what Qt orders by counting the references to a functor, and by waiting for
// a slot in another thread (Qt::BlockingQueuedConnection with QMetaObject::invokeMethod()).
#include "HappensBefore.h"

#include <QtCore/QObject>

using tamotest::inboxOf;
using tamotest::originalOf;

namespace {

/** A slot that is made before its calls; they are before its end, and before what follows the call
 * that waits for it. */
class OrderedSlot : public QtPrivate::QSlotObjectBase
{
public:
    explicit OrderedSlot(QtPrivate::QSlotObjectBase* slot)
        : QSlotObjectBase(&OrderedSlot::operate), m_slot(slot)
    {
        __tsan_release(creationOf(this));
    }

    static void* creationOf(QSlotObjectBase* slot) { return slot; }
    static void* callsOf(QSlotObjectBase* slot)
    {
        return reinterpret_cast<char*>(slot) + sizeof(void*);
    }

private:
    ~OrderedSlot() { m_slot->destroyIfLastRef(); }

    static void operate(int operation, QSlotObjectBase* slot, QObject* receiver, void** arguments,
                        bool* result)
    {
        __tsan_acquire(creationOf(slot));
        auto* const self = static_cast<OrderedSlot*>(slot);
        if (operation == Call) {
            self->m_slot->call(receiver, arguments);
            __tsan_release(callsOf(slot));
        } else if (operation == Compare) {
            *result = self->m_slot->compare(arguments);
        } else if (operation == Destroy) {
            __tsan_acquire(callsOf(slot));
            delete self;
        }
    }

    QtPrivate::QSlotObjectBase* const m_slot;
};

} // namespace

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot,
                                   Qt::ConnectionType type, void* result)
{
    static const auto original =
        originalOf<bool(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*)>(
            "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14"
            "ConnectionTypeEPv");
    auto* const ordered = new OrderedSlot(slot);
    ordered->ref();
    if (object)
        __tsan_release(inboxOf(object->thread()));
    const bool invoked = original(object, ordered, type, result);
    if (type == Qt::BlockingQueuedConnection)
        __tsan_acquire(OrderedSlot::callsOf(ordered));
    ordered->destroyIfLastRef();
    return invoked;
}

QMetaObject::Connection QObject::connectImpl(const QObject* sender, void** signal,
                                             const QObject* receiver, void** slotPointer,
                                             QtPrivate::QSlotObjectBase* slot,
                                             Qt::ConnectionType type, const int* types,
                                             const QMetaObject* senderMetaObject)
{
    static const auto original = originalOf<decltype(connectImpl)>(
        "_ZN7QObject11connectImplEPKS_PPvS1_S3_PN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionType"
        "EPKiPK11QMetaObject");
    return original(sender, signal, receiver, slotPointer, new OrderedSlot(slot), type, types,
                    senderMetaObject);
}
