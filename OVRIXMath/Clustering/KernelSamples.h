#pragma once

#include <OVRIXMath/Types.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The kernel values between the samples of a collection, laid out for speed.
///
/// The coordinates stand in columns, so that a row of kernel values takes many samples at a time. Rows can be cached:
/// what comes back to the same samples, such as the members of dictionaries over many iterations, evaluates the kernel
/// for them once.
template <class KernelType>
class KernelSamples
{
public:
    /// @param data samples of one size, which must outlive the object
    /// @param nbCachedValues how many kernel values may be cached
    KernelSamples(const KernelType& kernel, const VectorColl& data, std::size_t nbCachedValues = 0);

    std::size_t size() const
    {
        return _data.size();
    }

    const VectorColl& getData() const
    {
        return _data;
    }

    double getSelfValue(std::size_t i) const
    {
        return _selfValues[i];
    }

    /// k(x_i, x_j)
    double getValue(std::size_t i, std::size_t j) const
    {
        return _kernel(_data[i], _data[j]);
    }

    /// k(x, x_i) for the samples i of [begin, end[
    void computeRow(const Vector& x, std::size_t begin, std::size_t end, double* values) const;

    /// The cached values k(x_i, x_j) for all j; null when they are not cached.
    const double* findCachedRow(std::size_t i) const
    {
        return _rows[i].get();
    }

    /// The same, computed and cached if there is room.
    const double* cacheRow(std::size_t i);

    /// Whether there is no room for a further row.
    bool isCacheFull() const
    {
        return _nbRowsLeft == 0;
    }

    /// Evicts the rows of all samples that are not wanted from the cache.
    void evictAllBut(const std::vector<bool>& bWanted);

private:
    const KernelType& _kernel;
    const VectorColl& _data;
    std::vector<double> _columns;
    std::vector<double> _selfValues;
    std::vector<std::unique_ptr<double[]>> _rows;      ///< the cache, by sample
    std::vector<std::unique_ptr<double[]>> _spareRows; ///< memory of rows that were evicted
    std::size_t _nbRowsLeft;
};

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
