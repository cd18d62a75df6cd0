// SPDX-License-Identifier: Apache-2.0
#include "AttributeReader.h"
#include "BoxEntrance.h"
#include "CatalogueFile.h"
#include "CommandLine.h"
#include "Commands.h"
#include "ControlClient.h"
#include "DurationOption.h"
#include "MessageJson.h"
#include "NumberCheck.h"
#include "PaymentTable.h"
#include "TextTable.h"

#include "common/Failure.h"

#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

constexpr const char* paymentMailbox = "box/payment";

struct DecisionArguments
{
    std::optional<int> request;
    std::optional<int> code;
    std::string text;
    std::chrono::milliseconds wait{2000};
};

/** Hands out each of the service's reports, which come in parts. */
void forEachReport(PaymentTable table, const ControlClient::ReportHandler& onReport)
{
    const bool isWaiting = table == PaymentTable::Waiting;
    ControlClient client(paymentMailbox);
    int last = 0;
    int before = 0;
    do {
        before = last;
        client.ask(
            isWaiting ? "list" : "purchases",
            [&](MessageWriter& message) { message.add("after", last); },
            [&](MessageReader& report) {
                last = report.integer(isWaiting ? "request" : "number").value_or(last);
                onReport(report);
            });
    } while (last != before);
}

/** A table of the service's reports, as it is shown. */
class Listing
{
public:
    explicit Listing(PaymentTable table) : m_table(table) { m_rows = {paymentHeadings(table)}; }

    void add(MessageReader& report)
    {
        m_rows.push_back(paymentRow(m_table, report));
        m_json += (m_json.empty() ? "" : ",") + membersToJson(report);
    }

    std::string json() const { return '[' + m_json + "]\n"; }

    std::string text() const
    {
        if (m_rows.size() == 1)
            return m_table == PaymentTable::Waiting ? "no request is waiting\n"
                                                    : "nothing was bought\n";
        std::string text;
        for (const std::string& line : tableLines(m_rows))
            text += line;
        return text;
    }

private:
    PaymentTable m_table;
    std::vector<std::vector<std::string>> m_rows;
    std::string m_json;
};

int list(const CommonOptions& options, PaymentTable table)
{
    enterBox(options.box, Depth::Files);
    Listing listing(table);
    forEachReport(table, [&](MessageReader& report) { listing.add(report); });
    const std::string text = options.json ? listing.json() : listing.text();
    std::fwrite(text.data(), 1, text.size(), stdout);
    return 0;
}

int show(const CommonOptions& options, const std::optional<int>& request)
{
    enterBox(options.box, Depth::Files);
    std::string json;
    forEachReport(PaymentTable::Waiting, [&](MessageReader& report) {
        const bool isMeant = request ? report.integer("request") == request
                                     : json.empty() && report.string("decides") == "user";
        if (isMeant)
            json = membersToJson(report);
    });
    if (json.empty())
        throw Failure(request ? "no request " + std::to_string(*request) + " is waiting"
                              : std::string("no request is waiting for a decision"));
    const std::string text = options.json ? json + '\n' : paymentDetails(json);
    std::fwrite(text.data(), 1, text.size(), stdout);
    return 0;
}

int decide(const CommonOptions& options, const char* command, const DecisionArguments& arguments)
{
    enterBox(options.box, Depth::Files);
    std::string decided;
    ControlClient(paymentMailbox)
        .ask(
            command,
            [&](MessageWriter& message) {
                message.add("wait", static_cast<int>(arguments.wait.count()));
                if (arguments.request)
                    message.add("request", *arguments.request);
                if (arguments.code)
                    message.add("code", *arguments.code);
                if (!arguments.text.empty())
                    message.add("text", arguments.text);
            },
            [&](MessageReader& report) {
                if (report.has("request")) // else it only says that it is waiting
                    decided = membersToJson(report);
            });
    if (options.json)
        std::printf("%s\n", decided.c_str());
    return 0;
}

void addRequestOption(CLI::App& command, std::optional<int>& request, const std::string& otherwise)
{
    command
        .add_option("--request", request,
                    "Which one, as the list numbers it (default: " + otherwise + ')')
        ->type_name("N")
        ->check(wholeNumber(1));
}

CLI::App& addDecision(CommandLine& commandLine, CLI::App& payment, const char* name,
                      const char* description, const std::shared_ptr<DecisionArguments>& arguments)
{
    CLI::App& command = commandLine.add(payment, name, description,
                                        [arguments, name](const CommonOptions& options) {
                                            return decide(options, name, *arguments);
                                        });
    addRequestOption(command, arguments->request, "the oldest that waits for this");
    addDurationOption(command, "--wait", arguments->wait,
                      "How long to wait for such a request (default: 2s)");
    return command;
}

int catalogue(const CommonOptions& options, const std::string& file)
{
    const std::string text = file.empty() ? std::string() : readCatalogueFile(file);
    enterBox(options.box, Depth::Files);
    if (!file.empty()) {
        ControlClient(paymentMailbox).ask("catalogue", [&](MessageWriter& message) {
            message.add("text", text);
        });
        return 0;
    }
    const auto current = readAttribute("box/catalogue", "@catalogue", [](MessageReader& message) {
        return message.string("text");
    });
    if (!current)
        throw Failure("the box has no catalogue");
    std::fwrite(current->data(), 1, current->size(), stdout);
    return 0;
}

} // namespace

void addPaymentCommands(CommandLine& commandLine)
{
    const auto listOf = [](PaymentTable table) {
        return [table](const CommonOptions& options) { return list(options, table); };
    };
    CLI::App& payment =
        commandLine.add(commandLine.root(), "payment", "Payments; alone: lists what is waiting",
                        listOf(PaymentTable::Waiting));
    commandLine
        .add(payment, "list", "List the requests and dialogs that wait",
             listOf(PaymentTable::Waiting))
        .footer("With --json: an array of objects with request, id, kind, digitalGoodID and the "
                "rest.");
    commandLine.add(payment, "purchases", "List what was bought", listOf(PaymentTable::Purchases))
        .footer("With --json: an array of objects with purchaseID, purchaseAppID and the rest.");
    const auto shown = std::make_shared<std::optional<int>>();
    CLI::App& showCommand = commandLine.add(
        payment, "show", "Show all of a request, or of a dialog: what the user would see",
        [shown](const CommonOptions& options) { return show(options, *shown); });
    addRequestOption(showCommand, *shown, "the oldest that waits for a decision");
    const auto approval = std::make_shared<DecisionArguments>();
    addDecision(commandLine, payment, "approve", "Approve of a request", approval);
    const auto cancellation = std::make_shared<DecisionArguments>();
    addDecision(commandLine, payment, "cancel", "Cancel a request, as the user would",
                cancellation);
    const auto failure = std::make_shared<DecisionArguments>();
    CLI::App& fail =
        addDecision(commandLine, payment, "fail", "Let a request fail, for a reason", failure);
    fail.add_option("text", failure->text, "The reason, as the application is told it")
        ->type_name("TEXT")
        ->required()
        ->check([](const std::string& text) {
            return text.empty() ? "the reason must not be empty" : std::string();
        });
    fail.add_option("--code", failure->code, "Its number (default: 2); a dialog has none")
        ->type_name("N")
        ->check(wholeNumber(1));

    const auto file = std::make_shared<std::string>();
    CLI::App& catalogueCommand = commandLine.add(
        payment, "catalogue", "Replace what can be bought; without a file: prints it",
        [file](const CommonOptions& options) { return catalogue(options, *file); });
    catalogueCommand.add_option("file", *file, "The new catalogue")->type_name("FILE");
}

} // namespace tamobox
