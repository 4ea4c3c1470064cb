#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/KernelKMeansCentroid.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXUtil/ReserveOneMore.h>

#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace
{

/// Moves the last vector of a collection to the end of another.
void moveLast(VectorColl& source, VectorColl& target)
{
    target.emplace_back();
    target.back().swap(source.back());
    source.pop_back();
}

} // namespace

template <class KernelType>
KernelKMeansCentroid<KernelType>::KernelKMeansCentroid(const KernelType& kernel) : _kernel(kernel)
{
}

template <class KernelType>
const KernelType& KernelKMeansCentroid<KernelType>::getKernel() const
{
    return _kernel;
}

template <class KernelType>
ovReal64 KernelKMeansCentroid<KernelType>::getDefaultAccuracyThreshold()
{
    return details::SparseKernelMean::g_defaultAccuracyThreshold;
}

template <class KernelType>
ovReal64 KernelKMeansCentroid<KernelType>::getAccuracyThreshold() const
{
    return _mean.getAccuracyThreshold();
}

template <class KernelType>
void KernelKMeansCentroid<KernelType>::setAccuracyThreshold(ovReal64 accuracyThreshold)
{
    OVRIXMATH_RAISE_UNLESS(accuracyThreshold > 0.0, eClusteringMessage, 1, accuracyThreshold);
    _mean.setAccuracyThreshold(accuracyThreshold);
}

template <class KernelType>
ovUInt32 KernelKMeansCentroid<KernelType>::getDefaultMaxDictionarySize()
{
    return details::SparseKernelMean::g_defaultMaxDictionarySize;
}

template <class KernelType>
ovUInt32 KernelKMeansCentroid<KernelType>::getMaxDictionarySize() const
{
    return _mean.getMaxDictionarySize();
}

template <class KernelType>
void KernelKMeansCentroid<KernelType>::setMaxDictionarySize(ovUInt32 maxDictionarySize)
{
    OVRIXMATH_RAISE_UNLESS(maxDictionarySize != 0, eClusteringMessage, 3);
    _mean.setMaxDictionarySize(maxDictionarySize);
}

template <class KernelType>
std::uint64_t KernelKMeansCentroid<KernelType>::getNbSamples() const
{
    return _mean.getNbSamples();
}

template <class KernelType>
ovUInt32 KernelKMeansCentroid<KernelType>::getDictionarySize() const
{
    return static_cast<ovUInt32>(_dictionary.size());
}

template <class KernelType>
const VectorColl& KernelKMeansCentroid<KernelType>::getDictionary() const
{
    return _dictionary;
}

template <class KernelType>
const std::vector<double>& KernelKMeansCentroid<KernelType>::getWeights() const
{
    return _mean.getWeights();
}

template <class KernelType>
void KernelKMeansCentroid<KernelType>::clear()
{
    _spareSamples.reserve(_spareSamples.size() + _dictionary.size());
    while (!_dictionary.empty())
        moveLast(_dictionary, _spareSamples);
    _mean.clear();
}

template <class KernelType>
void KernelKMeansCentroid<KernelType>::addSample(const Vector& x)
{
    double* const kernelValues = _mean.prepareKernelValues();
    for (std::size_t i = 0; i < _dictionary.size(); ++i)
        kernelValues[i] = _kernel(_dictionary[i], x);
    const details::SparseKernelMean::Projection projection = _mean.projectSample(_kernel(x));
    if (!projection.bJoins)
    {
        _mean.addSample(projection);
        return;
    }
    // All memory is taken before anything changes, and the sample is copied before anything moves: it may be a member.
    if (_spareSamples.empty())
        _spareSamples.emplace_back();
    _spareSamples.back().data() = x.data();
    // One that is full loses a member first.
    if (_dictionary.size() != _mean.getMaxDictionarySize())
        ovrix::details::reserveOneMore(_dictionary);

    const details::SparseKernelMean::Addition addition = _mean.addSample(projection);
    Vector joining;
    joining.swap(_spareSamples.back());
    _spareSamples.pop_back();
    if (addition.removed != addition.g_none)
    {
        for (std::size_t i = addition.removed; i + 1 < _dictionary.size(); ++i)
            _dictionary[i].swap(_dictionary[i + 1]);
        moveLast(_dictionary, _spareSamples);
    }
    _dictionary.emplace_back();
    _dictionary.back().swap(joining);
}

template <class KernelType>
ovReal64 KernelKMeansCentroid<KernelType>::comparable_distance(const Vector& x) const
{
    const std::vector<double>& weights = _mean.getWeights();
    double sum = 0.0;
    for (std::size_t i = 0; i < _dictionary.size(); ++i)
        sum += weights[i] * _kernel(_dictionary[i], x);
    return _kernel(x) + _mean.getClusterTerm() - (sum + sum);
}

template <class KernelType>
ovReal64 KernelKMeansCentroid<KernelType>::distance(const Vector& x) const
{
    const ovReal64 squared = comparable_distance(x);
    return squared > 0.0 ? std::sqrt(squared) : 0.0;
}

template <class KernelType>
ovReal64 KernelKMeansCentroid<KernelType>::getClusterTerm() const
{
    return _mean.getClusterTerm();
}

template <class KernelType>
void KernelKMeansCentroid<KernelType>::updateClusterTerm() const
{
    _mean.getClusterTerm();
}

template <class KernelType>
void KernelKMeansCentroid<KernelType>::updateMinStrength()
{
    _mean.updateMinStrength();
}

template class KernelKMeansCentroid<LinearKernel>;
template class KernelKMeansCentroid<PolynomialKernel>;
template class KernelKMeansCentroid<RadialBasisKernel>;
template class KernelKMeansCentroid<SigmoidKernel>;

} // namespace clustering
} // namespace math
} // namespace ovrix
