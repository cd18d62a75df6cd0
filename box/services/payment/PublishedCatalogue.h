// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PUBLISHEDCATALOGUE_H
#define TAMOBOX_PUBLISHEDCATALOGUE_H

#include "Catalogue.h"

#include "services/Publisher.h"

#include <string>

namespace tamobox {

/** The catalogue that the box sells by, and its text in `/pps/box/catalogue`. */
class PublishedCatalogue
{
public:
    /** Takes the one that is published, or publishes the builtin one. Throws Failure where it is
     * none. */
    PublishedCatalogue();

    const Catalogue* operator->() const { return &m_catalogue; }

    /** Replaces it. Throws Failure where the text is none, and nothing has changed. */
    void replace(const std::string& text);

private:
    Publisher m_object;
    Catalogue m_catalogue;
};

} // namespace tamobox

#endif
