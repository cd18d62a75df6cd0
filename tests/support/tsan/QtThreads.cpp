// SPDX-License-Identifier: Apache-2.0
// Tells ThreadSanitizer what Qt's own locks and threads order, where Qt's headers do not: these
// functions are compiled into Qt and wait for futexes, which ThreadSanitizer does not see. QMutex
// needs nothing, its header tells; Qt's threads begin with pthread_create(), which is seen.
#include "HappensBefore.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QMutex>
#include <QtCore/QReadWriteLock>
#include <QtCore/QSemaphore>
#include <QtCore/QWaitCondition>

using tamotest::endOf;
using tamotest::originalOf;

namespace {

/** A call that unlocks a mutex and locks it again before it returns. */
template<typename Call>
bool whileUnlocked(QMutex* mutex, Call call)
{
    __tsan_mutex_pre_unlock(mutex, 0);
    __tsan_mutex_post_unlock(mutex, 0);
    const bool result = call();
    __tsan_mutex_pre_lock(mutex, 0);
    __tsan_mutex_post_lock(mutex, 0, 0);
    return result;
}

bool acquiredIf(bool succeeded, void* place)
{
    if (succeeded)
        __tsan_acquire(place);
    return succeeded;
}

} // namespace

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto original =
        originalOf<bool(QThread*, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    return acquiredIf(original(this, deadline), endOf(this));
}

bool QWaitCondition::wait(QMutex* mutex, QDeadlineTimer deadline)
{
    static const auto original = originalOf<bool(QWaitCondition*, QMutex*, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    return whileUnlocked(mutex, [&] { return original(this, mutex, deadline); });
}

bool QWaitCondition::wait(QMutex* mutex, unsigned long time)
{
    static const auto original = originalOf<bool(QWaitCondition*, QMutex*, unsigned long)>(
        "_ZN14QWaitCondition4waitEP6QMutexm");
    return whileUnlocked(mutex, [&] { return original(this, mutex, time); });
}

bool QRecursiveMutex::tryLock(int timeout) noexcept
{
    static const auto original =
        originalOf<bool(QRecursiveMutex*, int)>("_ZN15QRecursiveMutex7tryLockEi");
    return acquiredIf(original(this, timeout), this);
}

void QRecursiveMutex::unlock() noexcept
{
    static const auto original =
        originalOf<void(QRecursiveMutex*)>("_ZN15QRecursiveMutex6unlockEv");
    __tsan_release(this);
    original(this);
}

void QSemaphore::acquire(int count)
{
    static const auto original = originalOf<void(QSemaphore*, int)>("_ZN10QSemaphore7acquireEi");
    original(this, count);
    __tsan_acquire(this);
}

bool QSemaphore::tryAcquire(int count)
{
    static const auto original =
        originalOf<bool(QSemaphore*, int)>("_ZN10QSemaphore10tryAcquireEi");
    return acquiredIf(original(this, count), this);
}

bool QSemaphore::tryAcquire(int count, int timeout)
{
    static const auto original =
        originalOf<bool(QSemaphore*, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    return acquiredIf(original(this, count, timeout), this);
}

void QSemaphore::release(int count)
{
    static const auto original = originalOf<void(QSemaphore*, int)>("_ZN10QSemaphore7releaseEi");
    __tsan_release(this);
    original(this, count);
}
