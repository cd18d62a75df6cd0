// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_CURRENTINSTANCE_H
#define TAMOMOCK_CURRENTINSTANCE_H

#include <tamo/Exception.h>

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>

#include <iostream>

namespace tamomock {
namespace detail {

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

    /** @throws tamo::Exception where there is one already, after a line on standard output */
    void set(Api* instance, const char* refusal)
    {
        const QMutexLocker locker(&m_mutex);
        if (m_instance) {
            std::cout << refusal << std::endl;
            throw tamo::Exception();
        }
        m_instance = instance;
    }

    void clear(const Api* instance)
    {
        const QMutexLocker locker(&m_mutex);
        if (m_instance == instance)
            m_instance = nullptr;
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

} // namespace detail
} // namespace tamomock

#endif
