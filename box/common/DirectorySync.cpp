// SPDX-License-Identifier: Apache-2.0
#include "DirectorySync.h"

#include "Descriptor.h"
#include "Failure.h"

#include <fcntl.h>
#include <unistd.h>

namespace tamobox {

void syncDirectory(const std::string& path)
{
    const Descriptor directory(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory || fsync(directory.get()) == -1)
        throw systemFailure("cannot bring the directory " + path + " to the disk");
}

} // namespace tamobox
