// SPDX-License-Identifier: Apache-2.0
// Any message: whatever the encoder accepts decodes to an equal one, what it refuses adds nothing.
#include "Require.h"

#include "Message.h"
#include "Value.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstring>
#include <string>

namespace {

using test::Member;
using test::Value;

constexpr int MaxDepth = 6;
constexpr int MaxElements = 8;

std::string string(FuzzedDataProvider& input)
{
    const std::string bytes = input.ConsumeRandomLengthString();
    return bytes.c_str(); // up to a NUL, as the encoder sees it
}

/** Any double, NaN and the infinities among them. */
double real(FuzzedDataProvider& input)
{
    const auto bits = input.ConsumeIntegral<std::uint64_t>();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

Value value(FuzzedDataProvider& input, int depth)
{
    switch (input.ConsumeIntegralInRange(0, depth < MaxDepth ? 6 : 4)) {
    case 0:
        return {Value::Null()};
    case 1:
        return {input.ConsumeBool()};
    case 2:
        return {input.ConsumeIntegral<std::int64_t>()};
    case 3:
        return {real(input)};
    case 4:
        return {string(input)};
    case 5: {
        Value::Array elements;
        for (int count = input.ConsumeIntegralInRange(0, MaxElements); count > 0; --count)
            elements.push_back(value(input, depth + 1));
        return {std::move(elements)};
    }
    default: {
        Value::Object members;
        for (int count = input.ConsumeIntegralInRange(0, MaxElements); count > 0; --count)
            members.push_back({string(input), value(input, depth + 1)});
        return {std::move(members)};
    }
    }
}

void check(const Value::Object& message, test::Encoder::Mode mode, test::Decoder::Parser parser)
{
    test::Encoder encoder(mode);
    Value::Object accepted;
    for (const Member& member : message) {
        test::Encoder alone(mode);
        if (test::encode({member}, alone)) {
            require(test::encode({member}, encoder), "a member is accepted alone only");
            accepted.push_back(member);
            continue;
        }
        // Inside a container a refusal leaves the container open, so only what is refused as a
        // whole can be tried here.
        const bool isContainer = std::holds_alternative<Value::Array>(member.value.is) ||
                                 std::holds_alternative<Value::Object>(member.value.is);
        if (!isContainer)
            require(!test::encode({member}, encoder), "a member is refused alone only");
    }
    test::Decoder decoder(encoder.text(), parser);
    require(decoder.result() == 0, "what was encoded is not decoded");
    require(test::holds(decoder, accepted), "what was encoded decodes to something else");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    Value::Object message;
    while (input.remaining_bytes() > 0)
        message.push_back({string(input), value(input, 0)});
    check(message, test::Encoder::Text, pps_decoder_parse_pps_str);
    check(message, test::Encoder::Raw, pps_decoder_parse_json_str);
    return 0;
}
