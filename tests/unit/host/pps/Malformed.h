// SPDX-License-Identifier: Apache-2.0
#ifndef TEST_PPS_MALFORMED_H
#define TEST_PPS_MALFORMED_H

#include <ostream>
#include <string>

namespace test {

/** A line that no reader of PPS text may accept. */
struct MalformedLine
{
    const char* why;
    std::string line;
};

inline void PrintTo(const MalformedLine& row, std::ostream* stream)
{
    *stream << row.why;
}

/** Lines without NUL, which a zero-terminated text cannot hold. */
inline const MalformedLine MalformedLines[] = {
    {"an empty line", ""},
    {"a raw carriage return in a string", "s::a\rb"},
    {"a carriage return at the end", "s::a\r"},
    {"a line without colons", "name"},
    {"a line with one colon", "name:"},
    {"an empty name", "::x"},
    {"a colon alone", ":"},
    {"a deletion of nothing", "-"},
    {"a deletion of an empty object name", "-@"},
    {"a deletion with a value", "-a:n:1"},
    {"a deletion of a name with a hyphen", "--a"},
    {"a deletion of a client's arrival", "-+@a"},
    {"an object without a name", "@"},
    {"an arrival without a name", "+@"},
    {"an unknown marker", "a:x:1"},
    {"a marker in capitals", "a:N:1"},
    {"a marker with more to it", "a:jsonx:{}"},
    {"a string that is not UTF-8", "s::\xff"},
    {"a name that is not UTF-8", "\xff::s"},
    {"an object name that is not UTF-8", "@\xc3"},
    {"a marker that is not UTF-8", "s:\x80:"},
    {"a truncated sequence", "s::\xe2\x82"},
    {"an overlong form", "s::\xc0\x80"},
    {"a surrogate", "s::\xed\xa0\x80"},
    {"a backslash at the end", "s::a\\"},
    {"an unknown escape", "s::a\\tb"},
    {"an unknown escape after a known one", "s::\\\\\\n\\x"},
    {"no number", "n:n:"},
    {"a sign alone", "n:n:-"},
    {"a positive sign", "n:n:+1"},
    {"a leading zero", "n:n:01"},
    {"a leading point", "n:n:.5"},
    {"a trailing point", "n:n:1."},
    {"an exponent without digits", "n:n:1e"},
    {"a signed exponent without digits", "n:n:1e+"},
    {"a space before a number", "n:n: 1"},
    {"a space behind a number", "n:n:1 "},
    {"two numbers", "n:n:1,2"},
    {"a hexadecimal number", "n:n:0x10"},
    {"infinity", "n:n:inf"},
    {"NaN", "n:n:nan"},
    {"a number too large", "n:n:1e309"},
    {"a negative number too large", "n:n:-1e309"},
    {"a number with an enormous exponent", "n:n:1e99999999999999999999"},
    {"a number too small", "n:n:1e-400"},
    {"a number with many digits that is too small", "n:n:0." + std::string(400, '0') + "1"},
    {"a number with too many digits", "n:n:" + std::string(400, '9')},
    {"no boolean", "b:b:"},
    {"a boolean in capitals", "b:b:True"},
    {"a boolean as a number", "b:b:1"},
    {"a boolean with more to it", "b:b:true "},
    {"no JSON", "j:json:"},
    {"blank JSON", "j:json:  "},
    {"a JSON string", "j:json:\"s\""},
    {"a JSON number", "j:json:1"},
    {"a JSON boolean", "j:json:true"},
    {"a word like null", "j:json:nul"},
    {"a word longer than null", "j:json:nulls"},
    {"an array that does not end", "j:json:["},
    {"an array that does not end, with an element", "j:json:[1"},
    {"an array that does not end, with a comma", "j:json:[1,"},
    {"an array with a trailing comma", "j:json:[1,]"},
    {"an array with a leading comma", "j:json:[,1]"},
    {"an array without a comma", "j:json:[1 2]"},
    {"an array that ends like an object", "j:json:[1}"},
    {"an object that does not end", "j:json:{"},
    {"an object with a name only", "j:json:{\"a\"}"},
    {"an object with a colon only", "j:json:{\"a\":}"},
    {"an object with a trailing comma", "j:json:{\"a\":1,}"},
    {"an object without quotes", "j:json:{a:1}"},
    {"an object with a number for a name", "j:json:{1:1}"},
    {"an object without a comma", "j:json:{\"a\":1\"b\":2}"},
    {"an object that ends like an array", "j:json:{\"a\":1]"},
    {"two values", "j:json:{}{}"},
    {"a value and a closing bracket", "j:json:[]]"},
    {"a string that does not end", "j:json:[\"a]"},
    {"a string that ends in a backslash", "j:json:[\"a\\"},
    {"a control character in a string", "j:json:[\"\t\"]"},
    {"a control character outside", "j:json:[\x01]"},
    {"an unknown JSON escape", "j:json:[\"\\x\"]"},
    {"a quote in single quotes", "j:json:['a']"},
    {"a short Unicode escape", "j:json:[\"\\u12\"]"},
    {"a Unicode escape that is none", "j:json:[\"\\u12g4\"]"},
    {"an escaped NUL", "j:json:[\"\\u0000\"]"},
    {"an escaped NUL in a name", "j:json:{\"\\u0000\":1}"},
    {"a high surrogate alone", "j:json:[\"\\ud83d\"]"},
    {"a high surrogate before text", "j:json:[\"\\ud83dx\\ude00\"]"},
    {"a high surrogate twice", "j:json:[\"\\ud83d\\ud83d\"]"},
    {"a low surrogate alone", "j:json:[\"\\ude00\"]"},
    {"JSON that is not UTF-8", "j:json:[\"\xf0\x9f\x98\"]"},
    {"a JSON number out of range", "j:json:[1e999]"},
    {"a JSON number that begins with zero", "j:json:[00]"},
    {"a minus in JSON", "j:json:[-]"},
    {"a comment", "j:json:[/**/]"},
};

} // namespace test

#endif
