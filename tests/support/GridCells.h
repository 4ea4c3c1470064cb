#pragma once

#include <OVRIXMath/Estimation/DataPartition/BaseGridPartition.h>

#include <cstddef>
#include <stdexcept>
#include <vector>

namespace ovrix
{
namespace test
{

/// Cell of each datum along each axis.
using Cells = std::vector<std::vector<ovUInt32>>;

/// The cells that a grid makes of a data set; every datum must lie in exactly one.
inline Cells cellsOf(math::BaseGridPartition& partition, const math::DataSet& dataSet)
{
    // What stands here before must be gone afterwards.
    math::BaseGridPartition::BucketPopulation population = {{{9, 9, 9, 9}, {0, 1, 2}}};
    if (!partition.populateBuckets(dataSet, population))
        throw std::runtime_error("No cells");
    Cells cells(dataSet.size());
    std::size_t nbData = 0;
    for (const auto& bucket : population)
    {
        for (const ovUInt32 index : bucket.second)
        {
            cells.at(index) = bucket.first;
            ++nbData;
        }
        for (std::size_t i = 1; i < bucket.second.size(); ++i)
        {
            if (!(bucket.second[i - 1] < bucket.second[i]))
                throw std::runtime_error("The indexes of a cell do not ascend");
        }
    }
    if (nbData != dataSet.size())
        throw std::runtime_error("There are not as many indexes as data");
    return cells;
}

/// Cells along the first axis.
inline std::vector<ovUInt32> firstAxisCellsOf(math::BaseGridPartition& partition, const math::DataSet& dataSet)
{
    std::vector<ovUInt32> cells;
    for (const std::vector<ovUInt32>& cell : cellsOf(partition, dataSet))
        cells.push_back(cell.at(0));
    return cells;
}

/// Data of one element each.
inline math::DataSet oneAxis(const std::vector<double>& values)
{
    math::DataSet data;
    for (const double value : values)
        data.push_back(math::Vector(1, value));
    return data;
}

} // namespace test
} // namespace ovrix
