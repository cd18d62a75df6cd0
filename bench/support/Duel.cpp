// SPDX-License-Identifier: Apache-2.0
#include "Duel.h"

#include "Statistics.h"

#include <array>
#include <utility>

namespace tamobench {

namespace {

constexpr int runs = 7;
constexpr int turns = 20;
constexpr int samplesInATurn = 50;

} // namespace

void Duel::Contender::endRun()
{
    p50.push_back(quantile(run, 0.50));
    p99.push_back(quantile(run, 0.99));
    run.clear();
}

void Duel::enter(const std::string& name, Sample sample)
{
    m_contenders.push_back({name, std::move(sample), {}, {}, {}});
}

void Duel::fight()
{
    for (Contender& contender : m_contenders) {
        contender.p50.clear();
        contender.p99.clear();
    }
    for (int run = 0; run < runs; ++run) {
        for (int turn = 0; turn < turns; ++turn) {
            for (Contender& contender : m_contenders) {
                for (int i = 0; i < samplesInATurn; ++i) {
                    m_pause.take();
                    contender.run.push_back(contender.sample());
                }
            }
        }
        for (Contender& contender : m_contenders)
            contender.endRun();
    }
}

void Duel::report(Report& report, const std::string& what, const std::vector<Target>& targets) const
{
    struct Quantile
    {
        const char* name;
        std::vector<double> Contender::*perRun;
    };
    static const std::array<Quantile, 2> quantiles = {{
        {"p50", &Contender::p50},
        {"p99", &Contender::p99},
    }};
    const Contender& ours = m_contenders.front();
    for (const Quantile& quantile : quantiles) {
        for (std::size_t i = 1; i < m_contenders.size(); ++i) {
            const Contender& theirs = m_contenders[i];
            report.addRatio(what + ", " + quantile.name, median(ours.*quantile.perRun), theirs.name,
                            median(theirs.*quantile.perRun),
                            medianRatio(ours.*quantile.perRun, theirs.*quantile.perRun),
                            i <= targets.size() ? targets[i - 1] : Target{});
        }
    }
}

} // namespace tamobench
