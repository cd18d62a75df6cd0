// SPDX-License-Identifier: Apache-2.0
#include "ObjectName.h"

#include "Limits.h"
#include "TextReader.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace ppsfs {
namespace {

struct OptionWord
{
    std::string_view word;
    OpenOption option;
};

constexpr OptionWord OptionWords[] = {
    {"wait", WaitOption},
    {"changes", ChangesOption},
    {"serve", ServeOption},
};

int parseOptions(std::string_view text, OpenOptions& options)
{
    for (;;) {
        const std::size_t comma = text.find(',');
        const std::string_view word = text.substr(0, comma);
        const auto known =
            std::find_if(std::begin(OptionWords), std::end(OptionWords),
                         [word](const OptionWord& candidate) { return candidate.word == word; });
        if (known == std::end(OptionWords))
            return EINVAL;
        options = static_cast<OpenOptions>(options | known->option);
        if (comma == std::string_view::npos)
            break;
        text.remove_prefix(comma + 1);
    }
    const bool contradicting = (options & ChangesOption) && (options & ServeOption);
    return contradicting ? EINVAL : 0;
}

} // namespace

int ObjectName::parse(std::string_view name, ObjectName& parsed)
{
    if (name.size() > limits::NameSize)
        return ENAMETOOLONG;
    const std::size_t mark = name.find('?');
    parsed = ObjectName{name.substr(0, mark), 0};
    if (parsed.plain.empty())
        return EINVAL;
    return mark == std::string_view::npos ? 0 : parseOptions(name.substr(mark + 1), parsed.options);
}

bool isValidNodeName(std::string_view plain)
{
    const std::string heading = headingOf(plain);
    pps::TextReader reader(heading);
    pps::Line line;
    return reader.next(line) && line.kind == pps::LineKind::Object &&
           line.name.size() + 1 == heading.size();
}

std::string headingOf(std::string_view plain)
{
    std::string heading;
    heading.reserve(plain.size() + 2);
    heading += '@';
    heading += plain;
    heading += '\n';
    return heading;
}

} // namespace ppsfs
