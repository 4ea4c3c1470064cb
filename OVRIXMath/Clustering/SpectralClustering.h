#pragma once

#include <OVRIXMath/Clustering/KernelKMeansClustering.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <boost/shared_ptr.hpp>

#include <iosfwd>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// Spectral clustering (Ng, Jordan and Weiss, "On Spectral Clustering", 2001), with kernel k-means as its last step.
///
/// `compute` embeds the samples: with W the matrix of the kernel values between them, self values included, and D the
/// diagonal matrix of the row sums of W, the leading eigenvectors of `D^-1/2 W D^-1/2` are the columns of a matrix
/// whose rows, scaled to unit length, stand for the samples. A KernelKMeansClustering with the same kernel clusters
/// these rows. It tells the results; its samples are the rows.
///
/// ```cpp
/// SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel::createKernel(0.2));
/// if (clustering.compute(2, samples))
///     std::cout << clustering.getAssignments()[0] << " " << clustering.getEigenValues() << std::endl;
/// ```
///
/// A sample whose row of W has the sum 0, such as the zero vector under the LinearKernel, is embedded with factor 0. A
/// negative sum, which a LinearKernel or SigmoidKernel can have, has no root: its NaN spreads, and `compute` raises.
///
/// W is dense: the class is for some thousands of samples. Time is cubic in their number, memory quadratic.
///
/// Precondition of `compute` with two or more clusters: the rows are ones that KernelKMeansClustering can seed from, at
/// least as many of them different as there are clusters. Samples that all are equal are not, for example. The seeding
/// does not return otherwise.
///
/// Copies are deep. One object must not be used on two threads during `compute`, nor may two objects compute at the
/// same time without care for the generator, which all share. `computeAssignment` fills a cache of the centroids:
/// threads may share it after a first call.
///
/// @tparam KernelType LinearKernel, PolynomialKernel, RadialBasisKernel or SigmoidKernel
template <class KernelType>
class OVRIXMATH_EXPORT SpectralClustering
{
public:
    /// Nothing done, the default configuration.
    explicit SpectralClustering(const KernelType& kernel);

    SpectralClustering(const SpectralClustering& other);

    /// All or nothing: an exception leaves the object as it was.
    SpectralClustering& operator=(const SpectralClustering& other);

    const KernelType& getKernel() const; ///< the kernel that samples are compared by

    /// The configuration of the clustering of the rows.
    const KernelKMeansClusteringConfig& getConfig() const;

    /// Replaces the configuration; what has been computed stays.
    void setConfig(const KernelKMeansClusteringConfig& config);

    /// The clustering of the rows.
    const KernelKMeansClustering<KernelType>& getClusteringAlgorithm() const;

    /// Clusters the samples.
    ///
    /// The object is not done after a failure, a raise or any other exception, even if it was before.
    ///
    /// @param nbClusters in [1, number of samples], else raises Clustering message 11 for 0 and 5 above
    /// @param data samples of one size, not those of this object, which are cleared first; a copy is kept
    /// @return as `KernelKMeansClustering::compute` for the rows
    /// @throws OVRIXMathException LinearAlgebra message 11 if the eigenvalues cannot be found, as when the kernel
    /// values are not finite
    bool compute(ovUInt32 nbClusters, const VectorColl& data);

    /// Whether the last `compute` succeeded.
    bool isClusteringDone() const;

    /// Empties samples, rows, centroids and labels; eigenvalues and eigenvectors become zeros of the same sizes, and
    /// the numbers keep their values.
    void clear();

    /// @name Results
    /// Each raises Clustering message 0 unless the clustering is done.
    /// @{

    /// The label of a further sample: of the centroid nearest to `y` with `y_j = l_j sum_i v_i V_ij`, where V holds the
    /// eigenvectors, l the eigenvalues, and `v_i = k(x_i, x)`, divided by their sum unless it is 0. `y` is not scaled
    /// to unit length, unlike the rows, and so lies near the origin: with a kernel that is narrow beside the unit
    /// length the label tells little.
    ovUInt32 computeAssignment(const Vector& x) const;

    /// Number of clusters.
    ovUInt32 getNbClusters() const;

    /// Number of rows, which is that of the samples.
    ovUInt32 getNbInputData() const;

    /// Number of coordinates of the first sample; a row has as many as there are clusters.
    ovUInt32 getDataSize() const;

    /// The samples.
    const VectorColl& getInputDataColl() const;

    /// The largest eigenvalues, in rising order, as many as there are clusters.
    const Vector& getEigenValues() const;

    /// Their eigenvectors as columns, a row for each sample; not scaled.
    const Matrix& getEigenVectors() const;

    /// Attempts of the clustering of the rows that used up their iterations.
    ovUInt32 getNbFailedAttempts() const;

    /// Dunn index of the rows.
    ovReal64 getSeparation() const;

    /// Iterations of the attempt that was kept.
    ovUInt32 getNbIteration() const;

    /// Number of samples of a cluster; raises Clustering message 2 unless `clusterIdx` is below the number of clusters.
    ovUInt32 getClusterPopulation(ovUInt32 clusterIdx) const;

    /// The label of each sample.
    const UInt32Vector& getAssignments() const;

    /// @}

private:
    boost::shared_ptr<KernelKMeansClustering<KernelType>> _clusteringAlgorithm;
    VectorColl _inputDataColl;
    Vector _eigenValues;
    Matrix _eigenVectors;
};

/// Writes the clustering of the rows.
template <class KernelType>
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const SpectralClustering<KernelType>& clustering);

extern template class SpectralClustering<LinearKernel>;
extern template class SpectralClustering<PolynomialKernel>;
extern template class SpectralClustering<RadialBasisKernel>;
extern template class SpectralClustering<SigmoidKernel>;

extern template OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream&, const SpectralClustering<LinearKernel>&);
extern template OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream&, const SpectralClustering<PolynomialKernel>&);
extern template OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream&, const SpectralClustering<RadialBasisKernel>&);
extern template OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream&, const SpectralClustering<SigmoidKernel>&);

} // namespace clustering
} // namespace math
} // namespace ovrix
