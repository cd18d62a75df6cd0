// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_TEMPORARYDIRECTORY_H
#define TAMO_BENCH_TEMPORARYDIRECTORY_H

#include "Descriptor.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tamobench {

/** A directory that goes with its owner. */
class TemporaryDirectory
{
public:
    TemporaryDirectory()
        : m_path((std::filesystem::temp_directory_path() / "tamo-bench-XXXXXX").string())
    {
        if (!::mkdtemp(m_path.data()))
            throwErrno("cannot make " + m_path);
    }

    ~TemporaryDirectory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

} // namespace tamobench

#endif
