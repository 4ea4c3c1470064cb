#pragma once

#include <OVRIXMath/Graph/BipartitePartialMatch.h>
#include <OVRIXMath/Graph/Munkres.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace ovrix
{
namespace test
{

/// A table of weights, row by row.
using WeightRows = std::vector<std::vector<double>>;

inline WeightRows transposed(const WeightRows& rows)
{
    WeightRows columns(rows.front().size(), std::vector<double>(rows.size()));
    for (std::size_t r = 0; r < rows.size(); ++r)
    {
        for (std::size_t c = 0; c < rows[r].size(); ++c)
            columns[c][r] = rows[r][c];
    }
    return columns;
}

/// The matching of math::BipartitePartialMatch written out step by step around math::Munkres, as its measure.
struct PlainMatch
{
    PlainMatch(const WeightRows& rows, double threshold)
        : rowAssignments(rows.size(), math::BipartitePartialMatch::getUnAssignedValue()),
          columnAssignments(rows.front().size(), math::BipartitePartialMatch::getUnAssignedValue())
    {
        const WeightRows columns = transposed(rows);
        const auto candidates = [&](const WeightRows& side)
        {
            std::vector<ovUInt32> indices;
            for (std::size_t i = 0; i < side.size(); ++i)
            {
                if (std::any_of(side[i].begin(), side[i].end(), [&](double w) { return threshold < w; }))
                    indices.push_back(static_cast<ovUInt32>(i));
            }
            return indices;
        };
        const std::vector<ovUInt32> rowIdx = candidates(rows);
        const std::vector<ovUInt32> columnIdx = candidates(columns);
        if (rowIdx.empty())
            return;
        if (columnIdx.size() < rowIdx.size())
            match(columns, threshold, columnIdx, rowIdx, columnAssignments, rowAssignments);
        else
            match(rows, threshold, rowIdx, columnIdx, rowAssignments, columnAssignments);
    }

    std::vector<ovUInt32> rowAssignments;
    std::vector<ovUInt32> columnAssignments;

private:
    void match(const WeightRows& weights, double threshold, const std::vector<ovUInt32>& firstIdx,
               const std::vector<ovUInt32>& secondIdx, std::vector<ovUInt32>& first, std::vector<ovUInt32>& second)
    {
        math::Munkres munkres;
        munkres.init(static_cast<ovUInt32>(firstIdx.size()), static_cast<ovUInt32>(secondIdx.size()));
        for (ovUInt32 k = 0; k < firstIdx.size(); ++k)
        {
            for (ovUInt32 l = 0; l < secondIdx.size(); ++l)
                munkres.getWeights(k)[l] = weights[firstIdx[k]][secondIdx[l]];
        }
        munkres.solve();
        for (ovUInt32 k = 0; k < firstIdx.size(); ++k)
        {
            const ovUInt32 j = secondIdx[munkres.getAssignments()[k]];
            if (threshold <= weights[firstIdx[k]][j])
            {
                first[firstIdx[k]] = j;
                second[j] = firstIdx[k];
            }
        }
    }
};

} // namespace test
} // namespace ovrix
