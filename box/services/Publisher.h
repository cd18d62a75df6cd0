// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PUBLISHER_H
#define TAMOBOX_PUBLISHER_H

#include "pps/MessageWriter.h"
#include "pps/ObjectFile.h"

#include <functional>
#include <optional>
#include <string>

namespace tamobox {

/** Publishes one object of a service. */
class Publisher
{
public:
    /** @param object its path below `/pps`; the last part is its name. Throws ObjectFailure. */
    explicit Publisher(const std::string& object);

    /** Publishes one attribute; the others stay. Throws ObjectFailure. */
    template<typename Value>
    void publish(const char* attribute, const Value& value)
    {
        MessageWriter message;
        message.object(m_name).add(attribute, value);
        m_file.write(message.text());
    }

    /** Publishes several attributes, which `fill` adds, at once. Throws ObjectFailure. */
    void publish(const std::function<void(MessageWriter&)>& fill);

    /** As publish(), but publishes nothing where the last such call had the same attributes. */
    void publishChange(const std::function<void(MessageWriter&)>& fill);

    /** What is published now; nothing where nothing ever was. Throws ObjectFailure. */
    std::optional<std::string> published() const;

private:
    std::string m_path;
    std::string m_name;
    ObjectFile m_file;
    std::string m_lastChange; // as text; empty: none yet
};

} // namespace tamobox

#endif
