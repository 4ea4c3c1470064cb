#pragma once

#include <OVRIXMath/Clustering/KMeansClusteringConfig.h>
#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// How often and how long a KernelKMeansClustering tries, and how closely its centroids stand for their samples.
class OVRIXMATH_EXPORT KernelKMeansClusteringConfig
{
public:
    /// 10 attempts of at most 100 iterations, which stop when no more than 1 % of the labels change, truncated to whole
    /// labels; an accuracy threshold of 0.001 and dictionaries of any size.
    KernelKMeansClusteringConfig();

    /// Number of randomly seeded attempts, of which the one of the highest Dunn index is kept.
    ovUInt32 getNbAttempts() const;

    /// @param nbAttempts above 0, else raises Clustering message 10 and keeps the value
    void setNbAttempts(ovUInt32 nbAttempts);

    /// Iterations after which an attempt counts as failed.
    ovUInt32 getNbMaxIteration() const;

    /// @param nbMaxIteration above 0, else raises Clustering message 12 and keeps the value. With 1 every attempt
    /// fails, since an attempt has to stop before the last iteration.
    void setNbMaxIteration(ovUInt32 nbMaxIteration);

    /// Share of the labels: an attempt stops after an iteration that changed no more of them.
    ovReal64 getMinChangeRatio() const;

    /// @param minChangeRatio in [0, 1[, else (also for NaN) raises Clustering message 4 and keeps the value. The number
    /// of labels is truncated: the default is none at all for less than 100 samples, and a single one from 100 on.
    void setMinChangeRatio(ovReal64 minChangeRatio);

    /// Accuracy threshold of the centroids, see `KernelKMeansCentroid::setAccuracyThreshold`.
    ovReal64 getAccuracyThreshold() const;

    /// @param accuracyThreshold above 0, else (also for NaN) raises Clustering message 1 and keeps the value
    void setAccuracyThreshold(ovReal64 accuracyThreshold);

    /// Largest dictionary of a centroid, see `KernelKMeansCentroid::setMaxDictionarySize`.
    ovUInt32 getMaxDictionarySize() const;

    /// @param maxDictionarySize above 0, else raises Clustering message 3 and keeps the value
    void setMaxDictionarySize(ovUInt32 maxDictionarySize);

private:
    KMeansClusteringConfig _attempts;
    ovReal64 _minChangeRatio;
    ovReal64 _accuracyThreshold;
    ovUInt32 _maxDictionarySize;
};

} // namespace clustering
} // namespace math
} // namespace ovrix
