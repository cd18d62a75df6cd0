// SPDX-License-Identifier: Apache-2.0
#include "Failure.h"

#include <cerrno>
#include <system_error>

namespace tamobox {

std::string errorText(int error)
{
    return std::generic_category().message(error);
}

Failure systemFailure(const std::string& what)
{
    const int error = errno;
    return Failure(what + ": " + errorText(error));
}

} // namespace tamobox
