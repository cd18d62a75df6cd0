// SPDX-License-Identifier: Apache-2.0
// What anyone may have written as a catalogue, or into the state of a kept box: it is taken whole,
// or refused with a sentence.
#include "Require.h"

#include "common/Failure.h"
#include "pps/MessageWriter.h"
#include "services/payment/Catalogue.h"
#include "services/payment/PaymentState.h"
#include "services/payment/Subscription.h"

namespace {

using namespace tamobox;

void requireSentence(const Failure& failure)
{
    const std::string sentence = failure.what();
    require(!sentence.empty(), "a refusal without a reason");
    for (const char c : sentence)
        require(static_cast<unsigned char>(c) >= ' ', "a reason that is not one line");
}

void readCatalogue(const std::string& text)
{
    try {
        const Catalogue catalogue = Catalogue::parse(text, "file");
        MessageWriter message; // what is sold has to find its way into a message
        message.object("control").startArray("goods");
        for (const Good& good : catalogue.goods()) {
            require(catalogue.find(good.id, good.sku) == &good, "a good that is not found");
            require(!good.price.empty(), "a good without a price");
            require(!good.subscription || good.subscription->initialPeriod > 0,
                    "a subscription without a period");
            message.startObject(nullptr)
                .add("id", good.id)
                .add("sku", good.sku)
                .add("name", good.name)
                .add("price", good.price)
                .add("licenseKey", good.licenseKey)
                .endObject();
        }
        message.endArray();
        message.text();
    } catch (const Failure& failure) {
        requireSentence(failure);
        require(std::string(failure.what()).rfind("file", 0) == 0,
                "a catalogue that was taken, but does not fit into a message");
    }
}

// What the payment system may make of a state has to be readable the next time.
void keepAndReadAgain(const PaymentState& state)
{
    try {
        const std::string once = stateToText(state);
        require(stateToText(stateFromText(once)) == once, "a state that changes when it is kept");
    } catch (const Failure& failure) {
        require(false, failure.what());
    }
}

void readState(const std::string& text)
{
    PaymentState state;
    try {
        state = stateFromText(text);
    } catch (const Failure& failure) {
        requireSentence(failure);
        return;
    }
    keepAndReadAgain(state);
    PaymentState last = state;
    last.advanced = latestMoment;
    for (const Moment now : {Moment(0), latestMoment}) {
        for (const auto& [number, purchase] : state.ledger.all()) {
            if (!purchase.subscription || purchase.canceledEnd)
                continue;
            Purchase canceled = purchase;
            canceled.canceledEnd = standingAt(purchase, now).end;
            last.ledger.put(canceled);
        }
        keepAndReadAgain(last);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(data, data + size);
    readCatalogue(text);
    readState(text);
    return 0;
}
