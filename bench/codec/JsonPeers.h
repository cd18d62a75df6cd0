// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_JSONPEERS_H
#define TAMO_BENCH_JSONPEERS_H

#include <QVariantMap>

#include <simdjson.h>

namespace tamobench {

// What an application would write that gets its maps out of JSON with simdjson. Text and parser are
// the caller's, padded and kept from call to call, as simdjson likes them best.

/** By its document tree. */
QVariantMap decodeWithTree(simdjson::dom::parser& parser, const simdjson::padded_string& json);

/** By its on-demand interface, which builds no tree. */
QVariantMap decodeOnDemand(simdjson::ondemand::parser& parser, const simdjson::padded_string& json);

} // namespace tamobench

#endif
