#pragma once

#include <OVRIXMath/Clustering/SampleTable.h>
#include <OVRIXMath/Types.h>

#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The computation of generateKMeansPPInit(), for any number of draws from the same samples.
class KMeansSeeding
{
public:
    /// @param samples which must outlive the object
    explicit KMeansSeeding(const SampleTable& samples);

    /// Draws the indices of `nbClusters` samples.
    ///
    /// @param nbClusters at most the number of samples, else raises Clustering message 5
    void draw(ovUInt32 nbClusters, UInt32Vector& seeds);

private:
    const SampleTable& _samples;
    std::vector<double> _cumulated; ///< sums of squared distances to the latest seed, of all samples and of padding
};

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
