// SPDX-License-Identifier: Apache-2.0
#include "NavigatorMessage.h"

#include <pps/decoder.h>

#include <zel/navigator.h>

#include <cstring>

namespace zel {
namespace {

using Part = unsigned;
constexpr Part Nothing = 0;
constexpr Part State = 1U << 0;
constexpr Part Angle = 1U << 1;
constexpr Part Group = 1U << 2;
constexpr Part Data = 1U << 3;
constexpr Part Id = 1U << 4;
constexpr Part Error = 1U << 5;

struct NumberPart
{
    Part part;
    const char* attribute;
    std::optional<int> NavigatorEvent::*member;
};

constexpr NumberPart NumberParts[] = {
    {State, "state", &NavigatorEvent::windowState},
    {Angle, "angle", &NavigatorEvent::angle},
};

struct TextPart
{
    Part part;
    const char* attribute;
    std::optional<std::string> NavigatorEvent::*member;
};

constexpr TextPart TextParts[] = {
    {Group, "group", &NavigatorEvent::groupId},
    {Data, "data", &NavigatorEvent::data},
    {Id, "id", &NavigatorEvent::id},
    {Error, "err", &NavigatorEvent::error},
};

constexpr int OwnCode = -1; // the message has it as `code`

struct Kind
{
    const char* message;
    int code;
    Part parts;
};

constexpr Kind Kinds[] = {
    {"invoke", NAVIGATOR_INVOKE, Data},
    {"exit", NAVIGATOR_EXIT, Nothing},
    {"windowState", NAVIGATOR_WINDOW_STATE, State | Group},
    {"swipeDown", NAVIGATOR_SWIPE_DOWN, Nothing},
    {"swipeStart", NAVIGATOR_SWIPE_START, Nothing},
    {"lowMemory", NAVIGATOR_LOW_MEMORY, Nothing},
    {"orientationCheck", NAVIGATOR_ORIENTATION_CHECK, Angle | Id},
    {"orientation", NAVIGATOR_ORIENTATION, Angle | Id},
    {"back", NAVIGATOR_BACK, Nothing},
    {"windowActive", NAVIGATOR_WINDOW_ACTIVE, Group},
    {"windowInactive", NAVIGATOR_WINDOW_INACTIVE, Group},
    {"orientationEnd", NAVIGATOR_ORIENTATION_DONE, Angle},
    {"orientationResult", NAVIGATOR_ORIENTATION_RESULT, Angle | Id | Error},
    {"windowLock", NAVIGATOR_WINDOW_LOCK, Nothing},
    {"windowUnlock", NAVIGATOR_WINDOW_UNLOCK, Nothing},
    {"event", OwnCode, State | Angle | Group | Data | Id | Error},
};

/** A decoder that cleans up after itself. */
class Decoder
{
public:
    explicit Decoder(char* text) : m_isParsed(pps_decoder_initialize(&m_decoder, text) == 0) {}
    ~Decoder() { pps_decoder_cleanup(&m_decoder); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    bool isParsed() const { return m_isParsed; }
    pps_decoder_t* get() { return &m_decoder; }

    bool has(const char* name) const { return pps_decoder_type(&m_decoder, name) != PPS_TYPE_NONE; }

private:
    pps_decoder_t m_decoder;
    const bool m_isParsed;
};

const Kind* findKind(const char* message)
{
    for (const Kind& kind : Kinds) {
        if (std::strcmp(kind.message, message) == 0)
            return &kind;
    }
    return nullptr;
}

/** Reads the parts that a kind of event has. The name of the one that is malformed, or NULL. */
const char* readParts(Decoder& decoder, Part parts, NavigatorEvent& event)
{
    for (const NumberPart& part : NumberParts) {
        if (!(parts & part.part) || !decoder.has(part.attribute))
            continue;
        int value = 0;
        if (pps_decoder_get_int(decoder.get(), part.attribute, &value) != 0)
            return part.attribute;
        event.*part.member = value;
    }
    for (const TextPart& part : TextParts) {
        if (!(parts & part.part) || !decoder.has(part.attribute))
            continue;
        const char* value = nullptr;
        if (pps_decoder_get_string(decoder.get(), part.attribute, &value) != 0)
            return part.attribute;
        event.*part.member = value;
    }
    return nullptr;
}

} // namespace

std::unique_ptr<NavigatorEvent> readNavigatorMessage(ObjectMessage message, std::string& fault)
{
    if (std::strlen(message.text) != message.length) {
        fault = "it holds a NUL";
        return nullptr;
    }
    Decoder decoder(message.text);
    if (!decoder.isParsed()) {
        const char* const error = pps_decoder_error(decoder.get(), nullptr);
        fault = error ? error : "it cannot be decoded";
        return nullptr;
    }
    if (pps_decoder_length(decoder.get()) != 1 || pps_decoder_push(decoder.get(), nullptr) != 0) {
        fault = "it is not one object";
        return nullptr;
    }
    const char* name = nullptr;
    if (pps_decoder_get_string(decoder.get(), "msg", &name) != 0) {
        fault = "it has no \"msg\"";
        return nullptr;
    }
    const Kind* const kind = findKind(name);
    if (!kind) {
        fault = "unknown message \"" + std::string(name).substr(0, 64) + '"';
        return nullptr;
    }
    int code = kind->code;
    if (code == OwnCode && pps_decoder_get_int(decoder.get(), "code", &code) != 0) {
        fault = "its \"code\" is not a whole number";
        return nullptr;
    }
    auto event = std::make_unique<NavigatorEvent>(code);
    if (const char* const malformed = readParts(decoder, kind->parts, *event)) {
        fault = std::string("the \"") + malformed + "\" of \"" + kind->message +
                "\" is of another type";
        return nullptr;
    }
    return event;
}

} // namespace zel
