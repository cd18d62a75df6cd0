// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_MESSAGEREADER_H
#define TAMO_PLATFORM_PAYMENT_MESSAGEREADER_H

#include <QtCore/QString>

#include <pps/decoder.h>

#include <optional>
#include <vector>

namespace tamo {
namespace platform {

/** A message of a service's, read by name. What is not there, or is of another type, is none. */
class MessageReader
{
public:
    /** Parses a text; see isValid(). */
    explicit MessageReader(const char* text, std::size_t length);
    MessageReader(const MessageReader&) = delete;
    MessageReader& operator=(const MessageReader&) = delete;
    ~MessageReader();

    /** Whether the text is a message. */
    bool isValid() const { return m_isValid; }

    /** Zero-terminated UTF-8 that lives as long as the reader. */
    std::optional<const char*> utf8(const char* name) const;
    std::optional<QString> text(const char* name) const;
    std::optional<int> integer(const char* name) const;
    std::optional<double> number(const char* name) const;
    std::optional<bool> boolean(const char* name) const;

    /** Sets a value from a text, where it is there. */
    void readText(const char* name, QString& value) const;

    /** Enters an object, until leave(). False, and it stays where it is, where it is not there. */
    bool enterObject(const char* name);
    /** Likewise, an array. */
    bool enterArray(const char* name);
    /** Likewise, either. */
    bool enterContainer(const char* name);
    /** Likewise, the object that is an element of the current array. */
    bool enterElement(int index);
    void leave();

    /** The number of elements of what was entered. */
    int length() const;

private:
    bool enter(const char* name, pps_type_t type);

    std::vector<char> m_text;
    pps_decoder_t m_decoder;
    bool m_isValid;
};

} // namespace platform
} // namespace tamo

#endif
