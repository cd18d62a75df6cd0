// SPDX-License-Identifier: Apache-2.0
#include "TextTable.h"

#include "common/Printable.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace tamobox {

namespace {

// In UTF-8.
bool beginsCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

// In characters.
std::size_t widthOf(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

} // namespace

std::vector<std::string> tableLines(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::size_t> widths;
    for (const std::vector<std::string>& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], widthOf(row[i]));
    }
    std::vector<std::string> lines;
    for (const std::vector<std::string>& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - widthOf(row[i]) + 2, ' ');
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(line + '\n');
    }
    return lines;
}

std::string tableCell(const std::string& text)
{
    constexpr std::size_t longest = 60; // bytes
    std::size_t size = std::min(text.size(), longest);
    while (size < text.size() && size > 0 && !beginsCharacter(text[size]))
        --size;
    return printable(text.substr(0, size)) + (size < text.size() ? "..." : "");
}

std::string localTimeText(std::int64_t milliseconds)
{
    const std::time_t moment = static_cast<std::time_t>(milliseconds / 1000);
    std::tm local = {};
    std::array<char, 64> text = {};
    if (localtime_r(&moment, &local) == nullptr ||
        std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local) == 0)
        return std::to_string(milliseconds);
    return text.data();
}

} // namespace tamobox
