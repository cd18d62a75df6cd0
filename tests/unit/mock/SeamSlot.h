// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SEAMSLOT_H
#define TAMO_TESTS_SEAMSLOT_H

#include "DistinctValues.h"
#include "PlatformRecorder.h"

#include <tamomock/ScreenApi.h>
#include <tamomock/ZelApi.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <ostream>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/** What came of calling an operation once. */
struct Outcome
{
    std::vector<Word> passed;     ///< the arguments of the operation
    Word told = 0;                ///< what the platform's function returned
    int toldError = 0;            ///< what it left in `errno`
    std::optional<Word> returned; ///< what the operation returned; nothing: it returns void
    int error = 0;                ///< `errno` afterwards
};

/** A slot of the table, and what the compiler made of it. */
struct SeamSlot
{
    const char* className;
    const char* operation;
    const char* function; ///< nullptr: the operation calls nothing
    std::ptrdiff_t expectedNumber;
    std::ptrdiff_t number;
    std::size_t rounds; ///< how often to call it, so that each argument changes by itself
    std::function<Outcome(std::size_t round)> call;
};

/** A class of the table, and what the compiler made of it. */
struct SeamClass
{
    const char* className;
    std::ptrdiff_t expectedSlots;
    std::ptrdiff_t slots;
    bool expectedEvents;
    bool events;
};

inline std::ostream& operator<<(std::ostream& out, const SeamSlot& slot)
{
    return out << slot.className << "::" << slot.operation;
}

inline std::ostream& operator<<(std::ostream& out, const SeamClass& seam)
{
    return out << seam.className;
}

/** The table, generated. */
const std::vector<SeamSlot>& seamSlots();
const std::vector<SeamClass>& seamClasses();

/** The object that the seam has for a class where no test has put its own there. */
template<class Class>
Class& defaultObject();

inline tamomock::ZelApi& defaultZelApi()
{
    static tamomock::ZelApi api(tamomock::ZelApi::defaultDomains());
    return api;
}

template<>
inline tamomock::ScreenApi& defaultObject()
{
    return *tamomock::ScreenApi::instance();
}

/**
 * The number of an operation's slot, from 0 for the first after the destructor and its deleting
 * form: a pointer to a virtual member function holds the slot's offset in the table of the class,
 * as the C++ ABI of Linux has it.
 */
template<typename Operation>
std::ptrdiff_t slotNumber(Operation operation)
{
    struct
    {
        std::ptrdiff_t pointer;
        std::ptrdiff_t adjustment;
    } representation;
    static_assert(sizeof representation == sizeof operation);
    std::memcpy(&representation, &operation, sizeof operation);
#if defined(__aarch64__) || defined(__arm__)
    const std::ptrdiff_t offset = representation.pointer;
#else
    const std::ptrdiff_t offset = representation.pointer - 1;
#endif
    constexpr std::ptrdiff_t slotSize = sizeof(void*);
    return offset % slotSize == 0 ? offset / slotSize - 2 : -1;
}

template<typename... Arguments, std::size_t... Places>
std::tuple<Arguments...> distinctArguments([[maybe_unused]] std::size_t round,
                                           std::index_sequence<Places...>)
{
    return {distinctValue<Arguments>(Places, round)...};
}

template<class Class, class Owner, typename Result, typename... Arguments>
Outcome callOnce(Result (Owner::*operation)(Arguments...), std::size_t round)
{
    const auto arguments =
        distinctArguments<Arguments...>(round, std::index_sequence_for<Arguments...>());
    Outcome outcome;
    std::apply([&](auto... values) { outcome.passed = {toWord(values)...}; }, arguments);
    if constexpr (std::is_same_v<Result, bool>)
        outcome.told = toWord(round % 2 == 0);
    else if constexpr (!std::is_void_v<Result>)
        outcome.told = toWord(distinctValue<Result>(50, round));
    outcome.toldError = 1000 + static_cast<int>(round);
    PlatformRecorder::answerWith(outcome.told, outcome.toldError);

    Class& object = defaultObject<Class>();
    errno = 0;
    std::apply(
        [&](auto... values) {
            if constexpr (std::is_void_v<Result>)
                (object.*operation)(values...);
            else
                outcome.returned = toWord((object.*operation)(values...));
        },
        arguments);
    outcome.error = errno;
    return outcome;
}

template<class Class, class Owner, typename Result, typename... Arguments>
SeamSlot makeSlot(const char* className, const char* name, const char* function,
                  std::ptrdiff_t expectedNumber, Result (Owner::*operation)(Arguments...))
{
    return {className,
            name,
            function,
            expectedNumber,
            slotNumber(operation),
            sizeof...(Arguments) + 2,
            [operation](std::size_t round) { return callOnce<Class>(operation, round); }};
}

#endif
