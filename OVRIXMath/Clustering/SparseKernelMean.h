#pragma once

#include <OVRIXMath/Clustering/GrowableMatrix.h>
#include <OVRIXUtil/NumericLimits.h>
#include <OVRIXUtil/Types.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The arithmetic of KernelKMeansCentroid, in terms of kernel values alone: whoever has the samples forms those values
/// and keeps the samples of the dictionary in the same order.
///
/// Up to rounding the inverse of the kernel matrix is what the test of linear dependence needs. Joining and leaving the
/// dictionary change it by a matrix of rank one, so that no decomposition is ever made.
class SparseKernelMean
{
public:
    static constexpr double g_defaultAccuracyThreshold = 0.001;
    static constexpr ovUInt32 g_defaultMaxDictionarySize = NumericLimits<ovUInt32>::s_max;

    /// A sample that is about to be added.
    struct Projection
    {
        double selfValue;
        double delta; ///< squared length of what is left of the sample after its projection on the members
        bool bJoins;  ///< whether it is to join the dictionary
    };

    /// What a sample did to the dictionary.
    struct Addition
    {
        static constexpr std::size_t g_none = static_cast<std::size_t>(-1);

        /// Place of the member that left first, or g_none.
        std::size_t removed = g_none;

        /// Whether the sample stands behind the other members now.
        bool bJoined = false;
    };

    double getAccuracyThreshold() const
    {
        return _accuracyThreshold;
    }

    void setAccuracyThreshold(double accuracyThreshold)
    {
        _accuracyThreshold = accuracyThreshold;
    }

    ovUInt32 getMaxDictionarySize() const
    {
        return _maxDictionarySize;
    }

    void setMaxDictionarySize(ovUInt32 maxDictionarySize)
    {
        _maxDictionarySize = maxDictionarySize;
    }

    std::uint64_t getNbSamples() const
    {
        return _nbSamples;
    }

    const std::vector<double>& getWeights() const
    {
        return _weights;
    }

    /// Forgets all samples; accuracy threshold and largest dictionary stay.
    void clear();

    /// Room for the kernel values between the members and the sample that is added next.
    double* prepareKernelValues();

    /// Projects the sample of these kernel values on the members, and takes the memory that adding it needs.
    ///
    /// Whatever can fail about a sample fails here, and changes nothing.
    Projection projectSample(double selfValue);

    /// Adds the sample that was projected last.
    Addition addSample(const Projection& sample);

    /// Finds the member that the others express best.
    void updateMinStrength();

    /// The double sum over the weights and the kernel matrix; computed when it is out of date.
    double getClusterTerm() const;

private:
    void reserve(std::size_t size);
    void start(double selfValue);
    double project(double selfValue);
    void removeMember(std::size_t p);
    void appendMember(double selfValue, double delta);
    double computeStrength(std::size_t p);
    void prepareRemoval(std::size_t p);

    double _accuracyThreshold = g_defaultAccuracyThreshold;
    ovUInt32 _maxDictionarySize = g_defaultMaxDictionarySize;
    std::uint64_t _nbSamples = 0;
    std::vector<double> _weights;
    mutable double _clusterTerm = 0.0;
    mutable bool _bClusterTermUpToDate = true;
    GrowableMatrix _K;
    GrowableMatrix _Kinv;
    double _minStrength = 0.0; ///< 0 stands for not computed.
    std::size_t _minStrengthIdx = 0;
    std::vector<double> _k; ///< kernel values between the members and the present sample
    std::vector<double> _a; ///< coefficients of the present sample on the members
    std::vector<double> _pivotRow;
    std::vector<double> _scaledPivotRow;
    std::vector<double> _product;
};

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
