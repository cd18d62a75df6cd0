// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_NODEBUILDER_H
#define PPS_NODEBUILDER_H

#include "JsonString.h"
#include "LineGrammar.h"
#include "NodeTree.h"
#include "Number.h"

#include <string_view>

namespace pps {

/**
 * Builds the tree of a message from what its scanner reports. Strings stay in the text: they are
 * unescaped and zero-terminated where they stand, over the byte behind them, which has been read by
 * then. Functions that return bool return false when out of memory.
 */
class NodeBuilder
{
public:
    /** @param text the text that is scanned; what is reported lies in it */
    NodeBuilder(NodeTree& tree, char* text) : m_tree(tree), m_text(text) {}

    /** The name of the element that comes next. */
    void name(std::string_view name)
    {
        m_name = terminated(name.data(), writable(name.data() + name.size()));
    }
    void name(const JsonString& name) { m_name = unescaped(name); }

    bool start(bool object)
    {
        Node* const node = add(object ? PPS_TYPE_OBJECT : PPS_TYPE_ARRAY);
        if (!node)
            return false;
        node->count = 0;
        m_open = m_tree.size() - 1;
        return true;
    }

    void end()
    {
        Node& container = m_tree[m_open];
        container.next = m_tree.size();
        m_open = container.parent;
    }

    bool text(std::string_view value, bool isEscaped)
    {
        Node* const node = add(PPS_TYPE_STRING);
        if (!node)
            return false;
        char* const begin = writable(value.data());
        char* const end = begin + value.size();
        node->string = terminated(begin, isEscaped ? unescapeText(begin, end) : end);
        return true;
    }

    bool string(const JsonString& value)
    {
        Node* const node = add(PPS_TYPE_STRING);
        if (!node)
            return false;
        node->string = unescaped(value);
        return true;
    }

    bool number(const Number& value)
    {
        Node* const node = add(PPS_TYPE_NUMBER);
        if (!node)
            return false;
        node->isInteger = value.isInteger;
        if (value.isInteger)
            node->integer = value.integer;
        else
            node->real = value.real;
        return true;
    }

    bool boolean(bool value)
    {
        Node* const node = add(PPS_TYPE_BOOL);
        if (!node)
            return false;
        node->boolean = value;
        return true;
    }

    bool null() { return add(PPS_TYPE_NULL) != nullptr; }
    bool deleted() { return add(PPS_TYPE_DELETED) != nullptr; }

private:
    Node* add(pps_type_t type)
    {
        Node* const node = m_tree.append();
        if (!node)
            return nullptr;
        node->name = m_name;
        node->next = m_tree.size();
        node->parent = m_open;
        node->position = m_open == Node::None ? 0 : m_tree[m_open].count++;
        node->type = static_cast<std::uint8_t>(type);
        m_name = nullptr;
        return node;
    }

    char* writable(const char* place) { return m_text + (place - m_text); }

    static const char* terminated(const char* begin, char* end)
    {
        *end = '\0';
        return begin;
    }

    const char* unescaped(const JsonString& string)
    {
        char* const begin = writable(string.begin);
        char* const end = writable(string.end);
        return terminated(begin, string.escaped ? unescapeJsonString(begin, end) : end);
    }

    NodeTree& m_tree;
    char* const m_text;
    const char* m_name = nullptr;
    std::uint32_t m_open = Node::None; ///< the innermost container that has not ended
};

} // namespace pps

#endif
