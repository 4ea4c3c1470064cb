#pragma once

#include <OVRIXMath/Types.h>

#include <support/Builders.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace test
{

/// Data (0), (1), ..., (nbData - 1).
inline math::DataSet numberedData(ovUInt32 nbData)
{
    math::DataSet data;
    for (ovUInt32 i = 0; i < nbData; ++i)
        data.push_back(makeVector({static_cast<double>(i)}));
    return data;
}

/// 80 data (x, y) of the line y = x / 2 - 1 with noise of deviation 0.1, every fourth of them an outlier above it.
inline math::DataSet noisyLine(unsigned int seed)
{
    RandomData random(seed);
    math::DataSet data;
    for (int i = 0; i < 80; ++i)
    {
        const double x = random.real(-2.0, 2.0);
        const double offset = i % 4 == 0 ? random.real(3.0, 9.0) : random.normal(0.1);
        data.push_back(makeVector({x, 0.5 * x - 1.0 + offset}));
    }
    return data;
}

} // namespace test
} // namespace ovrix
