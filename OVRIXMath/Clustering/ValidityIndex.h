#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// Indices that rate a partition by one number, see computeValidityIndex().
enum eValidityIndexType : int
{
    eVIT_Dunn = 0,          ///< Dunn index
    eVIT_DaviesBouldin = 1, ///< Davies-Bouldin index
    eVIT_RMSStd = 2,        ///< root-mean-square standard deviation
    eVIT_RS = 3,            ///< R-squared
    eVIT_SD = 4             ///< SD index
};

/// Rates a partition by one number.
///
/// With N samples `x_i` of label `a(i)`, K centres `c_k`, `n_k` samples in cluster k, MAX and MIN the ends of the range
/// of `ovReal64`, and `|v|` the Euclidean norm:
///
/// - eVIT_Dunn: `sqrt(minInter / maxIntra)`, the least squared distance between two samples of different clusters by
///   the largest between two of the same; 0 if `maxIntra` is 0. `minInter` starts from MAX and `maxIntra` from MIN, so
///   the result is `sqrt(MAX / maxIntra)` for one cluster, and NaN for clusters of one sample each, or -0 where two of
///   these all but coincide. Centres are not read. The larger the better.
/// - eVIT_DaviesBouldin: the mean over the clusters of `R_i = max over j != i of (S_0 + S_i) / |c_i - c_j|`, where
///   `S_k` is the mean of `|x_i - c_k|` over cluster k. The scatter added to that of cluster i is that of cluster 0 for
///   every j, unlike in the published index. MAX if two centres coincide, 0 for no sample or K <= 1. The smaller the
///   better.
/// - eVIT_RMSStd: `sqrt(E / F)`, E the sum of `|x_i - c_a(i)|^2`, F the number of coordinates times the sum over the
///   clusters of `n_k - 1`, which wraps round to 4294967295 for an empty cluster; 0 if F is 0. The smaller the better.
/// - eVIT_RS: `(T - W) / T`, T the sum of the squared distances to the mean of all samples, W that to the own centres;
///   0 for no sample or T of 0. The larger the better.
/// - eVIT_SD: `(A / (sigma K) + 1) * B * dMax / dMin`. `sigma` is the norm of the vector of the variances of the
///   coordinates, A the sum over the non-empty clusters of the norm of the vector of their mean squared differences to
///   the centre, B the sum of `1 / |c_i - c_j|` over the ordered pairs of centres, dMax and dMin the largest and the
///   least distance between centres. A product where the published index has a weighted sum. MAX if sigma K is 0 or two
///   centres coincide, 0 for no sample, -0 for one centre. The smaller the better.
///
/// One pass over the data, but for the Dunn index, which compares all pairs of samples.
///
/// @param type a value that is none of the enumeration counts as eVIT_Dunn
OVRIXMATH_EXPORT ovReal64 computeValidityIndex(const VectorColl& centers, const VectorColl& data,
                                               const UInt32Vector& assignments, const eValidityIndexType& type);

} // namespace clustering
} // namespace math
} // namespace ovrix
