#pragma once

#include <OVRIXMath/Clustering/SampleBlocks.h>
#include <OVRIXMath/Types.h>

#include <cstddef>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The samples of a collection side by side in memory: one after the other, and a second time in blocks.
class SampleTable
{
public:
    /// @param data samples of one size
    explicit SampleTable(const VectorColl& data);

    std::size_t size() const
    {
        return _size;
    }

    /// Number of coordinates.
    std::size_t getDimension() const
    {
        return _dimension;
    }

    /// The coordinates of a sample; those of the next sample follow.
    const double* operator[](std::size_t i) const
    {
        return _coordinates.data() + i * _dimension;
    }

    /// The block that starts with sample `i`, a multiple of g_blockSize; the next block follows. The last one is filled
    /// up with the last sample.
    const double* getBlock(std::size_t i) const
    {
        return _blocks.data() + i * _dimension;
    }

private:
    std::size_t _size;
    std::size_t _dimension;
    std::vector<double> _coordinates;
    std::vector<double> _blocks;
};

/// The sum of the squared differences, in the order of the coordinates.
inline double squaredDistance(const double* a, const double* b, std::size_t dimension)
{
    double sum = 0.0;
    for (std::size_t j = 0; j < dimension; ++j)
    {
        const double difference = a[j] - b[j];
        sum += difference * difference;
    }
    return sum;
}

inline double squaredDistance(const Vector& a, const Vector& b)
{
    return squaredDistance(a.data().begin(), b.data().begin(), a.size());
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
