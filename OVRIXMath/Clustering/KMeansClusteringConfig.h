#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// How often and how long a KMeansClustering tries.
class OVRIXMATH_EXPORT KMeansClusteringConfig
{
public:
    /// 10 attempts of at most 100 iterations.
    KMeansClusteringConfig();

    /// Number of randomly seeded attempts, of which the most compact is kept.
    ovUInt32 getNbAttempts() const;

    /// @param nbAttempts above 0, else raises Clustering message 10 and keeps the value
    void setNbAttempts(ovUInt32 nbAttempts);

    /// Iterations after which an attempt counts as failed.
    ovUInt32 getNbMaxIteration() const;

    /// @param nbMaxIteration above 0, else raises Clustering message 12 and keeps the value. With 1 every attempt
    /// fails, since an attempt has to settle before the last iteration.
    void setNbMaxIteration(ovUInt32 nbMaxIteration);

private:
    ovUInt32 _nbAttempts;
    ovUInt32 _nbMaxIteration;
};

} // namespace clustering
} // namespace math
} // namespace ovrix
