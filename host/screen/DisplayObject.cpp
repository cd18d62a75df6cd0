// SPDX-License-Identifier: Apache-2.0
#include "DisplayObject.h"

#include "DisplayReader.h"

#include "common/ObjectText.h"

#include <cerrno>
#include <string>

namespace screen {
namespace {

constexpr char ObjectPath[] = "/pps/services/screen/displays";

} // namespace

int readDisplayObject(std::vector<Display>& displays)
{
    std::string text;
    const int error = host::readObject(ObjectPath, text);
    if (error == ENOENT) {
        displays = builtInDisplays();
        return 0;
    }
    return error ? error : readDisplays(text.data(), displays);
}

} // namespace screen
