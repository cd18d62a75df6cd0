// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_BOXSOCKET_H
#define TAMOBOX_BOXSOCKET_H

#include "Descriptor.h"

#include <sys/types.h>

#include <string>
#include <vector>

namespace tamobox {

/** A box that runs on this machine. */
struct RunningBox
{
    uid_t user = 0;
    std::string name;
};

/** What a box tells whoever connects to it. */
struct BoxIntroduction
{
    std::string status; ///< JSON, see docs/box.md
    Descriptor userNamespace;
    Descriptor mountNamespace;
    Descriptor processNamespace;
    Descriptor rootDirectory;
    /** The way that this came. A box that ends gives those a moment who still hold it. */
    Descriptor connection;
};

/**
 * Where a box is found: an abstract socket whose name holds the user's id and the box's name. It is
 * no file, and the kernel forgets it with the last process of the box that holds it.
 */
namespace boxsocket {

/** Whether a text can be a box's name: 1 to 48 of `a-z A-Z 0-9 . _ -`, the first no `-` or `.`. */
bool isName(const std::string& text);

/**
 * Takes a name for a new box of this user and listens under it.
 *
 * @param name empty for the first free one of `phone`, `phone-2`, ...; it is then put there
 * @throws Failure where a box of that name runs already
 */
Descriptor listen(std::string& name);

/** The boxes of every user, in the order of their names. */
std::vector<RunningBox> running();

/**
 * Asks a box of this user to introduce itself.
 *
 * @throws Failure where there is none of that name, where somebody else pretends to be it, and
 * where it does not answer
 */
BoxIntroduction connect(const std::string& name);

/**
 * Answers one connection to a listening socket; a connection of another user is closed unanswered.
 * Never blocks.
 *
 * @return the connection, which ends when the other side lets go of it; none where there was no
 * answer
 */
Descriptor introduce(int listeningSocket, const BoxIntroduction& introduction);

} // namespace boxsocket

} // namespace tamobox

#endif
