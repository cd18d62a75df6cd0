// SPDX-License-Identifier: Apache-2.0
// The input is a sequence of operations on a store with two objects and a few open handles, the
// text of some of them included. Whatever comes: no message is malformed or too long, and no client
// reads what was addressed to another one.
#include "Handle.h"
#include "Limits.h"
#include "Listener.h"
#include "ObjectName.h"
#include "ObjectStore.h"
#include "TextReader.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr std::string_view OptionTexts[] = {
    "", "?wait", "?changes", "?serve", "?wait,changes", "?wait,serve", "?serve,changes", "?x"};
constexpr std::string_view ObjectNames[] = {"o", "p"};

void require(bool condition)
{
    if (!condition)
        std::abort();
}

/** What a mailbox's test requests and answers say: the number of the handle they came from. */
constexpr std::string_view Sender = "sender";
constexpr std::string_view Recipient = "recipient";

/** An open handle, numbered over all that were ever opened. */
class Opened final : public ppsfs::Listener
{
public:
    explicit Opened(int number) : m_number(number) {}

    int open(ppsfs::ObjectStore& store, std::string_view name, unsigned access, bool truncates)
    {
        ppsfs::ObjectName parsed;
        if (const int error = ppsfs::ObjectName::parse(name, parsed))
            return error;
        auto object = std::dynamic_pointer_cast<ppsfs::Object>(store.root()->find(parsed.plain));
        if (!object)
            require(store.createObject(*store.root(), parsed.plain, {}, object) == 0);
        const ppsfs::OpenMode mode{parsed.options, (access & 1) != 0, (access & 2) != 0, truncates};
        return ppsfs::Handle::open(std::move(object), mode, {m_number, 0, 0}, *this, m_handle);
    }

    void read()
    {
        const bool wasReadable = m_handle->isReadable();
        const std::string message(m_handle->message());
        require(message.empty() != wasReadable);
        if (message.empty())
            return;
        m_handle->consume();
        require(message.size() <= ppsfs::limits::TextSize && message.back() == '\n');
        check(message);
    }

    /** Writes; what poll calls writable has room, whatever else may be wrong with the text. */
    void write(std::string_view text)
    {
        const bool writable = m_handle->isWritable();
        const int error = m_handle->write(text);
        require(error != EAGAIN || !writable || m_handle->mode().serves());
    }

    /** Sends a request that says who sent it. */
    void request() { write(std::string(Sender) + ":n:" + std::to_string(m_number) + '\n'); }

    /** Answers the sender of the request that was read last. */
    void answer()
    {
        if (!m_address.empty())
            write(m_address + '\n' + std::string(Recipient) + ":n:" + m_sender + '\n');
    }

    void truncate() { m_handle->truncate(); }
    void wake() override {}

private:
    void check(const std::string& message)
    {
        const std::string& name = m_handle->object()->name();
        const bool serves = m_handle->mode().serves();
        pps::TextReader reader(message);
        pps::Line line;
        bool first = true;
        while (reader.next(line)) {
            if (std::exchange(first, false)) {
                require(line.kind != pps::LineKind::Attribute);
                require(line.name.substr(1, name.size()) == name);
                require(serves || line.name.size() == name.size() + 1);
                m_address = serves ? line.name : std::string_view();
                m_sender.clear();
            } else if (line.name == Recipient && !serves && m_handle->object()->isMailbox()) {
                require(line.value == std::to_string(m_number));
            } else if (line.name == Sender && serves) {
                m_sender = line.value;
            }
        }
        require(!reader.error() && !first);
        if (m_sender.empty())
            m_address.clear();
    }

    const int m_number;
    std::unique_ptr<ppsfs::Handle> m_handle;
    std::string m_address;
    std::string m_sender;
};

class Session
{
public:
    explicit Session(FuzzedDataProvider& input) : m_input(input) {}

    void step()
    {
        std::unique_ptr<Opened>& slot =
            m_slots[m_input.ConsumeIntegral<unsigned>() % m_slots.size()];
        const int operation = m_input.ConsumeIntegralInRange(0, 9);
        if (operation <= 1)
            open(slot);
        else if (operation == 2)
            m_store.removeObject(*m_store.root(), m_input.PickValueInArray(ObjectNames));
        else if (slot)
            use(*slot, operation);
    }

private:
    void open(std::unique_ptr<Opened>& slot)
    {
        slot.reset();
        auto opened = std::make_unique<Opened>(++m_lastNumber);
        std::string name(m_input.PickValueInArray(ObjectNames));
        name += m_input.PickValueInArray(OptionTexts);
        if (opened->open(m_store, name, m_input.ConsumeIntegral<unsigned>(),
                         m_input.ConsumeBool()) == 0)
            slot = std::move(opened);
    }

    std::string longLine()
    {
        const char name = m_input.ConsumeIntegralInRange('a', 'd');
        const auto length = m_input.ConsumeIntegralInRange<std::size_t>(0, ppsfs::limits::TextSize);
        return name + std::string("::") + std::string(length, 'x');
    }

    void use(Opened& opened, int operation)
    {
        switch (operation) {
        case 3:
            opened.truncate();
            break;
        case 4:
            opened.request();
            break;
        case 5:
            opened.answer();
            break;
        case 6:
            opened.write(m_input.ConsumeRandomLengthString());
            break;
        case 7: // long lines, so that the limits are met
            opened.write(longLine());
            break;
        default:
            opened.read();
        }
    }

    FuzzedDataProvider& m_input;
    ppsfs::ObjectStore m_store{ppsfs::NodeStatus()};
    std::array<std::unique_ptr<Opened>, 6> m_slots;
    int m_lastNumber = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    Session session(input);
    while (input.remaining_bytes() > 0)
        session.step();
    return 0;
}
