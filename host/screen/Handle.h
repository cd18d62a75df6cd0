// SPDX-License-Identifier: Apache-2.0
#ifndef SCREEN_HANDLE_H
#define SCREEN_HANDLE_H

#include <screen/screen.h>

#include <cstddef>
#include <cstdint>
#include <limits>

namespace screen {

// Handles are numbers in pointers' clothing. A display's holds its context's number and its own.
static_assert(sizeof(void*) == 8, "a display's handle holds two numbers of 32 bits");

constexpr unsigned DisplayBits = 32;

inline screen_context_t contextHandle(int context)
{
    return reinterpret_cast<screen_context_t>(static_cast<std::uintptr_t>(context));
}

/** The context's number; 0, which no context has, for what cannot be one's handle. */
inline int contextNumber(screen_context_t handle)
{
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    return value <= static_cast<std::uintptr_t>(std::numeric_limits<int>::max())
               ? static_cast<int>(value)
               : 0;
}

/** @param index the display's place in its context, from 0 */
inline screen_display_t displayHandle(int context, std::size_t index)
{
    return reinterpret_cast<screen_display_t>(
        (static_cast<std::uintptr_t>(context) << DisplayBits) + index + 1);
}

inline screen_context_t contextOf(screen_display_t handle)
{
    return reinterpret_cast<screen_context_t>(reinterpret_cast<std::uintptr_t>(handle) >>
                                              DisplayBits);
}

/** What displayHandle() was given, or more than any context has displays. */
inline std::size_t displayIndex(screen_display_t handle)
{
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(handle)) - std::size_t{1};
}

} // namespace screen

#endif
