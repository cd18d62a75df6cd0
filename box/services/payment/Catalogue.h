// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CATALOGUE_H
#define TAMOBOX_CATALOGUE_H

#include "Operation.h"
#include "Policy.h"
#include "SubscriptionTerms.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/** Something that can be bought. */
struct Good
{
    std::string id;
    std::string sku; ///< empty: it has none
    std::string name;
    std::string price; ///< as it is shown, with its currency
    std::string licenseKey;
    std::optional<SubscriptionTerms> subscription; ///< nothing: it is bought for good
    Policy policy;
};

/** The goods that the payment system sells, and how it answers; see docs/payments.md. */
class Catalogue
{
public:
    /** The longest text that can be a catalogue, in bytes: one that fits into an object, however it
     * is escaped. */
    static constexpr std::size_t longestText = 500'000;

    /** The catalogue of a box that was given none. */
    static Catalogue builtin();

    /** The text of builtin(). */
    static const std::string& builtinText();

    /**
     * Reads a catalogue.
     *
     * @param source what the text is called in a sentence, such as its file's name
     * @throws Failure with the line, or the path of the member, and what is wrong there
     */
    static Catalogue parse(const std::string& text, const std::string& source);

    const std::vector<Good>& goods() const { return m_goods; }

    /**
     * The good that is meant by an id, by an id and a SKU, or by a SKU alone.
     *
     * @return nullptr where there is none, where both are empty, and where they belong to different
     * goods
     */
    const Good* find(const std::string& id, const std::string& sku) const;

    /** How requests other than purchases are answered. */
    Policy policyFor(Operation operation) const;

private:
    std::vector<Good> m_goods;
    std::map<std::string, std::size_t> m_byId;
    std::map<std::string, std::size_t> m_bySku;
    std::map<Operation, Policy> m_policies;
};

} // namespace tamobox

#endif
