// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PLATFORMRECORDER_H
#define TAMO_TESTS_PLATFORMRECORDER_H

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

/** Any argument or result of the platform's functions, by its bytes. */
using Word = std::uint64_t;

template<typename T>
Word toWord(T value)
{
    static_assert(sizeof value <= sizeof(Word));
    Word word = 0;
    std::memcpy(&word, &value, sizeof value);
    return word;
}

template<typename T>
T fromWord(Word word)
{
    T value;
    std::memcpy(&value, &word, sizeof value);
    return value;
}

/**
 * The platform, in a program that has none: each of its C functions is defined by a generated file,
 * writes its call down here, and returns and leaves in `errno` what the test wants.
 */
class PlatformRecorder
{
public:
    struct Call
    {
        std::string function;
        std::vector<Word> arguments;

        bool operator==(const Call& other) const
        {
            return function == other.function && arguments == other.arguments;
        }

        friend std::ostream& operator<<(std::ostream& out, const Call& call)
        {
            out << call.function << " with" << std::hex;
            for (const Word argument : call.arguments)
                out << " 0x" << argument;
            return out << std::dec;
        }
    };

    /** What was called since the last expectation. */
    static std::vector<Call>& calls()
    {
        static std::vector<Call> all;
        return all;
    }

    /** Forgets what was called, and sets what the functions return. */
    static void answerWith(Word result, int error)
    {
        calls().clear();
        s_result = result;
        s_error = error;
    }

    /** A function was called. */
    template<typename Result, typename... Arguments>
    static Result call(const char* function, Arguments... arguments)
    {
        calls().push_back({function, {toWord(arguments)...}});
        errno = s_error;
        if constexpr (!std::is_void_v<Result>)
            return fromWord<Result>(s_result);
    }

private:
    inline static Word s_result = 0;
    inline static int s_error = 0;
};

#endif
