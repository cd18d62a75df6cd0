// SPDX-License-Identifier: Apache-2.0
#include "PublishedCatalogue.h"

#include "common/Failure.h"
#include "pps/MessageReader.h"

namespace tamobox {

PublishedCatalogue::PublishedCatalogue() : m_object("box/catalogue")
{
    if (const auto published = m_object.published()) {
        MessageReader reader(*published);
        if (!reader.enter("@catalogue") || !reader.has("text"))
            throw Failure("there is no catalogue in /pps/box/catalogue");
        m_catalogue = Catalogue::parse(reader.string("text").value_or(""), "/pps/box/catalogue");
        return;
    }
    m_catalogue = Catalogue::builtin();
    m_object.publish("text", Catalogue::builtinText());
}

void PublishedCatalogue::replace(const std::string& text)
{
    Catalogue catalogue = Catalogue::parse(text, "the catalogue");
    m_object.publish("text", text);
    m_catalogue = std::move(catalogue);
}

} // namespace tamobox
