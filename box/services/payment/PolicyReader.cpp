// SPDX-License-Identifier: Apache-2.0
#include "PolicyReader.h"

#include "PaymentLimits.h"

#include "common/Duration.h"
#include "services/dialog/DialogWords.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tamobox {

namespace {

struct AnswerName
{
    const char* name;
    Policy::Who who;
    Decision decision;
};

const std::array<AnswerName, 7>& answerNames()
{
    static const std::array<AnswerName, 7> names = {{
        {"ask", Policy::Who::User, {}},
        {"approve", Policy::Who::Itself, {Decision::Kind::Approve}},
        {"cancel", Policy::Who::Itself, {Decision::Kind::Cancel}},
        {"decline", Policy::Who::Itself, {Decision::Kind::Fail, 2, "The payment was declined."}},
        {"fail", Policy::Who::Itself, {Decision::Kind::Fail}},
        {"garbage", Policy::Who::Itself, {Decision::Kind::Garbage}},
        {"never", Policy::Who::Nobody, {}},
    }};
    return names;
}

} // namespace

Policy readPolicy(const CatalogueReader& object)
{
    object.allow({"answer", "after", "code", "text"});
    const std::string answer = object.text("answer");
    const auto found = std::find_if(answerNames().begin(), answerNames().end(),
                                    [&](const AnswerName& known) { return answer == known.name; });
    if (found == answerNames().end())
        object.fail("answer", "must be ask, approve, cancel, decline, fail, garbage or never");
    Policy policy{found->who, found->decision, {}};
    if (object.has("after")) {
        const auto delay = parseDuration(object.text("after"));
        if (policy.who != Policy::Who::Itself)
            object.fail("after", "does not go with '" + answer + "'");
        if (!delay)
            object.fail("after", "must be a duration like 500ms, 10s, 2m or 1h, at most a week");
        policy.delay = *delay;
    }
    const bool needsReason = answer == "fail";
    if (needsReason) {
        policy.decision.code = object.integer("code", 1, std::numeric_limits<int>::max());
        policy.decision.text = object.text("text");
        if (policy.decision.text.size() > longestFailureText)
            object.fail("text",
                        "must be at most " + std::to_string(longestFailureText) + " bytes long");
        if (policy.decision.text == dialogSucceeded)
            object.fail("text", "must not be what the dialog says when all is well");
    } else if (object.has("code") || object.has("text")) {
        object.fail(object.has("code") ? "code" : "text", "does not go with '" + answer + "'");
    }
    return policy;
}

} // namespace tamobox
