// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_NEVERDESTROYED_H
#define ZEL_CORE_NEVERDESTROYED_H

#include <new>
#include <utility>

namespace zel {

/**
 * Holds a process-wide object that is constructed and never destroyed: a process may exit while
 * other threads use it.
 */
template<class Type>
class NeverDestroyed
{
public:
    template<class... Arguments>
    explicit NeverDestroyed(Arguments&&... arguments)
    {
        new (m_storage) Type(std::forward<Arguments>(arguments)...);
    }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    Type& operator*() { return *std::launder(reinterpret_cast<Type*>(m_storage)); }
    Type* operator->() { return &**this; }

private:
    alignas(Type) unsigned char m_storage[sizeof(Type)];
};

} // namespace zel

#endif
