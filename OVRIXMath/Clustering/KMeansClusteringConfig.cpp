#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/KMeansClusteringConfig.h>
#include <OVRIXMath/OVRIXMathFailure.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

KMeansClusteringConfig::KMeansClusteringConfig() : _nbAttempts(10), _nbMaxIteration(100) {}

ovUInt32 KMeansClusteringConfig::getNbAttempts() const
{
    return _nbAttempts;
}

void KMeansClusteringConfig::setNbAttempts(ovUInt32 nbAttempts)
{
    OVRIXMATH_RAISE_UNLESS(nbAttempts != 0, eClusteringMessage, 10);
    _nbAttempts = nbAttempts;
}

ovUInt32 KMeansClusteringConfig::getNbMaxIteration() const
{
    return _nbMaxIteration;
}

void KMeansClusteringConfig::setNbMaxIteration(ovUInt32 nbMaxIteration)
{
    OVRIXMATH_RAISE_UNLESS(nbMaxIteration != 0, eClusteringMessage, 12);
    _nbMaxIteration = nbMaxIteration;
}

} // namespace clustering
} // namespace math
} // namespace ovrix
