#pragma once

#include <OVRIXMath/Types.h>

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace ovrix
{
namespace test
{

/// A Vector of the values given.
inline math::Vector makeVector(std::initializer_list<double> values)
{
    math::Vector vector(values.size());
    std::copy(values.begin(), values.end(), vector.begin());
    return vector;
}

/// A Matrix of the rows given.
inline math::Matrix makeMatrix(std::initializer_list<std::initializer_list<double>> rows)
{
    math::Matrix matrix(rows.size(), rows.size() == 0 ? 0 : rows.begin()->size());
    auto target = matrix.data().begin();
    for (const auto& row : rows)
        target = std::copy(row.begin(), row.end(), target);
    return matrix;
}

/// A data set of the data given.
inline math::DataSet makeDataSet(std::initializer_list<std::initializer_list<double>> data)
{
    math::DataSet dataSet;
    for (const auto& datum : data)
        dataSet.push_back(makeVector(datum));
    return dataSet;
}

/// The elements, for comparison as a whole.
inline std::vector<double> toStd(const math::Vector& vector)
{
    return std::vector<double>(vector.begin(), vector.end());
}

/// The elements row by row, for comparison as a whole.
inline std::vector<double> toStd(const math::Matrix& matrix)
{
    return std::vector<double>(matrix.data().begin(), matrix.data().end());
}

} // namespace test
} // namespace ovrix
