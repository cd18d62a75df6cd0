// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_DISTINCTVALUES_H
#define TAMO_TESTS_DISTINCTVALUES_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <type_traits>

/** The enumerators of an enumerated type; a generated file has one for each. */
template<typename Enum>
struct Enumerators;

/**
 * A value for the argument in a place, other than for every other place of the same type in the
 * same round, and other than in any other round. Of truth values the one whose place is the round's
 * is true, so that no two change together. An enumerated type repeats its values.
 */
template<typename T>
T distinctValue(std::size_t place, std::size_t round)
{
    const std::size_t number = 100 * (round + 1) + place;
    if constexpr (std::is_same_v<T, bool>)
        return place == round;
    else if constexpr (std::is_enum_v<T>)
        return Enumerators<T>::values[(place + round) % std::size(Enumerators<T>::values)];
    else if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<T>(std::uintptr_t{0x7fe0'0000'0000} + 16 * number);
    else if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(number) + T{0.5};
    else if constexpr (sizeof(T) > sizeof(int))
        return (T{1} << 40) + static_cast<T>(number);
    else
        return static_cast<T>(number);
}

#endif
