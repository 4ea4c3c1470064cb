#include <OVRIXMath/Graph/LeastSlacks.h>
#include <OVRIXMath/Graph/SlackKernels.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

constexpr double g_infinity = std::numeric_limits<double>::infinity();

/// Number of slacks that are compared with one limit before it is lowered.
constexpr std::size_t g_chunk = 256;

} // namespace

LeastSlacks::LeastSlacks(std::size_t depth) : _depth(depth), _bound(g_infinity)
{
    _entries.reserve(2 * depth);
}

const std::vector<SlackEntry>& LeastSlacks::select(const double* labels, double label, const double* weights,
                                                   std::size_t count)
{
    // Rows and columns are alike as a rule, so that the last bound is about right for the next one as well. With many
    // equal slacks it can be the least of all: it counts too.
    listBelow(std::nextafter(_bound, g_infinity), labels, label, weights, count);
    if (_entries.size() < _depth / 2 && _bound < g_infinity)
        listBelow(g_infinity, labels, label, weights, count);
    std::sort(_entries.begin(), _entries.end());
    return _entries;
}

void LeastSlacks::listBelow(double bound, const double* labels, double label, const double* weights, std::size_t count)
{
    _bound = bound;
    _entries.clear();
    ovUInt32 listed[g_chunk];
    for (std::size_t start = 0; start < count; start += g_chunk)
    {
        const std::size_t nbListed = runKernel<ListSlacksBelow>(labels + start, label, weights + start,
                                                                std::min(g_chunk, count - start), _bound, &listed[0]);
        for (std::size_t i = 0; i < nbListed; ++i)
        {
            const std::size_t idx = start + listed[i];
            const double slack = (labels[idx] + label) - weights[idx];
            if (slack < _bound && _entries.size() == 2 * _depth)
                keepLeast();
            // Checked again, since the bound falls on the way.
            if (slack < _bound)
                _entries.push_back(SlackEntry{slack, static_cast<ovUInt32>(idx)});
        }
    }
}

/// From here on a slack has to be below the least one left out; of equal slacks those with lower indices came first.
void LeastSlacks::keepLeast()
{
    const auto end = _entries.begin() + std::ptrdiff_t(_depth);
    std::nth_element(_entries.begin(), end, _entries.end());
    _bound = end->slack;
    _entries.resize(_depth);
}

} // namespace details
} // namespace math
} // namespace ovrix
