// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_POLICY_H
#define TAMOBOX_POLICY_H

#include <chrono>
#include <string>

namespace tamobox {

/** What becomes of a request. */
struct Decision
{
    enum class Kind {
        Approve, ///< it is carried out
        Cancel,  ///< as if the user had thought better of it
        Fail,    ///< with `code` and `text`
        Garbage  ///< an answer that nobody can read
    };

    Kind kind = Kind::Approve;
    int code = 0;
    std::string text = {};
};

/** Who decides about a request, and when. */
struct Policy
{
    enum class Who {
        User,   ///< it waits for a command
        Itself, ///< `decision`, when `delay` has passed
        Nobody  ///< it is never answered
    };

    Who who = Who::User;
    Decision decision = {};
    std::chrono::milliseconds delay{0};
};

/** What is decided where nothing else is said: requests are answered, the user is asked for money.
 */
inline Policy immediateApproval()
{
    return {Policy::Who::Itself, {}, {}};
}

} // namespace tamobox

#endif
