// SPDX-License-Identifier: Apache-2.0
#include "NetStatusMessage.h"

#include <pps/decoder.h>

#include <zel/netstatus.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace zel {
namespace {

/** A decoder that stands in the one object of a text, if that is what the text is. */
class Decoder
{
public:
    explicit Decoder(ObjectMessage message)
    {
        const bool isWhole = std::strlen(message.text) == message.length;
        const bool isParsed = pps_decoder_initialize(&m_decoder, message.text) == 0;
        m_error = isParsed || errno != ENOMEM ? EBADMSG : ENOMEM;
        if (!isWhole) {
            m_fault = "it holds a NUL";
        } else if (!isParsed) {
            const char* const reason = pps_decoder_error(&m_decoder, nullptr);
            m_fault = reason ? reason : "it cannot be decoded";
        } else if (pps_decoder_length(&m_decoder) != 1 ||
                   pps_decoder_push(&m_decoder, nullptr) != 0) {
            m_fault = "it is not one object";
        } else {
            m_error = 0;
        }
    }
    ~Decoder() { pps_decoder_cleanup(&m_decoder); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    pps_decoder_t& get() { return m_decoder; }

    /** 0, EBADMSG or ENOMEM; and what is wrong in words. */
    int error() const { return m_error; }
    const std::string& fault() const { return m_fault; }

private:
    pps_decoder_t m_decoder;
    int m_error = 0;
    std::string m_fault;
};

/** The code of a message's event. False, and why, where it has none. */
bool readCode(pps_decoder_t& decoder, int& code, std::string& fault)
{
    const char* name = nullptr;
    if (pps_decoder_get_string(&decoder, "msg", &name) != 0) {
        fault = "it has no \"msg\"";
    } else if (std::strcmp(name, "info") == 0) {
        code = NETSTATUS_INFO;
    } else if (std::strcmp(name, "event") != 0) {
        fault = "unknown message \"" + std::string(name).substr(0, 64) + '"';
    } else if (pps_decoder_get_int(&decoder, "code", &code) != 0) {
        fault = "its \"code\" is not a whole number";
    }
    return fault.empty();
}

} // namespace

std::unique_ptr<NetStatusEvent> readNetStatusMessage(ObjectMessage message, std::string& fault)
{
    Decoder decoder(message);
    fault = decoder.fault();
    int code = 0;
    if (decoder.error() || !readCode(decoder.get(), code, fault))
        return nullptr;
    NetworkState state;
    if (const char* const malformed = readNetworkState(decoder.get(), state)) {
        fault = std::string("its \"") + malformed + "\" is malformed";
        return nullptr;
    }
    // The application would take what is not known for a network that is lost.
    if (code == NETSTATUS_INFO && !state.isAvailable) {
        fault = "it has no \"available\"";
        return nullptr;
    }
    return std::make_unique<NetStatusEvent>(code, std::move(state));
}

int readNetStatusObject(ObjectMessage message, NetworkState& state)
{
    Decoder decoder(message);
    if (decoder.error())
        return decoder.error();
    return readNetworkState(decoder.get(), state) ? EBADMSG : 0;
}

} // namespace zel
