// SPDX-License-Identifier: Apache-2.0
// Any bytes as a message: the decoder must not stumble, and must agree with the line reader.
#include "Require.h"

#include "TextReader.h"

#include <pps/decoder.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

/** Reads everything that the decoder presents, by index and by name. */
void walk(pps_decoder_t* decoder)
{
    for (int index = 0; index < pps_decoder_length(decoder); ++index) {
        require(pps_decoder_goto_index(decoder, index) == 0, "an element is missing");
        if (const char* const name = pps_decoder_name(decoder))
            require(pps_decoder_type(decoder, name) != PPS_TYPE_NONE, "a name is not found");
        bool boolean;
        std::int64_t integer;
        double real;
        const char* string;
        switch (pps_decoder_type(decoder, nullptr)) {
        case PPS_TYPE_BOOL:
            require(pps_decoder_get_bool(decoder, nullptr, &boolean) == 0, "no boolean");
            break;
        case PPS_TYPE_NUMBER:
            require(pps_decoder_get_double(decoder, nullptr, &real) == 0, "no number");
            pps_decoder_get_int64(decoder, nullptr, &integer);
            break;
        case PPS_TYPE_STRING:
            require(pps_decoder_get_string(decoder, nullptr, &string) == 0, "no string");
            require(std::strlen(string) < SIZE_MAX, "no end of a string");
            break;
        case PPS_TYPE_ARRAY:
        case PPS_TYPE_OBJECT:
            require(pps_decoder_push(decoder, nullptr) == 0, "a container cannot be entered");
            walk(decoder);
            require(pps_decoder_pop(decoder) == 0, "a container cannot be left");
            break;
        default:
            break;
        }
    }
}

bool isReadByLines(std::string_view text)
{
    pps::TextReader reader(text);
    pps::Line line;
    while (reader.next(line)) {
    }
    return reader.error() == nullptr;
}

bool isDecoded(const std::vector<char>& text, int (*parse)(pps_decoder_t*, char*))
{
    std::vector<char> copy = text; // exactly as long, so that a sanitizer sees what is beyond it
    pps_decoder_t decoder;
    pps_decoder_initialize(&decoder, nullptr);
    const bool isParsed = parse(&decoder, copy.data()) == 0;
    require(isParsed == (pps_decoder_error(&decoder, nullptr) == nullptr),
            "a failure without error");
    require(isParsed || pps_decoder_length(&decoder) == 0, "half a message is left");
    walk(&decoder);
    pps_decoder_cleanup(&decoder);
    return isParsed;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    isReadByLines(bytes); // with whatever NUL is in it

    const std::string_view beforeNul = bytes.substr(0, bytes.find('\0'));
    std::vector<char> text(beforeNul.begin(), beforeNul.end());
    text.push_back('\0');
    require(isDecoded(text, pps_decoder_parse_pps_str) == isReadByLines(beforeNul),
            "the decoder and the line reader disagree");
    isDecoded(text, pps_decoder_parse_json_str);
    return 0;
}
