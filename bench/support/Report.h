// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_REPORT_H
#define TAMO_BENCH_REPORT_H

#include <iosfwd>
#include <string>
#include <vector>

namespace tamobench {

/** One line of the table of figures: what was measured, beside what, and whether it is enough. */
struct Figure
{
    std::string what;    ///< the thing measured
    std::string ours;    ///< its value, with the unit
    std::string against; ///< the peer or the floor; empty for a figure that stands alone
    std::string theirs;  ///< the value of that, with the unit
    std::string ratio;   ///< ours to theirs
    std::string target;  ///< empty for a comparison that is only there to be known
    std::string verdict; ///< "met", "missed", or empty where there is no target
};

/** A bound on a figure. */
struct Target
{
    enum Kind { None, AtMost, AtLeast };
    Kind kind = None;
    double bound = 0;

    /** "met", "missed", or an empty text for None. */
    std::string verdict(double figure) const;

    /** The bound as the table shows it, such as "<= 0.90 x"; empty for None. */
    std::string text(const std::string& unit) const;
};

/** The figures of a run, as a table for people and as a file for the next program. */
class Report
{
public:
    void add(const Figure& figure);

    /** Adds a comparison of two durations in nanoseconds; `ratio` is ours to theirs. */
    void addRatio(const std::string& what, double ours, const std::string& against, double theirs,
                  double ratio, Target target = {});

    /** Adds how many times as fast as a peer something is: the inverse of the above. */
    void addSpeed(const std::string& what, double ours, const std::string& against, double theirs,
                  double speed, Target target = {});

    /** Adds a figure that is measured by itself. */
    void addValue(const std::string& what, double value, const std::string& unit,
                  Target target = {});

    /** Adds a line that says why something could not be measured. */
    void addUnmeasured(const std::string& what, const std::string& reason);

    void print(std::ostream& out) const;

    /** Appends the figures to a file, one a line, the columns separated by tabs. */
    void appendTo(const std::string& path) const;

    /** Adds the figures of such a file. */
    void load(const std::string& path);

    /** Whether a line says that something could not be measured. */
    bool hasUnmeasured() const;

private:
    std::vector<Figure> m_figures;
};

/** A duration as people read it: "870 ns", "12.3 us", "45.6 ms". */
std::string formatDuration(double nanoseconds);

} // namespace tamobench

#endif
