// SPDX-License-Identifier: Apache-2.0
#include "BoxPlan.h"

#include "Failure.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <cstring>
#include <type_traits>

namespace tamobox {

namespace {

/** Appends values to a text of bytes; PlanReader takes them out in the same order. */
class PlanWriter
{
public:
    template<typename Plain>
    void field(const Plain& value)
    {
        static_assert(std::is_trivially_copyable_v<Plain>);
        m_bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    }

    void field(const std::string& value)
    {
        field(value.size());
        m_bytes += value;
    }

    void field(const std::vector<std::string>& values)
    {
        field(values.size());
        for (const std::string& value : values)
            field(value);
    }

    const std::string& bytes() const { return m_bytes; }

private:
    std::string m_bytes;
};

class PlanReader
{
public:
    explicit PlanReader(std::string bytes) : m_bytes(std::move(bytes)) {}

    template<typename Plain>
    void field(Plain& value)
    {
        static_assert(std::is_trivially_copyable_v<Plain>);
        std::memcpy(&value, take(sizeof value), sizeof value);
    }

    void field(std::string& value)
    {
        std::size_t size = 0;
        field(size);
        value.assign(take(size), size);
    }

    void field(std::vector<std::string>& values)
    {
        std::size_t count = 0;
        field(count);
        for (; count != 0; --count)
            field(values.emplace_back());
    }

private:
    const char* take(std::size_t size)
    {
        if (size > m_bytes.size() - m_position)
            throw Failure("tamo-box-init is started by tamo-box run, not by hand");
        const char* const taken = m_bytes.data() + m_position;
        m_position += size;
        return taken;
    }

    std::string m_bytes;
    std::size_t m_position = 0;
};

// One list of the fields, for both directions.
template<typename Visitor, typename Plan>
void visitFields(Visitor& visitor, Plan& plan)
{
    visitor.field(plan.boxName);
    visitor.field(plan.controlSocket);
    visitor.field(plan.listeningSocket);
    visitor.field(plan.standardStreams);
    visitor.field(plan.workingDirectory);
    visitor.field(plan.capabilities);
    visitor.field(plan.signalMask);
    visitor.field(plan.childSignalIgnored);
    visitor.field(plan.arguments);
    visitor.field(plan.environment);
    visitor.field(plan.stateDirectory);
    visitor.field(plan.catalogue);
    visitor.field(plan.leftOut);
}

void writeAll(int fd, const std::string& bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = write(fd, bytes.data() + done, bytes.size() - done);
        if (count == -1)
            throw systemFailure("cannot write the box's plan");
        done += static_cast<std::size_t>(count);
    }
}

std::string readAll(int fd)
{
    struct stat status = {};
    if (fstat(fd, &status) == -1)
        throw systemFailure("tamo-box-init is started by tamo-box run, not by hand");
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count =
            pread(fd, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
        if (count <= 0)
            throw systemFailure("cannot read the box's plan");
        done += static_cast<std::size_t>(count);
    }
    return bytes;
}

} // namespace

Descriptor BoxPlan::toDescriptor() const
{
    Descriptor memory(memfd_create("tamo-box-plan", 0));
    if (!memory)
        throw systemFailure("cannot make room for the box's plan");
    PlanWriter writer;
    visitFields(writer, *this);
    writeAll(memory.get(), writer.bytes());
    return memory;
}

BoxPlan BoxPlan::fromDescriptor(int fd)
{
    PlanReader reader(readAll(fd));
    BoxPlan plan;
    visitFields(reader, plan);
    return plan;
}

} // namespace tamobox
