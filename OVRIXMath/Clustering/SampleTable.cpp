#include <OVRIXMath/Clustering/SampleTable.h>

#include <algorithm>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

SampleTable::SampleTable(const VectorColl& data)
    : _size(data.size()), _dimension(data.empty() ? 0 : data.front().size()), _coordinates(_size * _dimension),
      _blocks(math::details::paddedSize(_size, g_blockSize) * _dimension)
{
    double* coordinates = _coordinates.data();
    for (const Vector& sample : data)
        coordinates = std::copy_n(sample.data().begin(), _dimension, coordinates);
    for (std::size_t i = 0; i < _size; i += g_blockSize)
    {
        fillBlock(_blocks.data() + i * _dimension, std::min(g_blockSize, _size - i), _dimension,
                  [&](std::size_t s) { return (*this)[i + s]; });
    }
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
