// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"
#include "Commands.h"
#include "MachineChecks.h"

#include "common/Failure.h"
#include "common/Json.h"

#include <cstdio>

namespace tamobox {

namespace {

using Verdict = CheckResult::Verdict;

struct VerdictText
{
    const char* shown;
    const char* json;
};

VerdictText textOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Good:
        return {"good", "good"};
    case Verdict::Tolerable:
        return {"fair", "tolerable"};
    case Verdict::Bad:
        break;
    }
    return {"BAD ", "bad"};
}

void printText(const std::string& name, const CheckResult& result)
{
    std::printf("%s  %s %s\n", textOf(result.verdict).shown, name.c_str(), result.detail.c_str());
    if (!result.mend.empty())
        std::printf("      mend: %s\n", result.mend.c_str());
    std::fflush(stdout);
}

void addJson(Json& json, const std::string& name, const CheckResult& result)
{
    json.startObject().key("name").string(name);
    json.key("verdict").string(textOf(result.verdict).json);
    json.key("detail").string(result.detail);
    json.key("mend");
    result.mend.empty() ? json.null() : json.string(result.mend);
    json.endObject();
}

int examine(const CommonOptions& options)
{
    Json json;
    json.startObject().key("checks").startArray();
    int badOnes = 0;
    for (const MachineCheck& check : machineChecks()) {
        const CheckResult result = check.run();
        badOnes += result.verdict == Verdict::Bad ? 1 : 0;
        if (!options.json)
            printText(check.name, result);
        addJson(json, check.name, result);
    }
    json.endArray().key("ok").boolean(badOnes == 0).endObject();
    if (options.json)
        std::printf("%s\n", json.text().c_str());
    std::fflush(stdout);
    if (badOnes != 0)
        throw Failure("this machine does not run a box yet; what would mend it is listed above");
    return 0;
}

} // namespace

void addDoctorCommand(CommandLine& commandLine)
{
    commandLine.add(commandLine.root(), "doctor",
                    "What this machine allows, and how to mend what it does not", examine);
}

} // namespace tamobox
