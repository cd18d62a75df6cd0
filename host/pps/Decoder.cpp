// SPDX-License-Identifier: Apache-2.0
#include "Fault.h"
#include "MessageParser.h"
#include "NodeTree.h"

#include <pps/decoder.h>

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstring>
#include <new>

using pps::Fault;
using pps::MessageParser;
using pps::Node;
using pps::NodeTree;

/** What a decoder has parsed and where it stands. It always has a top level, which may be empty. */
struct pps_decoder_state
{
    NodeTree nodes;
    const Node* container = nullptr;
    const Node* element = nullptr; ///< in the container; null where that is empty
    const Fault* fault = nullptr;
    std::size_t faultLine = 0;

    void enter(const Node* node)
    {
        container = node;
        element = node->count == 0 ? nullptr : node + 1;
    }
};

namespace {

int fail(int code)
{
    errno = code;
    return -1;
}

/** Finds the last member of that name in the current container. */
[[gnu::noinline]] const Node* findMember(const pps_decoder_state& state, const char* name)
{
    if (state.container->type != PPS_TYPE_OBJECT)
        return nullptr;
    const Node* found = nullptr;
    const Node* const end = &state.nodes[state.container->next];
    for (const Node* node = state.container + 1; node != end; node = &state.nodes[node->next]) {
        if (std::strcmp(node->name, name) == 0)
            found = node;
    }
    return found;
}

/** The element that a call is about; null where there is none. */
const Node* find(const pps_decoder_t* decoder, const char* name)
{
    const pps_decoder_state* const state = decoder->state;
    if (!state)
        return nullptr;
    return name ? findMember(*state, name) : state->element;
}

/** The same, of one type; null with `errno` where there is none. */
const Node* find(const pps_decoder_t* decoder, const char* name, pps_type_t type)
{
    const Node* const node = find(decoder, name);
    if (node && node->type == type)
        return node;
    errno = node ? EINVAL : ENOENT;
    return nullptr;
}

int parse(pps_decoder_t* decoder, char* text, const Fault* (MessageParser::*parser)())
{
    if (!text)
        return fail(EINVAL);
    if (!decoder->state)
        decoder->state = new (std::nothrow) pps_decoder_state;
    if (!decoder->state)
        return fail(ENOMEM);

    pps_decoder_state& state = *decoder->state;
    state.nodes.clear();
    MessageParser message(state.nodes, text);
    state.fault = (message.*parser)();
    state.faultLine = message.lineNumber();
    if (state.fault)
        state.nodes.makeEmptyObject();
    state.enter(&state.nodes[0]);
    return state.fault ? fail(state.fault->code) : 0;
}

} // namespace

int pps_decoder_initialize(pps_decoder_t* decoder, char* buffer)
{
    decoder->state = nullptr;
    return buffer ? pps_decoder_parse_pps_str(decoder, buffer) : 0;
}

int pps_decoder_parse_pps_str(pps_decoder_t* decoder, char* text)
{
    return parse(decoder, text, &MessageParser::parsePps);
}

int pps_decoder_parse_json_str(pps_decoder_t* decoder, char* text)
{
    return parse(decoder, text, &MessageParser::parseJson);
}

void pps_decoder_cleanup(pps_decoder_t* decoder)
{
    delete decoder->state;
    decoder->state = nullptr;
}

const char* pps_decoder_error(const pps_decoder_t* decoder, size_t* line)
{
    const pps_decoder_state* const state = decoder->state;
    if (!state || !state->fault)
        return nullptr;
    if (line)
        *line = state->faultLine;
    return state->fault->text;
}

int pps_decoder_length(const pps_decoder_t* decoder)
{
    const pps_decoder_state* const state = decoder->state;
    return state ? static_cast<int>(state->container->count) : 0;
}

int pps_decoder_goto_index(pps_decoder_t* decoder, int index)
{
    pps_decoder_state* const state = decoder->state;
    const auto wanted = static_cast<std::uint32_t>(index); // a negative one is above any count
    if (!state || wanted >= state->container->count)
        return fail(ENOENT);
    const Node* node = state->element;
    if (wanted < node->position)
        node = state->container + 1;
    while (node->position != wanted)
        node = &state->nodes[node->next];
    state->element = node;
    return 0;
}

const char* pps_decoder_name(const pps_decoder_t* decoder)
{
    const Node* const node = find(decoder, nullptr);
    return node ? node->name : nullptr;
}

pps_type_t pps_decoder_type(const pps_decoder_t* decoder, const char* name)
{
    const Node* const node = find(decoder, name);
    return node ? static_cast<pps_type_t>(node->type) : PPS_TYPE_NONE;
}

int pps_decoder_push(pps_decoder_t* decoder, const char* name)
{
    const Node* const node = find(decoder, name);
    if (!node)
        return fail(ENOENT);
    if (node->type != PPS_TYPE_OBJECT && node->type != PPS_TYPE_ARRAY)
        return fail(EINVAL);
    decoder->state->enter(node);
    return 0;
}

int pps_decoder_pop(pps_decoder_t* decoder)
{
    pps_decoder_state* const state = decoder->state;
    if (!state || state->container->parent == Node::None)
        return fail(ENOENT);
    state->element = state->container;
    state->container = &state->nodes[state->element->parent];
    return 0;
}

int pps_decoder_get_bool(const pps_decoder_t* decoder, const char* name, bool* value)
{
    const Node* const node = find(decoder, name, PPS_TYPE_BOOL);
    if (!node)
        return -1;
    *value = node->boolean;
    return 0;
}

int pps_decoder_get_int(const pps_decoder_t* decoder, const char* name, int* value)
{
    std::int64_t wide;
    if (pps_decoder_get_int64(decoder, name, &wide) != 0)
        return -1;
    if (wide < INT_MIN || wide > INT_MAX)
        return fail(ERANGE);
    *value = static_cast<int>(wide);
    return 0;
}

int pps_decoder_get_int64(const pps_decoder_t* decoder, const char* name, int64_t* value)
{
    const Node* const node = find(decoder, name, PPS_TYPE_NUMBER);
    if (!node)
        return -1;
    if (node->isInteger) {
        *value = node->integer;
        return 0;
    }
    // An integer at or beyond these limits that fits is not here: it was parsed as an integer.
    constexpr double Limit = 9223372036854775808.0; // 2^63
    if (std::fabs(node->real) >= Limit || node->real != std::trunc(node->real))
        return fail(ERANGE);
    *value = static_cast<std::int64_t>(node->real);
    return 0;
}

int pps_decoder_get_double(const pps_decoder_t* decoder, const char* name, double* value)
{
    const Node* const node = find(decoder, name, PPS_TYPE_NUMBER);
    if (!node)
        return -1;
    *value = node->isInteger ? static_cast<double>(node->integer) : node->real;
    return 0;
}

int pps_decoder_get_string(const pps_decoder_t* decoder, const char* name, const char** value)
{
    const Node* const node = find(decoder, name, PPS_TYPE_STRING);
    if (!node)
        return -1;
    *value = node->string;
    return 0;
}
