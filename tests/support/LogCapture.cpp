// SPDX-License-Identifier: Apache-2.0
#include "LogCapture.h"

#include <algorithm>
#include <condition_variable>
#include <iostream>
#include <mutex>
#include <streambuf>
#include <utility>

namespace tamotest {

using Lock = std::unique_lock<std::mutex>;

class LogCapture::Buffer : public std::streambuf
{
public:
    mutable std::mutex mutex; // guards what follows
    mutable std::condition_variable written;
    std::vector<std::string> lines;
    std::string unfinished;
    bool isKeeping = true;

protected:
    std::streamsize xsputn(const char* text, std::streamsize length) override
    {
        const Lock lock(mutex);
        std::for_each(text, text + length, [this](char c) { append(c); });
        return length;
    }

    int_type overflow(int_type c) override
    {
        if (traits_type::eq_int_type(c, traits_type::eof()))
            return traits_type::not_eof(c);
        const Lock lock(mutex);
        append(traits_type::to_char_type(c));
        return c;
    }

private:
    void append(char c)
    {
        if (c != '\n') {
            unfinished += c;
            return;
        }
        if (isKeeping)
            lines.push_back(unfinished);
        unfinished.clear();
        written.notify_all();
    }
};

LogCapture& LogCapture::instance()
{
    static auto& capture = *new LogCapture;
    return capture;
}

LogCapture::LogCapture() : m_buffer(new Buffer)
{
    std::cout.rdbuf(m_buffer);
}

std::vector<std::string> LogCapture::lines() const
{
    const Lock lock(m_buffer->mutex);
    return m_buffer->lines;
}

std::vector<std::string> LogCapture::linesWith(const std::string& beginning) const
{
    const Lock lock(m_buffer->mutex);
    std::vector<std::string> found;
    std::copy_if(m_buffer->lines.begin(), m_buffer->lines.end(), std::back_inserter(found),
                 [&](const std::string& line) { return line.rfind(beginning, 0) == 0; });
    return found;
}

std::vector<std::string> LogCapture::takeWithout(const std::string& beginning)
{
    const Lock lock(m_buffer->mutex);
    std::vector<std::string> lines = std::exchange(m_buffer->lines, {});
    const auto begins = [&](const std::string& line) { return line.rfind(beginning, 0) == 0; };
    lines.erase(std::remove_if(lines.begin(), lines.end(), begins), lines.end());
    return lines;
}

int LogCapture::count(const std::string& line) const
{
    const Lock lock(m_buffer->mutex);
    return static_cast<int>(std::count(m_buffer->lines.begin(), m_buffer->lines.end(), line));
}

bool LogCapture::waitFor(const std::string& line, int times, std::chrono::milliseconds limit) const
{
    Lock lock(m_buffer->mutex);
    return m_buffer->written.wait_for(lock, limit, [&] {
        return std::count(m_buffer->lines.begin(), m_buffer->lines.end(), line) >= times;
    });
}

void LogCapture::setKeeping(bool isKeeping)
{
    const Lock lock(m_buffer->mutex);
    m_buffer->isKeeping = isKeeping;
}

void LogCapture::clear()
{
    const Lock lock(m_buffer->mutex);
    m_buffer->lines.clear();
    m_buffer->isKeeping = true;
}

} // namespace tamotest
