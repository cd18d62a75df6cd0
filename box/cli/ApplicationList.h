// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_APPLICATIONLIST_H
#define TAMOBOX_APPLICATIONLIST_H

#include <string>

namespace tamobox {

/** What `/pps` says of the navigator's applications. */
class ApplicationList
{
public:
    /** Reads it in the box that this process is in. Throws ObjectFailure where `/pps` has ended. */
    static ApplicationList read();

    /** The published object's attributes: `foreground`, `applications`, `locked`. */
    std::string toJson() const { return m_json; }

    /** A table for people, a line for each application, with what it has set below. */
    std::string toText() const;

private:
    std::string m_json;
};

} // namespace tamobox

#endif
