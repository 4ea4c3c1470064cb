#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/KernelKMeansClusteringConfig.h>
#include <OVRIXMath/Clustering/SparseKernelMean.h>
#include <OVRIXMath/OVRIXMathFailure.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

KernelKMeansClusteringConfig::KernelKMeansClusteringConfig()
    : _minChangeRatio(0.01), _accuracyThreshold(details::SparseKernelMean::g_defaultAccuracyThreshold),
      _maxDictionarySize(details::SparseKernelMean::g_defaultMaxDictionarySize)
{
}

ovUInt32 KernelKMeansClusteringConfig::getNbAttempts() const
{
    return _attempts.getNbAttempts();
}

void KernelKMeansClusteringConfig::setNbAttempts(ovUInt32 nbAttempts)
{
    _attempts.setNbAttempts(nbAttempts);
}

ovUInt32 KernelKMeansClusteringConfig::getNbMaxIteration() const
{
    return _attempts.getNbMaxIteration();
}

void KernelKMeansClusteringConfig::setNbMaxIteration(ovUInt32 nbMaxIteration)
{
    _attempts.setNbMaxIteration(nbMaxIteration);
}

ovReal64 KernelKMeansClusteringConfig::getMinChangeRatio() const
{
    return _minChangeRatio;
}

void KernelKMeansClusteringConfig::setMinChangeRatio(ovReal64 minChangeRatio)
{
    OVRIXMATH_RAISE_UNLESS(minChangeRatio >= 0.0 && 1.0 > minChangeRatio, eClusteringMessage, 4, minChangeRatio);
    _minChangeRatio = minChangeRatio;
}

ovReal64 KernelKMeansClusteringConfig::getAccuracyThreshold() const
{
    return _accuracyThreshold;
}

void KernelKMeansClusteringConfig::setAccuracyThreshold(ovReal64 accuracyThreshold)
{
    OVRIXMATH_RAISE_UNLESS(accuracyThreshold > 0.0, eClusteringMessage, 1, accuracyThreshold);
    _accuracyThreshold = accuracyThreshold;
}

ovUInt32 KernelKMeansClusteringConfig::getMaxDictionarySize() const
{
    return _maxDictionarySize;
}

void KernelKMeansClusteringConfig::setMaxDictionarySize(ovUInt32 maxDictionarySize)
{
    OVRIXMATH_RAISE_UNLESS(maxDictionarySize != 0, eClusteringMessage, 3);
    _maxDictionarySize = maxDictionarySize;
}

} // namespace clustering
} // namespace math
} // namespace ovrix
