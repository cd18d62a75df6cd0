// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_MOCK_CURRENTINSTANCE_H
#define TAMO_MOCK_CURRENTINSTANCE_H

#include "core/Log.h"

#include <tamo/Exception.h>

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>

namespace tamomock::detail {

/** The object of a seam that the whole process uses, if any, and the lock over it. */
template<class Api>
class CurrentInstance
{
public:
    /** The current object; where there is none, what `makeDefault` returns in a unique_ptr. */
    template<class MakeDefault>
    Api* get(const MakeDefault& makeDefault)
    {
        const QMutexLocker locker(&m_mutex);
        if (!m_instance)
            m_instance = makeDefault().release();
        return m_instance;
    }

    /** @throws tamo::Exception where there is one already, after a line in the log */
    void set(Api* instance, const char* refusal)
    {
        const QMutexLocker locker(&m_mutex);
        if (m_instance) {
            tamo::detail::logLine(refusal);
            throw tamo::Exception();
        }
        m_instance = instance;
    }

    /** Leaves any other object than the given one current. Returns whether it was that one. */
    bool clear(const Api* instance)
    {
        const QMutexLocker locker(&m_mutex);
        if (m_instance != instance)
            return false;
        m_instance = nullptr;
        return true;
    }

private:
    QMutex m_mutex;
    Api* m_instance = nullptr;
};

/** The one of a seam. A process may end while its threads still call the platform. */
template<class Api>
CurrentInstance<Api>& neverDestroyedInstance()
{
    static auto& instance = *new CurrentInstance<Api>;
    return instance;
}

} // namespace tamomock::detail

#endif
