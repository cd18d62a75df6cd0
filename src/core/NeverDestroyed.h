// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_NEVERDESTROYED_H
#define TAMO_CORE_NEVERDESTROYED_H

#include <new>

namespace tamo::detail {

/**
 * A process-wide object that is made when the library is loaded and never destroyed: threads that
 * still run while the process ends may go on using it.
 */
template<typename T>
class NeverDestroyed
{
public:
    NeverDestroyed() { new (m_storage) T; }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T* operator->() { return std::launder(reinterpret_cast<T*>(m_storage)); }
    T& operator*() { return *operator->(); }

private:
    alignas(T) unsigned char m_storage[sizeof(T)];
};

} // namespace tamo::detail

#endif
