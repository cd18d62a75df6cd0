// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_LOG_H
#define TAMO_CORE_LOG_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string>
#include <string_view>

namespace tamo::detail {

inline void appendTo(std::string& line, std::string_view text)
{
    line += text;
}

/** A text of the platform's; NULL is written as nothing. */
inline void appendTo(std::string& line, const char* text)
{
    line += text ? text : "";
}

inline void appendTo(std::string& line, int number)
{
    line += std::to_string(number);
}

inline void appendTo(std::string& line, const QByteArray& text)
{
    line.append(text.constData(), static_cast<std::size_t>(text.size()));
}

inline void appendTo(std::string& line, const QString& text)
{
    appendTo(line, text.toUtf8());
}

/** Writes one line, without its end, to std::cout, whole, and flushes it. Never throws. */
void writeLogLine(std::string line) noexcept;

/** As writeLogLine(), to std::cerr. */
void writeErrorLine(std::string line) noexcept;

/** Writes its arguments as one line of the log. May be called from any thread, under any lock. */
template<typename... Parts>
void logLine(const Parts&... parts)
{
    std::string line;
    (appendTo(line, parts), ...);
    writeLogLine(std::move(line));
}

/** As logLine(), for what is written to standard error. */
template<typename... Parts>
void logErrorLine(const Parts&... parts)
{
    std::string line;
    (appendTo(line, parts), ...);
    writeErrorLine(std::move(line));
}

} // namespace tamo::detail

#endif
