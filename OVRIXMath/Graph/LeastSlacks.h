#pragma once

#include <OVRIXMath/Types.h>

#include <cstddef>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// A weight's place within its row or column, and its slack.
struct SlackEntry
{
    double slack;
    ovUInt32 idx;

    bool operator<(const SlackEntry& other) const
    {
        return slack < other.slack || (slack == other.slack && idx < other.idx);
    }
};

/// Selects the least slacks of a row or column.
class LeastSlacks
{
public:
    /// @param depth number of slacks to select, about: from half of it, where there are so many, to twice as many
    explicit LeastSlacks(std::size_t depth);

    /// Selects from the slacks `(labels[i] + label) - weights[i]`. Those that are infinite are left out.
    ///
    /// @return the least ones in ascending order, the lower index first among equal ones, valid until the next call
    const std::vector<SlackEntry>& select(const double* labels, double label, const double* weights, std::size_t count);

    /// A value above all slacks that were selected, or equal to the last, and above none of the others. Infinite only
    /// if all were selected.
    double getBound() const
    {
        return _bound;
    }

private:
    void listBelow(double bound, const double* labels, double label, const double* weights, std::size_t count);
    void keepLeast();

    std::size_t _depth;
    double _bound;
    std::vector<SlackEntry> _entries;
};

} // namespace details
} // namespace math
} // namespace ovrix
