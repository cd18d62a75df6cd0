// SPDX-License-Identifier: Apache-2.0
// Any bytes as a message of the navigator's: an event that can be looked at, or a reason why not.
#include "Require.h"

#include "navigator/NavigatorMessage.h"

#include <zel/navigator.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

void walk(const zel::NavigatorEvent& event)
{
    require(event.domain() == zel::number(zel::Domain::Navigator), "another domain's event");
    require(event.payload() == nullptr, "a service's event has a payload");
    for (const auto& text : {event.groupId, event.data, event.id, event.error})
        require(!text || text->size() == std::strlen(text->c_str()), "a text holds a NUL");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<char> text(data, data + size); // exactly as long, for the sanitizer to see
    text.push_back('\0');
    std::string fault;
    const auto event = zel::readNavigatorMessage({text.data(), size}, fault);
    require(bool(event) == fault.empty(), "neither an event nor a reason, or both");
    if (event)
        walk(*event);
    return 0;
}
