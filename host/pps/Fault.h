// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_FAULT_H
#define PPS_FAULT_H

#include <cerrno>

namespace pps {

/** Something that is wrong with a text. Functions of the grammar return one of these, or null. */
struct Fault
{
    int code;         ///< the `errno` value that tells it to a caller
    const char* text; ///< a static text that tells it to a person
};

namespace faults {

inline constexpr Fault OutOfMemory{ENOMEM, "out of memory"};
inline constexpr Fault TooDeep{EOVERFLOW, "nested too deeply"};

inline constexpr Fault Utf8{EINVAL, "not valid UTF-8"};
inline constexpr Fault Nul{EINVAL, "the character NUL"};
inline constexpr Fault CarriageReturn{EINVAL, "a raw carriage return"};

inline constexpr Fault EmptyLine{EINVAL, "an empty line"};
inline constexpr Fault ObjectName{EINVAL, "an object line without a name"};
inline constexpr Fault EmptyName{EINVAL, "an attribute without a name"};
inline constexpr Fault NameStart{EINVAL, "an attribute name that begins with '@', '-' or '+@'"};
inline constexpr Fault NameColon{EINVAL, "an attribute name with a colon"};
inline constexpr Fault Colons{EINVAL, "an attribute line without two colons"};
inline constexpr Fault Marker{EINVAL, "an unknown marker"};
inline constexpr Fault TextEscape{EINVAL, "an unknown escape; '\\n', '\\r' and '\\\\' are known"};
inline constexpr Fault Boolean{EINVAL, "a boolean that is neither 'true' nor 'false'"};

inline constexpr Fault Number{EINVAL, "not a number"};
inline constexpr Fault NumberRange{EINVAL, "a number outside the range of a double"};

inline constexpr Fault JsonRoot{EINVAL, "a json value that is not an object, an array or null"};
inline constexpr Fault JsonObject{EINVAL, "not a JSON object"};
inline constexpr Fault JsonValue{EINVAL, "JSON: a value expected"};
inline constexpr Fault JsonName{EINVAL, "JSON: a member's name in quotes expected"};
inline constexpr Fault JsonColon{EINVAL, "JSON: a colon expected"};
inline constexpr Fault JsonComma{EINVAL, "JSON: a comma or the end of the container expected"};
inline constexpr Fault JsonTrailing{EINVAL, "JSON: text after the value"};
inline constexpr Fault JsonString{EINVAL, "JSON: a string that does not end"};
inline constexpr Fault JsonControl{EINVAL, "JSON: a control character in a string"};
inline constexpr Fault JsonEscape{EINVAL, "JSON: an unknown escape"};
inline constexpr Fault JsonSurrogate{EINVAL, "JSON: a surrogate without its partner"};

} // namespace faults
} // namespace pps

#endif
