// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_IDMATCH_H
#define TAMOBOX_IDMATCH_H

#include <string>

namespace tamobox {

/** Whether a text that a person gave is the beginning of an id, whose brace may be left out. */
inline bool isBeginningOf(const std::string& id, const std::string& given)
{
    const auto withoutBrace = [](const std::string& text) {
        return text.rfind('{', 0) == 0 ? text.substr(1) : text;
    };
    const std::string wanted = withoutBrace(given);
    return !wanted.empty() && withoutBrace(id).rfind(wanted, 0) == 0;
}

} // namespace tamobox

#endif
