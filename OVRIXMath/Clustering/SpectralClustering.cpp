#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/KernelSamples.h>
#include <OVRIXMath/Clustering/RowSums.h>
#include <OVRIXMath/Clustering/SpectralClustering.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <utility>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace
{

/// The kernel values between all samples, self values on the diagonal.
template <class KernelType>
Matrix computeKernelMatrix(const KernelType& kernel, const VectorColl& data)
{
    const details::KernelSamples<KernelType> samples(kernel, data);
    const std::size_t nbData = data.size();
    Matrix W(nbData, nbData);
    double* const elements = W.data().begin();
    for (std::size_t i = 0; i < nbData; ++i)
    {
        double* const row = elements + i * nbData;
        row[i] = samples.getSelfValue(i);
        samples.computeRow(data[i], i + 1, nbData, row + i + 1);
    }
    // The lower triangle mirrors the upper one, in blocks whose columns stay in the first cache.
    constexpr std::size_t blockSize = 32;
    for (std::size_t begin = 0; begin < nbData; begin += blockSize)
    {
        const std::size_t end = std::min(begin + blockSize, nbData);
        for (std::size_t i = begin + 1; i < nbData; ++i)
        {
            for (std::size_t j = begin; j < std::min(i, end); ++j)
                elements[i * nbData + j] = elements[j * nbData + i];
        }
    }
    return W;
}

/// Scales a symmetric matrix from both sides by the inverse roots of its row sums, 0 for a sum of 0.
void normalise(Matrix& W)
{
    const std::size_t size = W.size1();
    double* const elements = W.data().begin();
    std::vector<double> D(size, 0.0);
    // Rows are columns: adding whole rows gives every sum in the order of its columns.
    for (std::size_t j = 0; j < size; ++j)
    {
        for (std::size_t i = 0; i < size; ++i)
            D[i] += elements[j * size + i];
    }
    for (double& sum : D)
        sum = sum != 0.0 ? 1.0 / std::sqrt(sum) : 0.0;
    for (std::size_t i = 0; i < size; ++i)
    {
        for (std::size_t j = 0; j < size; ++j)
            elements[i * size + j] = D[i] * D[j] * elements[i * size + j];
    }
}

/// The rows of a matrix, scaled to unit length unless they are zero.
VectorColl makeUnitRows(const Matrix& V)
{
    VectorColl rows(V.size1(), Vector(V.size2()));
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        const double* const source = V.data().begin() + i * V.size2();
        double squaredNorm = 0.0;
        for (std::size_t j = 0; j < V.size2(); ++j)
            squaredNorm += source[j] * source[j];
        const double norm = std::sqrt(squaredNorm);
        for (std::size_t j = 0; j < V.size2(); ++j)
            rows[i][j] = norm != 0.0 ? source[j] / norm : source[j];
    }
    return rows;
}

} // namespace

template <class KernelType>
SpectralClustering<KernelType>::SpectralClustering(const KernelType& kernel)
    : _clusteringAlgorithm(boost::make_shared<KernelKMeansClustering<KernelType>>(kernel))
{
}

template <class KernelType>
SpectralClustering<KernelType>::SpectralClustering(const SpectralClustering& other)
    : _clusteringAlgorithm(boost::make_shared<KernelKMeansClustering<KernelType>>(*other._clusteringAlgorithm)),
      _inputDataColl(other._inputDataColl), _eigenValues(other._eigenValues), _eigenVectors(other._eigenVectors)
{
}

template <class KernelType>
SpectralClustering<KernelType>& SpectralClustering<KernelType>::operator=(const SpectralClustering& other)
{
    SpectralClustering copy(other);
    // The inner object stays the one that getClusteringAlgorithm() has given.
    *_clusteringAlgorithm = std::move(*copy._clusteringAlgorithm);
    _inputDataColl.swap(copy._inputDataColl);
    _eigenValues.swap(copy._eigenValues);
    _eigenVectors.swap(copy._eigenVectors);
    return *this;
}

template <class KernelType>
const KernelType& SpectralClustering<KernelType>::getKernel() const
{
    return _clusteringAlgorithm->getKernel();
}

template <class KernelType>
const KernelKMeansClusteringConfig& SpectralClustering<KernelType>::getConfig() const
{
    return _clusteringAlgorithm->getConfig();
}

template <class KernelType>
void SpectralClustering<KernelType>::setConfig(const KernelKMeansClusteringConfig& config)
{
    _clusteringAlgorithm->setConfig(config);
}

template <class KernelType>
const KernelKMeansClustering<KernelType>& SpectralClustering<KernelType>::getClusteringAlgorithm() const
{
    return *_clusteringAlgorithm;
}

template <class KernelType>
bool SpectralClustering<KernelType>::compute(ovUInt32 nbClusters, const VectorColl& data)
{
    clear();
    const ovUInt32 nbData = static_cast<ovUInt32>(data.size());
    OVRIXMATH_RAISE_UNLESS(nbClusters != 0, eClusteringMessage, 11);
    OVRIXMATH_RAISE_UNLESS(nbClusters <= nbData, eClusteringMessage, 5, nbClusters, nbData);
    _inputDataColl = data;
    {
        Matrix W = computeKernelMatrix(getKernel(), _inputDataColl);
        normalise(W);
        _eigenValues.resize(nbClusters, false);
        _eigenVectors.resize(nbData, nbClusters, false);
        eigenPartialDecomposition(W, _eigenValues, _eigenVectors);
    }
    return _clusteringAlgorithm->compute(nbClusters, makeUnitRows(_eigenVectors));
}

template <class KernelType>
bool SpectralClustering<KernelType>::isClusteringDone() const
{
    return _clusteringAlgorithm->isClusteringDone();
}

template <class KernelType>
void SpectralClustering<KernelType>::clear()
{
    _clusteringAlgorithm->clear();
    _inputDataColl.clear();
    std::fill(_eigenValues.data().begin(), _eigenValues.data().end(), 0.0);
    std::fill(_eigenVectors.data().begin(), _eigenVectors.data().end(), 0.0);
}

template <class KernelType>
ovUInt32 SpectralClustering<KernelType>::computeAssignment(const Vector& x) const
{
    const std::size_t nbData = getNbInputData();
    std::vector<double> v(nbData);
    double sum = 0.0;
    for (std::size_t i = 0; i < nbData; ++i)
    {
        v[i] = getKernel()(_inputDataColl[i], x);
        sum += v[i];
    }
    if (sum != 0.0)
    {
        for (double& value : v)
            value /= sum;
    }
    const std::size_t nbClusters = getNbClusters();
    Vector y(nbClusters, 0.0);
    details::addRows<details::Product>(y.data().begin(), nbClusters, v.data(), nbData,
                                       details::EquidistantRows{_eigenVectors.data().begin(), nbClusters});
    for (std::size_t j = 0; j < nbClusters; ++j)
        y[j] *= _eigenValues[j];
    return computeKernelAssignment(getClusteringAlgorithm().getClustersCentroids(), y);
}

template <class KernelType>
ovUInt32 SpectralClustering<KernelType>::getNbClusters() const
{
    return _clusteringAlgorithm->getNbClusters();
}

template <class KernelType>
ovUInt32 SpectralClustering<KernelType>::getNbInputData() const
{
    return _clusteringAlgorithm->getNbInputData();
}

template <class KernelType>
ovUInt32 SpectralClustering<KernelType>::getDataSize() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return static_cast<ovUInt32>(_inputDataColl.front().size());
}

template <class KernelType>
const VectorColl& SpectralClustering<KernelType>::getInputDataColl() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _inputDataColl;
}

template <class KernelType>
const Vector& SpectralClustering<KernelType>::getEigenValues() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _eigenValues;
}

template <class KernelType>
const Matrix& SpectralClustering<KernelType>::getEigenVectors() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _eigenVectors;
}

template <class KernelType>
ovUInt32 SpectralClustering<KernelType>::getNbFailedAttempts() const
{
    return _clusteringAlgorithm->getNbFailedAttempts();
}

template <class KernelType>
ovReal64 SpectralClustering<KernelType>::getSeparation() const
{
    return _clusteringAlgorithm->getSeparation();
}

template <class KernelType>
ovUInt32 SpectralClustering<KernelType>::getNbIteration() const
{
    return _clusteringAlgorithm->getNbIteration();
}

template <class KernelType>
ovUInt32 SpectralClustering<KernelType>::getClusterPopulation(ovUInt32 clusterIdx) const
{
    return _clusteringAlgorithm->getClusterPopulation(clusterIdx);
}

template <class KernelType>
const UInt32Vector& SpectralClustering<KernelType>::getAssignments() const
{
    return _clusteringAlgorithm->getAssignments();
}

template <class KernelType>
std::ostream& operator<<(std::ostream& stream, const SpectralClustering<KernelType>& clustering)
{
    return stream << clustering.getClusteringAlgorithm();
}

template class SpectralClustering<LinearKernel>;
template class SpectralClustering<PolynomialKernel>;
template class SpectralClustering<RadialBasisKernel>;
template class SpectralClustering<SigmoidKernel>;

template std::ostream& operator<<(std::ostream&, const SpectralClustering<LinearKernel>&);
template std::ostream& operator<<(std::ostream&, const SpectralClustering<PolynomialKernel>&);
template std::ostream& operator<<(std::ostream&, const SpectralClustering<RadialBasisKernel>&);
template std::ostream& operator<<(std::ostream&, const SpectralClustering<SigmoidKernel>&);

} // namespace clustering
} // namespace math
} // namespace ovrix
