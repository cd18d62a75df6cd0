// SPDX-License-Identifier: Apache-2.0
// Any bytes as a package manifest: an id within its bounds, or an exception.
#include "Require.h"

#include "platform/payment/PackageManifest.h"

#include <tamo/Exception.h>

#include <cstdint>
#include <vector>

namespace {

constexpr int maxNameSize = 52;
constexpr int maxIdSize = 29;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<char> text(data, data + size); // exactly as long, for the sanitizer to see
    try {
        const QByteArray id = tamo::platform::PackageManifest::applicationId({text.data(), size});
        require(id.size() >= 3, "an id without a name or a number");
        require(id.size() <= maxNameSize + 1 + maxIdSize, "an id beyond its bounds");
        require(!id.contains('\0') && !id.contains('\n') && !id.contains('\r'),
                "an id of several lines");
    } catch (const tamo::Exception&) {
        // Said to be malformed.
    }
    return 0;
}
