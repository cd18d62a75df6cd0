// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_HAPPENSBEFORE_H
#define TAMO_TESTS_HAPPENSBEFORE_H

#include <QtCore/QThread>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace tamotest {

// What one thread does before it releases a place, ThreadSanitizer takes to be before what another
// one does after it has acquired that place. The places are addresses that nobody reads or writes.

/** What is posted to a thread is before its delivery there. */
inline void* inboxOf(QThread* thread)
{
    return thread;
}

/** What a thread does is before the return from QThread::wait(). */
inline void* endOf(QThread* thread)
{
    return reinterpret_cast<char*>(thread) + sizeof(void*);
}

/** The function that a definition in the test program stands in front of. */
template<typename Function>
Function* originalOf(const char* mangledName)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, mangledName));
}

} // namespace tamotest

#endif
