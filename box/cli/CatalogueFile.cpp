// SPDX-License-Identifier: Apache-2.0
#include "CatalogueFile.h"

#include "common/Descriptor.h"
#include "common/Failure.h"
#include "services/payment/Catalogue.h"

#include <fcntl.h>

#include <array>

namespace tamobox {

std::string readCatalogueFile(const std::string& path)
{
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file)
        throw systemFailure("cannot open " + path);
    std::string text;
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t size = read(file.get(), buffer.data(), buffer.size());
        if (size == -1)
            throw systemFailure("cannot read " + path);
        text.append(buffer.data(), static_cast<std::size_t>(size));
        if (size == 0 || text.size() > Catalogue::longestText)
            break;
    }
    Catalogue::parse(text, path);
    return text;
}

} // namespace tamobox
