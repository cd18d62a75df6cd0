// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_MESSAGEPARSER_H
#define PPS_MESSAGEPARSER_H

#include "Fault.h"
#include "NodeBuilder.h"
#include "NodeTree.h"

#include <cstddef>

namespace pps {

/** Parses one message, in place, into a tree whose first node is the message's top level. */
class MessageParser
{
public:
    /**
     * @param tree an empty tree
     * @param text zero-terminated; it is changed, and the tree's strings lie in it
     */
    MessageParser(NodeTree& tree, char* text) : m_text(text), m_builder(tree, text) {}

    /** Parses PPS text. Where that fails, what is in the tree means nothing. */
    const Fault* parsePps();

    /** Parses a JSON object; as above. */
    const Fault* parseJson();

    /** The line that was read last, counted from 1. */
    std::size_t lineNumber() const { return m_lineNumber; }

private:
    const Fault* addLine(const Line& line);
    void endObject();

    char* const m_text;
    NodeBuilder m_builder;
    std::size_t m_lineNumber = 0;
    bool m_inObject = false; ///< whether attributes belong to an object line that stood before
};

} // namespace pps

#endif
