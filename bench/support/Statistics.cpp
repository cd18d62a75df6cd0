// SPDX-License-Identifier: Apache-2.0
#include "Statistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <stdexcept>
#include <utility>

namespace tamobench {

double quantile(std::vector<double> samples, double fraction)
{
    if (samples.empty())
        throw std::invalid_argument("a quantile needs at least one sample");
    const double rank = std::ceil(fraction * static_cast<double>(samples.size()));
    const auto index = static_cast<std::ptrdiff_t>(std::max(rank - 1, 0.0));
    std::nth_element(samples.begin(), samples.begin() + index, samples.end());
    return samples[static_cast<std::size_t>(index)];
}

double median(std::vector<double> samples)
{
    return quantile(std::move(samples), 0.5);
}

double medianRatio(const std::vector<double>& ours, const std::vector<double>& theirs)
{
    if (ours.size() != theirs.size())
        throw std::invalid_argument("a ratio needs as many samples of the one as of the other");
    std::vector<double> ratios(ours.size());
    std::transform(ours.begin(), ours.end(), theirs.begin(), ratios.begin(), std::divides<>());
    return median(std::move(ratios));
}

double growthExponent(const std::vector<double>& sizes, const std::vector<double>& costs)
{
    if (sizes.size() != costs.size() || sizes.size() < 2)
        throw std::invalid_argument("growth needs a cost for each of at least two sizes");
    const auto count = static_cast<double>(sizes.size());
    double sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const double x = std::log(sizes[i]);
        const double y = std::log(costs[i]);
        sumX += x;
        sumY += y;
        sumXX += x * x;
        sumXY += x * y;
    }
    return (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
}

} // namespace tamobench
