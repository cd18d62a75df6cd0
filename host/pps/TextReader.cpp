// SPDX-License-Identifier: Apache-2.0
#include "TextReader.h"

#include "LineGrammar.h"

namespace pps {
namespace {

/** Takes every value and does nothing with it: reading is checking. */
struct Checker
{
    bool start(bool) { return true; }
    void end() {}
    void name(const JsonString&) {}
    bool text(std::string_view, bool) { return true; }
    bool string(const JsonString&) { return true; }
    bool number(const Number&) { return true; }
    bool boolean(bool) { return true; }
    bool null() { return true; }
};

} // namespace

bool TextReader::next(Line& line)
{
    if (m_rest.empty() || m_error)
        return false;
    ++m_lineNumber;
    const Fault* fault = takeLine(m_rest, line);
    if (!fault && line.kind == LineKind::Attribute) {
        Checker checker;
        fault = scanValue(line, checker);
    }
    if (fault)
        m_error = fault->text;
    return !fault;
}

} // namespace pps
