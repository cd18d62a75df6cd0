// SPDX-License-Identifier: Apache-2.0
#include "ObjectCreation.h"

#include "ObjectFile.h"

#include "common/Descriptor.h"
#include "common/Failure.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace tamobox {

namespace {

/** Takes nothing away from the modes of what is created, while it lives. */
class ExactModes
{
public:
    ExactModes() : m_previous(umask(0)) {}
    ~ExactModes() { umask(m_previous); }
    ExactModes(const ExactModes&) = delete;
    ExactModes& operator=(const ExactModes&) = delete;

private:
    mode_t m_previous;
};

} // namespace

void createObject(const std::string& object, mode_t mode)
{
    const ExactModes exactModes;
    const std::string path = objectPath(object);
    const std::size_t belowMount = path.find('/', 1) + 1;
    for (std::size_t slash = path.find('/', belowMount); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        const std::string directory = path.substr(0, slash);
        if (mkdir(directory.c_str(), 0755) == -1 && errno != EEXIST)
            throw systemFailure("cannot create " + directory);
    }
    const Descriptor created(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, mode));
    if (!created)
        throw systemFailure("cannot create " + path);
}

} // namespace tamobox
