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
    std::uint32_t container = 0;
    std::uint32_t element = Node::None;
    const Fault* fault = nullptr;
    std::size_t faultLine = 0;

    const Node* find(const char* name) const
    {
        if (!name)
            return element == Node::None ? nullptr : &nodes[element];
        if (nodes[container].type != PPS_TYPE_OBJECT)
            return nullptr;
        const Node* found = nullptr;
        for (std::uint32_t i = container + 1; i < nodes[container].next; i = nodes[i].next) {
            if (std::strcmp(nodes[i].name, name) == 0)
                found = &nodes[i];
        }
        return found;
    }

    void enter(std::uint32_t index)
    {
        container = index;
        element = nodes[index].count == 0 ? Node::None : index + 1;
    }

    void makeEmpty()
    {
        nodes.clear();
        nodes.append();
        Node& top = nodes[0];
        top.name = nullptr;
        top.count = 0;
        top.next = 1;
        top.parent = Node::None;
        top.position = 0;
        top.type = PPS_TYPE_OBJECT;
    }
};

namespace {

int fail(int code)
{
    errno = code;
    return -1;
}

const Node* find(const pps_decoder_t* decoder, const char* name)
{
    return decoder->state ? decoder->state->find(name) : nullptr;
}

/** Finds an element of one type; null with `errno` where there is none. */
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
        state.makeEmpty();
    state.enter(0);
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
    return state ? static_cast<int>(state->nodes[state->container].count) : 0;
}

int pps_decoder_goto_index(pps_decoder_t* decoder, int index)
{
    if (index < 0 || index >= pps_decoder_length(decoder))
        return fail(ENOENT);
    pps_decoder_state& state = *decoder->state;
    const auto wanted = static_cast<std::uint32_t>(index);
    // A container with elements always has one that the decoder stands on.
    std::uint32_t element = state.element;
    if (wanted < state.nodes[element].position)
        element = state.container + 1;
    while (state.nodes[element].position != wanted)
        element = state.nodes[element].next;
    state.element = element;
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
    decoder->state->enter(static_cast<std::uint32_t>(node - &decoder->state->nodes[0]));
    return 0;
}

int pps_decoder_pop(pps_decoder_t* decoder)
{
    pps_decoder_state* const state = decoder->state;
    if (!state || state->container == 0)
        return fail(ENOENT);
    state->element = state->container;
    state->container = state->nodes[state->element].parent;
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
    constexpr double Limit = 9223372036854775808.0; // 2^63: the first that is too large
    if (node->real < -Limit || node->real >= Limit || node->real != std::trunc(node->real))
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
