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
    : _size(data.size()), _dimension(data.empty() ? 0 : data.front().size()), _coordinates(_size * _dimension)
{
    double* coordinates = _coordinates.data();
    for (const Vector& sample : data)
        coordinates = std::copy_n(sample.data().begin(), _dimension, coordinates);
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
