// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_MESSAGEWRITER_H
#define TAMOBOX_MESSAGEWRITER_H

#include <pps/encoder.h>

#include <string>

namespace tamobox {

/**
 * Builds the text of one PPS message. Whatever cannot be carried (see <pps/encoder.h>) throws
 * Failure, and the message stays as it was.
 */
class MessageWriter
{
public:
    MessageWriter();
    ~MessageWriter();
    MessageWriter(const MessageWriter&) = delete;
    MessageWriter& operator=(const MessageWriter&) = delete;

    /** The attributes that follow belong to an object; the name is without its at sign. */
    MessageWriter& object(const std::string& name);

    /** Adds one attribute or member. */
    MessageWriter& add(const char* name, const std::string& value);
    MessageWriter& add(const char* name, const char* value);
    MessageWriter& add(const char* name, int value);
    MessageWriter& add(const char* name, double value);
    MessageWriter& add(const char* name, bool value);

    /** The attribute of this name is deleted; at the top level only. */
    MessageWriter& remove(const char* name);

    /** What is added next is a member of an attribute that is an object, up to endObject(). */
    MessageWriter& startObject(const char* name);
    MessageWriter& endObject();

    /** What is added next is an element of an attribute that is an array, up to endArray(); the
     * elements' names are nullptr. */
    MessageWriter& startArray(const char* name);
    MessageWriter& endArray();

    /** The message so far. */
    std::string text();

private:
    MessageWriter& checked(int result);

    pps_encoder_t m_encoder;
};

} // namespace tamobox

#endif
