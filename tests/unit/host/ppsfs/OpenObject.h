// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_OPENOBJECT_H
#define TAMO_TESTS_OPENOBJECT_H

#include "Handle.h"
#include "Listener.h"
#include "ObjectStore.h"

#include <memory>
#include <string>
#include <string_view>

namespace tamotest {

/** An object of a store, opened without a filesystem, and how often it was woken. */
class OpenObject final : public ppsfs::Listener
{
public:
    /** What a descriptor is opened for. */
    enum Access { Read = 1, Write = 2, Both = 3 };

    /**
     * Opens an object in the root directory and creates it where it is not there.
     *
     * @param name with options
     */
    OpenObject(ppsfs::ObjectStore& store, std::string_view name, Access access = Both,
               bool truncates = false);

    /** 0, or the `errno` value with which the opening failed. */
    int error() const { return m_error; }

    /** Reads the next message; empty where there is nothing new. */
    std::string read();

    int write(std::string_view text) { return m_handle->write(text); }
    ppsfs::Handle& handle() { return *m_handle; }
    void close() { m_handle.reset(); }

    /** How often it was woken since this was asked last. */
    int takeWakes();

    void wake() override { ++m_wakes; }

private:
    std::unique_ptr<ppsfs::Handle> m_handle;
    int m_error = 0;
    int m_wakes = 0;
};

} // namespace tamotest

#endif
