// SPDX-License-Identifier: Apache-2.0
#include "MessageParser.h"

#include "JsonScanner.h"
#include "LineGrammar.h"

#include <string_view>

namespace pps {
namespace {

const Fault* report(bool taken)
{
    return taken ? nullptr : &faults::OutOfMemory;
}

} // namespace

[[gnu::flatten]] const Fault* MessageParser::parsePps()
{
    if (const Fault* fault = report(m_builder.start(true)))
        return fault;
    Line line;
    for (std::string_view rest = m_text; !rest.empty();) {
        ++m_lineNumber;
        if (const Fault* fault = takeLine(rest, line))
            return fault;
        if (const Fault* fault = addLine(line))
            return fault;
    }
    endObject();
    m_builder.end();
    return nullptr;
}

const Fault* MessageParser::parseJson()
{
    std::size_t lineEnds = 0;
    const Fault* const fault =
        JsonScanner<NodeBuilder>::scan(m_text, JsonMessage, m_builder, &lineEnds);
    m_lineNumber = lineEnds + 1;
    return fault;
}

const Fault* MessageParser::addLine(const Line& line)
{
    if (line.kind != LineKind::Attribute && line.kind != LineKind::DeletedAttribute)
        endObject();

    // A line that tells of a client is a member under the whole line, not under the bare name.
    m_builder.name(line.kind == LineKind::ArrivedClient ? line.text : line.name);

    switch (line.kind) {
    case LineKind::Object:
    case LineKind::ArrivedClient:
        m_inObject = true;
        return report(m_builder.start(true));
    case LineKind::RemovedObject:
    case LineKind::DeletedAttribute:
        return report(m_builder.deleted());
    case LineKind::Attribute:
        break;
    }
    return scanValue(line, m_builder);
}

void MessageParser::endObject()
{
    if (m_inObject)
        m_builder.end();
    m_inObject = false;
}

} // namespace pps
