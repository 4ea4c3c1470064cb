#include <OVRIXMath/Clustering/Kernel/LinearKernel.h>
#include <OVRIXMath/Clustering/Kernel/PolynomialKernel.h>
#include <OVRIXMath/Clustering/Kernel/RadialBasisKernel.h>
#include <OVRIXMath/Clustering/Kernel/SigmoidKernel.h>
#include <OVRIXMath/Clustering/KernelSamples.h>
#include <OVRIXMath/Clustering/RowSums.h>

#include <algorithm>
#include <utility>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

template <class KernelType>
KernelSamples<KernelType>::KernelSamples(const KernelType& kernel, const VectorColl& data, std::size_t nbCachedValues)
    : _kernel(kernel), _data(data), _rows(data.size()), _nbRowsLeft(data.empty() ? 0 : nbCachedValues / data.size())
{
    const std::size_t dimension = data.empty() ? 0 : data.front().size();
    _columns.resize(data.size() * dimension);
    _selfValues.reserve(data.size());
    _spareRows.reserve(std::min(data.size(), _nbRowsLeft));
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        const double* const sample = data[i].data().begin();
        for (std::size_t j = 0; j < dimension; ++j)
            _columns[j * data.size() + i] = sample[j];
        _selfValues.push_back(kernel(data[i]));
    }
}

template <class KernelType>
void KernelSamples<KernelType>::computeRow(const Vector& x, std::size_t begin, std::size_t end, double* values) const
{
    for (std::size_t first = begin; first < end; first += g_nbSumsAtOnce)
    {
        const std::size_t size = std::min(g_nbSumsAtOnce, end - first);
        // Samples without coordinates have no columns.
        const double* const columns = _columns.empty() ? nullptr : _columns.data() + first;
        double* const sums = values + (first - begin);
        std::fill_n(sums, size, 0.0);
        addRows<typename KernelType::Term>(sums, size, x.data().begin(), x.size(),
                                           EquidistantRows{columns, _data.size()});
        _kernel.evaluateSums(sums, size);
    }
}

template <class KernelType>
const double* KernelSamples<KernelType>::cacheRow(std::size_t i)
{
    if (_rows[i] || isCacheFull())
        return findCachedRow(i);
    if (_spareRows.empty())
        _rows[i].reset(new double[size()]);
    else
    {
        _rows[i] = std::move(_spareRows.back());
        _spareRows.pop_back();
    }
    --_nbRowsLeft;
    computeRow(_data[i], 0, size(), _rows[i].get());
    return findCachedRow(i);
}

template <class KernelType>
void KernelSamples<KernelType>::evictAllBut(const std::vector<bool>& bWanted)
{
    for (std::size_t i = 0; i < size(); ++i)
    {
        if (_rows[i] && !bWanted[i])
        {
            _spareRows.push_back(std::move(_rows[i]));
            ++_nbRowsLeft;
        }
    }
}

template class KernelSamples<LinearKernel>;
template class KernelSamples<PolynomialKernel>;
template class KernelSamples<RadialBasisKernel>;
template class KernelSamples<SigmoidKernel>;

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
