// SPDX-License-Identifier: Apache-2.0
#include "PpsTransport.h"

#include "Descriptor.h"

#include <cerrno>
#include <filesystem>
#include <vector>

#include <fcntl.h>

namespace tamobench {

namespace {

class PpsPublisher : public Publisher
{
public:
    explicit PpsPublisher(const std::string& path)
        : m_object(::open(path.c_str(), O_WRONLY | O_CLOEXEC), "open " + path)
    {
    }

    void prepare(const std::string& text) override { m_text = text; }

    void publish() override
    {
        if (::write(m_object.get(), m_text.data(), m_text.size()) < 0)
            throwErrno("publish");
    }

private:
    Descriptor m_object;
    std::string m_text;
};

class PpsSubscription : public Subscription
{
public:
    explicit PpsSubscription(const std::string& path)
        : m_object(::open(path.c_str(), O_RDONLY | O_CLOEXEC), "open " + path)
        , m_buffer(initialSize)
    {
        receive();
    }

    int descriptor() const override { return m_object.get(); }

    std::string_view receive() override
    {
        for (;;) {
            const ssize_t length = ::read(m_object.get(), m_buffer.data(), m_buffer.size());
            if (length >= 0)
                return {m_buffer.data(), static_cast<std::size_t>(length)};
            if (errno != EMSGSIZE)
                throwErrno("read a publication");
            m_buffer.resize(2 * m_buffer.size());
        }
    }

private:
    static constexpr std::size_t initialSize = 1024;

    Descriptor m_object;
    std::vector<char> m_buffer;
};

} // namespace

PpsTransport::PpsTransport(std::string path) : m_path(std::move(path))
{
    std::filesystem::create_directories(std::filesystem::path(m_path).parent_path());
    Descriptor(::open(m_path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644), "create " + m_path);
}

std::unique_ptr<Publisher> PpsTransport::openPublisher()
{
    return std::make_unique<PpsPublisher>(m_path);
}

std::unique_ptr<Subscription> PpsTransport::openSubscription()
{
    return std::make_unique<PpsSubscription>(m_path);
}

} // namespace tamobench
