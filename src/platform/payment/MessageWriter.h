// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_MESSAGEWRITER_H
#define TAMO_PLATFORM_PAYMENT_MESSAGEWRITER_H

#include "pps/Utf8Buffer.h"

#include <QtCore/QString>

#include <pps/encoder.h>

namespace tamo {
namespace platform {

class ServiceDescriptor;

/**
 * Writes one message to a service, attribute by attribute, in the order of the calls. Texts go out
 * as UTF-8.
 *
 * Every operation throws tamo::Exception for what a PPS object cannot carry. `name` is null for the
 * element of an array.
 */
class MessageWriter
{
public:
    MessageWriter();
    MessageWriter(const MessageWriter&) = delete;
    MessageWriter& operator=(const MessageWriter&) = delete;
    ~MessageWriter();

    void addText(const char* name, const QString& text);
    void addText(const char* name, const char* utf8);
    void addNumber(const char* name, double number);
    void addBool(const char* name, bool value);
    void startObject(const char* name);
    void endObject();
    void startArray(const char* name);
    void endArray();

    /** Writes the message in one piece. Throws too where that fails. */
    void writeTo(const ServiceDescriptor& service);

private:
    pps_encoder_t m_encoder;
    Utf8Buffer m_utf8;
};

} // namespace platform
} // namespace tamo

#endif
