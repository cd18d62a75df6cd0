// SPDX-License-Identifier: Apache-2.0
#include "DisplayReader.h"

#include "DisplayName.h"

#include <pps/decoder.h>
#include <screen/screen.h>

#include <cerrno>
#include <string>
#include <unordered_set>
#include <utility>

namespace screen {
namespace {

class Decoder
{
public:
    explicit Decoder(char* text) { m_result = pps_decoder_initialize(&m_decoder, text); }
    ~Decoder() { pps_decoder_cleanup(&m_decoder); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    bool isParsed() const { return m_result == 0; }
    pps_decoder_t* get() { return &m_decoder; }

private:
    pps_decoder_t m_decoder{};
    int m_result;
};

/** Reads the members of one display, on which the decoder stands. */
class MemberReader
{
public:
    explicit MemberReader(pps_decoder_t* decoder) : m_decoder(decoder) {}

    /** False once a member was of another type or value than it may be. */
    bool isWellFormed() const { return m_isWellFormed; }

    bool has(const char* name) const { return pps_decoder_type(m_decoder, name) != PPS_TYPE_NONE; }

    /** A whole number that is not below `least`. */
    void read(const char* name, int& value, int least)
    {
        if (has(name))
            check(pps_decoder_get_int(m_decoder, name, &value) == 0 && value >= least);
    }

    void read(const char* name, bool& value)
    {
        if (has(name))
            check(pps_decoder_get_bool(m_decoder, name, &value) == 0);
    }

    void read(const char* name, std::string& value)
    {
        const char* text = nullptr;
        if (!has(name))
            return;
        check(pps_decoder_get_string(m_decoder, name, &text) == 0);
        if (text)
            value = text;
    }

    void check(bool isRight) { m_isWellFormed = m_isWellFormed && isRight; }

private:
    pps_decoder_t* m_decoder;
    bool m_isWellFormed = true;
};

/** Reads the display on which the decoder stands, inside. Whether it is one. */
bool readDisplay(pps_decoder_t* decoder, Display& display)
{
    MemberReader members(decoder);
    members.check(members.has("id") && members.has("width") && members.has("height"));
    members.read("id", display.id, 1);
    members.read("width", display.width, 1);
    members.read("height", display.height, 1);
    members.read("physicalWidth", display.physicalWidth, 0);
    members.read("physicalHeight", display.physicalHeight, 0);
    members.read("rotation", display.rotation, 0);
    members.check(display.rotation % 90 == 0 && display.rotation < 360);
    std::string type = "external";
    members.read("type", type);
    members.check(type == "internal" || type == "external");
    display.isInternal = type == "internal";
    display.isDetachable = !display.isInternal;
    members.read("detachable", display.isDetachable);
    members.read("attached", display.isAttached);
    members.read("name", display.name);
    display.name.resize(cutToFit(display.name, SCREEN_DISPLAY_NAME_SIZE - 1).size());
    return members.isWellFormed();
}

} // namespace

std::vector<Display> builtInDisplays()
{
    Display display;
    display.id = 1;
    display.name = "Built-in display";
    display.isInternal = true;
    display.isDetachable = false;
    display.width = 768;
    display.height = 1280;
    display.physicalWidth = 53;
    display.physicalHeight = 88;
    return {display};
}

int readDisplays(char* text, std::vector<Display>& displays)
{
    Decoder owner(text);
    if (!owner.isParsed())
        return errno == ENOMEM ? ENOMEM : EBADMSG;
    pps_decoder_t* const decoder = owner.get();
    if (pps_decoder_push(decoder, "@displays") != 0 ||
        pps_decoder_type(decoder, "displays") == PPS_TYPE_NONE) {
        displays = builtInDisplays();
        return 0;
    }
    if (pps_decoder_type(decoder, "displays") != PPS_TYPE_ARRAY ||
        pps_decoder_push(decoder, "displays") != 0)
        return EBADMSG;
    std::vector<Display> found;
    std::unordered_set<int> ids;
    for (int index = 0; pps_decoder_goto_index(decoder, index) == 0; ++index) {
        if (pps_decoder_type(decoder, nullptr) != PPS_TYPE_OBJECT ||
            pps_decoder_push(decoder, nullptr) != 0)
            continue;
        Display display;
        if (readDisplay(decoder, display) && ids.insert(display.id).second)
            found.push_back(std::move(display));
        pps_decoder_pop(decoder);
    }
    displays = std::move(found);
    return 0;
}

} // namespace screen
