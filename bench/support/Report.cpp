// SPDX-License-Identifier: Apache-2.0
#include "Report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <stdexcept>

namespace tamobench {

namespace {

const char* const unmeasured = "not measured";

struct Column
{
    const char* title;
    std::string Figure::*text;
};

const std::array<Column, 7> columns = {{
    {"what", &Figure::what},
    {"measured", &Figure::ours},
    {"against", &Figure::against},
    {"measured", &Figure::theirs},
    {"ratio", &Figure::ratio},
    {"target", &Figure::target},
    {"verdict", &Figure::verdict},
}};

std::string format(const char* pattern, double value)
{
    std::array<char, 64> text = {};
    std::snprintf(text.data(), text.size(), pattern, value);
    return text.data();
}

std::string formatRatio(double ratio)
{
    return format("%.2f", ratio);
}

} // namespace

std::string formatDuration(double nanoseconds)
{
    if (nanoseconds < 1e3)
        return format("%.0f ns", nanoseconds);
    if (nanoseconds < 1e6)
        return format("%.1f us", nanoseconds / 1e3);
    return format("%.1f ms", nanoseconds / 1e6);
}

std::string Target::verdict(double figure) const
{
    if (kind == None)
        return {};
    return (kind == AtMost ? figure <= bound : figure >= bound) ? "met" : "missed";
}

std::string Target::text(const std::string& unit) const
{
    if (kind == None)
        return {};
    return (kind == AtMost ? "<= " : ">= ") + format("%g", bound) +
           (unit.empty() ? "" : " " + unit);
}

void Report::add(const Figure& figure)
{
    m_figures.push_back(figure);
}

void Report::addRatio(const std::string& what, double ours, const std::string& against,
                      double theirs, double ratio, Target target)
{
    add({what, formatDuration(ours), against, formatDuration(theirs), formatRatio(ratio) + " x",
         target.text("x"), target.verdict(ratio)});
}

void Report::addSpeed(const std::string& what, double ours, const std::string& against,
                      double theirs, double speed, Target target)
{
    add({what, formatDuration(ours), against, formatDuration(theirs),
         formatRatio(speed) + " x as fast", target.text("x as fast"), target.verdict(speed)});
}

void Report::addValue(const std::string& what, double value, const std::string& unit, Target target)
{
    add({what,
         format(value < 10 ? "%.3f" : "%.1f", value) + (unit.empty() ? "" : " " + unit),
         {},
         {},
         {},
         target.text(unit),
         target.verdict(value)});
}

void Report::addUnmeasured(const std::string& what, const std::string& reason)
{
    add({what, unmeasured, reason, {}, {}, {}, {}});
}

void Report::print(std::ostream& out) const
{
    std::array<std::size_t, columns.size()> widths = {};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        widths[i] = std::string(columns[i].title).size();
        for (const Figure& figure : m_figures)
            widths[i] = std::max(widths[i], (figure.*columns[i].text).size());
    }
    const auto printLine = [&](const auto& cell) {
        std::ostringstream line;
        for (std::size_t i = 0; i < columns.size(); ++i)
            line << std::left << std::setw(static_cast<int>(widths[i])) << cell(columns[i]) << "  ";
        std::string text = line.str();
        text.erase(text.find_last_not_of(' ') + 1);
        out << text << '\n';
    };
    printLine([](const Column& column) { return std::string(column.title); });
    for (const Figure& figure : m_figures)
        printLine([&](const Column& column) { return figure.*column.text; });
}

void Report::appendTo(const std::string& path) const
{
    std::ofstream file(path, std::ios::app);
    for (const Figure& figure : m_figures) {
        for (const Column& column : columns)
            file << figure.*column.text << (&column == &columns.back() ? '\n' : '\t');
    }
    if (!file.flush())
        throw std::runtime_error("cannot write " + path);
}

void Report::load(const std::string& path)
{
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error("cannot read " + path);
    for (std::string line; std::getline(file, line);) {
        std::istringstream cells(line);
        Figure figure;
        for (const Column& column : columns)
            std::getline(cells, figure.*column.text, '\t');
        add(figure);
    }
}

bool Report::hasUnmeasured() const
{
    return std::any_of(m_figures.begin(), m_figures.end(),
                       [](const Figure& figure) { return figure.ours == unmeasured; });
}

} // namespace tamobench
