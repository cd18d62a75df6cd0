// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_STATISTICS_H
#define TAMO_BENCH_STATISTICS_H

#include <vector>

namespace tamobench {

/**
 * The value below which a fraction of the samples lies (nearest rank).
 *
 * @param samples at least one; any order
 * @param fraction from 0 to 1; 0.99 is p99
 */
double quantile(std::vector<double> samples, double fraction);

/** The middle sample; for an even number of samples, the lower one of the two. */
double median(std::vector<double> samples);

/** The middle of the quotients of two series of equal length, pair by pair. */
double medianRatio(const std::vector<double>& ours, const std::vector<double>& theirs);

/**
 * The exponent `k` in `cost = c * size^k` that fits best, by least squares over the logarithms:
 * 1 is linear growth, 2 quadratic.
 *
 * @param sizes at least two different ones, all positive
 * @param costs one for each size, all positive
 */
double growthExponent(const std::vector<double>& sizes, const std::vector<double>& costs);

} // namespace tamobench

#endif
