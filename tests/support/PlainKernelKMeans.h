#pragma once

#include <OVRIXMath/Clustering/KernelKMeansClusteringConfig.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/Types.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <support/PlainKMeans.h>
#include <utility>
#include <vector>

/// @file
/// Kernel k-means and spectral clustering written out step by step, as the measure of the fast ones: one kernel value
/// at a time, nothing kept, nothing left out.

namespace ovrix
{
namespace test
{

template <class KernelType>
class PlainKernelCentroid
{
public:
    using Matrix = math::Matrix;
    using Vector = math::Vector;

    explicit PlainKernelCentroid(const KernelType& centroidKernel) : kernel(centroidKernel) {}

    void clear()
    {
        dictionary.clear();
        weights.clear();
        nbSamples = 0;
        K = Matrix(0, 0);
        Kinv = Matrix(0, 0);
        minStrength = 0.0;
        minStrengthIdx = 0;
    }

    double clusterTerm() const
    {
        double term = 0.0;
        for (std::size_t i = 0; i < weights.size(); ++i)
        {
            term += weights[i] * weights[i] * K(i, i);
            for (std::size_t j = i + 1; j < weights.size(); ++j)
                term += weights[j] * (2 * weights[i]) * K(i, j);
        }
        return term;
    }

    double squaredDistance(const Vector& x) const
    {
        double s = 0.0;
        for (std::size_t i = 0; i < weights.size(); ++i)
            s += weights[i] * kernel(dictionary[i], x);
        return kernel(x) + clusterTerm() - (s + s);
    }

    void addSample(const Vector& x)
    {
        const double kxx = kernel(x);
        ++nbSamples;
        const double xs = 1.0 / static_cast<double>(nbSamples);
        const double cs = 1.0 - xs;
        if (dictionary.empty())
        {
            if (!(std::abs(kxx) > NumericLimits<double>::s_eps))
            {
                nbSamples = 0;
                return;
            }
            dictionary.push_back(x);
            weights.push_back(xs);
            K = Matrix(1, 1, kxx);
            Kinv = Matrix(1, 1, 1.0 / kxx);
            minStrength = 0.0;
            minStrengthIdx = 0;
            return;
        }
        std::vector<double> k;
        for (const Vector& member : dictionary)
            k.push_back(kernel(member, x));
        std::vector<double> a = product(Kinv, k);
        double delta = kxx - dot(k, a);
        if (!(delta > std::max(accuracyThreshold, minStrength)))
        {
            for (std::size_t i = 0; i < weights.size(); ++i)
                weights[i] = cs * weights[i] + xs * a[i];
            return;
        }
        bool bRemoved = false;
        if (dictionary.size() == maxDictionarySize)
        {
            if (minStrength == 0.0)
                updateMinStrength();
            const std::size_t p = minStrengthIdx;
            dictionary.erase(dictionary.begin() + static_cast<std::ptrdiff_t>(p));
            const std::size_t m = dictionary.size();
            Kinv = inverseWithout(p);
            std::vector<double> t(m, 0.0);
            for (std::size_t r = 0; r < m; ++r)
            {
                for (std::size_t j = 0; j <= m; ++j)
                    t[r] += K(skip(r, p), j) * weights[j];
            }
            weights = product(Kinv, t);
            Matrix smaller(m, m);
            for (std::size_t r = 0; r < m; ++r)
            {
                for (std::size_t c = 0; c < m; ++c)
                    smaller(r, c) = K(skip(r, p), skip(c, p));
            }
            K = smaller;
            k.erase(k.begin() + static_cast<std::ptrdiff_t>(p));
            a = product(Kinv, k);
            delta = kxx - dot(k, a);
            bRemoved = true;
        }
        dictionary.push_back(x);
        for (double& weight : weights)
            weight *= cs;
        weights.push_back(xs);
        const std::size_t m = k.size();
        K.resize(m + 1, m + 1, true);
        Kinv.resize(m + 1, m + 1, true);
        for (std::size_t r = 0; r < m; ++r)
        {
            K(r, m) = K(m, r) = k[r];
            for (std::size_t c = 0; c < m; ++c)
                Kinv(r, c) = a[c] * a[r] / delta + Kinv(r, c);
            Kinv(r, m) = Kinv(m, r) = -a[r] / delta;
        }
        K(m, m) = kxx;
        Kinv(m, m) = 1.0 / delta;
        if (bRemoved)
            updateMinStrength();
    }

    void updateMinStrength()
    {
        minStrength = NumericLimits<double>::s_max;
        for (std::size_t p = 0; p < dictionary.size(); ++p)
        {
            std::vector<double> row;
            for (std::size_t r = 0; r + 1 < dictionary.size(); ++r)
                row.push_back(K(p, skip(r, p)));
            const double strength = K(p, p) - dot(row, product(inverseWithout(p), row));
            if (minStrength > strength)
            {
                minStrength = strength;
                minStrengthIdx = p;
            }
        }
    }

    KernelType kernel;
    double accuracyThreshold = 0.001;
    ovUInt32 maxDictionarySize = NumericLimits<ovUInt32>::s_max;
    math::clustering::VectorColl dictionary;
    std::vector<double> weights;
    unsigned long nbSamples = 0;
    Matrix K;
    Matrix Kinv;
    double minStrength = 0.0;
    std::size_t minStrengthIdx = 0;

private:
    static std::size_t skip(std::size_t r, std::size_t p)
    {
        return r < p ? r : r + 1;
    }

    static double dot(const std::vector<double>& x, const std::vector<double>& y)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < x.size(); ++i)
            sum += x[i] * y[i];
        return sum;
    }

    static std::vector<double> product(const Matrix& A, const std::vector<double>& x)
    {
        std::vector<double> result(A.size1(), 0.0);
        for (std::size_t r = 0; r < A.size1(); ++r)
        {
            for (std::size_t c = 0; c < A.size2(); ++c)
                result[r] += A(r, c) * x[c];
        }
        return result;
    }

    Matrix inverseWithout(std::size_t p) const
    {
        const std::size_t m = Kinv.size1() - 1;
        const double f = 1.0 / Kinv(p, p);
        Matrix smaller(m, m);
        for (std::size_t r = 0; r < m; ++r)
        {
            for (std::size_t c = r; c < m; ++c)
            {
                const std::size_t R = skip(r, p);
                const std::size_t C = skip(c, p);
                smaller(r, c) = smaller(c, r) = Kinv(R, C) - Kinv(C, p) * (f * Kinv(R, p));
            }
        }
        return smaller;
    }
};

template <class KernelType>
struct PlainKernelKMeans
{
    using Centroids = std::vector<PlainKernelCentroid<KernelType>>;
    using UInt32Vector = math::clustering::UInt32Vector;
    using VectorColl = math::clustering::VectorColl;

    explicit PlainKernelKMeans(const KernelType& clusteringKernel) : kernel(clusteringKernel) {}

    static ovUInt32 assignment(const Centroids& centroids, const math::Vector& x)
    {
        ovUInt32 label = NumericLimits<ovUInt32>::s_max;
        double best = NumericLimits<double>::s_max;
        for (std::size_t k = 0; k < centroids.size(); ++k)
        {
            const double d = centroids[k].squaredDistance(x);
            if (d < best)
            {
                best = d;
                label = static_cast<ovUInt32>(k);
            }
        }
        return label;
    }

    static ovUInt32 attempt(const VectorColl& data, ovUInt32 nbMaxIteration, double minChangeRatio,
                            Centroids& centroids, UInt32Vector& assignments)
    {
        assignments.assign(data.size(), static_cast<ovUInt32>(centroids.size()));
        const auto minChanges = static_cast<ovUInt32>(static_cast<double>(data.size()) * minChangeRatio);
        if (nbMaxIteration == 0)
            return 0;
        if (data.empty())
            return 1;
        ovUInt32 iteration = 0;
        while (true)
        {
            ovUInt32 changes = 0;
            for (std::size_t i = 0; i < data.size(); ++i)
            {
                const ovUInt32 label = assignment(centroids, data[i]);
                changes += label != assignments[i] ? 1 : 0;
                assignments[i] = label;
            }
            if (changes == 0)
                return iteration + 1;
            for (auto& centroid : centroids)
                centroid.clear();
            for (std::size_t i = 0; i < data.size(); ++i)
            {
                if (assignments[i] < centroids.size())
                    centroids[assignments[i]].addSample(data[i]);
            }
            ++iteration;
            if (iteration >= nbMaxIteration || minChanges >= changes)
                return iteration;
        }
    }

    static void seed(const KernelType& kernel, ovUInt32 nbClusters, const VectorColl& data, VectorColl& seeds)
    {
        auto& generator = RandomUniformGenerator::getGen();
        const ovUInt32 last = static_cast<ovUInt32>(data.size() - 1);
        seeds.assign(1, data[boost::random::uniform_int_distribution<ovUInt32>(0, last)(generator)]);
        std::vector<double> minDist(data.size(), NumericLimits<double>::s_max);
        while (seeds.size() < nbClusters)
        {
            std::vector<double> cumulated;
            double total = 0.0;
            for (std::size_t i = 0; i < data.size(); ++i)
            {
                const double d = kernel(data[i]) + kernel(seeds.back()) - 2 * kernel(data[i], seeds.back());
                if (minDist[i] > d)
                    minDist[i] = d;
                cumulated.push_back(total += minDist[i]);
            }
            const double r = boost::random::uniform_real_distribution<double>(0.0, total)(generator);
            std::size_t i = 0;
            while (r > cumulated[i])
                ++i;
            seeds.push_back(data[i]);
        }
    }

    bool compute(ovUInt32 nbClusters, const VectorColl& data,
                 const math::clustering::KernelKMeansClusteringConfig& config)
    {
        nbFailedAttempts = 0;
        separation = NumericLimits<double>::s_min;
        PlainKernelCentroid<KernelType> model(kernel);
        model.accuracyThreshold = config.getAccuracyThreshold();
        model.maxDictionarySize = config.getMaxDictionarySize();
        for (ovUInt32 i = 0; i < config.getNbAttempts(); ++i)
        {
            VectorColl seeds;
            seed(kernel, nbClusters, data, seeds);
            Centroids attemptCentroids(nbClusters, model);
            for (std::size_t k = 0; k < nbClusters; ++k)
                attemptCentroids[k].addSample(seeds[k]);
            UInt32Vector attemptAssignments;
            const ovUInt32 iterations = attempt(data, config.getNbMaxIteration(), config.getMinChangeRatio(),
                                                attemptCentroids, attemptAssignments);
            if (iterations >= config.getNbMaxIteration())
            {
                ++nbFailedAttempts;
                continue;
            }
            const double value = PlainKMeans::dunn(data, attemptAssignments);
            if (value > separation)
            {
                separation = value;
                nbIteration = iterations;
                centroids = attemptCentroids;
                assignments = attemptAssignments;
            }
        }
        if (centroids.empty())
            return false;
        std::vector<std::pair<long, ovUInt32>> order;
        for (ovUInt32 k = 0; k < nbClusters; ++k)
            order.emplace_back(std::count(assignments.begin(), assignments.end(), k), k);
        std::sort(order.rbegin(), order.rend());
        const Centroids formerCentroids = centroids;
        const UInt32Vector formerAssignments = assignments;
        for (ovUInt32 k = 0; k < nbClusters; ++k)
        {
            centroids[k] = formerCentroids[order[k].second];
            for (std::size_t i = 0; i < data.size(); ++i)
            {
                if (formerAssignments[i] == order[k].second)
                    assignments[i] = k;
            }
        }
        return true;
    }

    KernelType kernel;
    ovUInt32 nbFailedAttempts = 0;
    ovUInt32 nbIteration = 0;
    double separation = 0.0;
    Centroids centroids;
    UInt32Vector assignments;
};

template <class KernelType>
struct PlainSpectral
{
    using VectorColl = math::clustering::VectorColl;

    explicit PlainSpectral(const KernelType& clusteringKernel) : kernel(clusteringKernel), inner(clusteringKernel) {}

    /// The normalised kernel matrix.
    static math::Matrix affinities(const KernelType& kernel, const VectorColl& data)
    {
        const std::size_t n = data.size();
        math::Matrix W(n, n);
        for (std::size_t i = 0; i < n; ++i)
        {
            W(i, i) = kernel(data[i]);
            for (std::size_t j = i + 1; j < n; ++j)
                W(i, j) = W(j, i) = kernel(data[i], data[j]);
        }
        std::vector<double> D;
        for (std::size_t i = 0; i < n; ++i)
        {
            double s = 0.0;
            for (std::size_t j = 0; j < n; ++j)
                s += W(i, j);
            D.push_back(s != 0.0 ? 1.0 / std::sqrt(s) : 0.0);
        }
        for (std::size_t i = 0; i < n; ++i)
        {
            for (std::size_t j = 0; j < n; ++j)
                W(i, j) = D[i] * D[j] * W(i, j);
        }
        return W;
    }

    /// The rows, scaled to unit length unless they are zero.
    static VectorColl makeUnitRows(const math::Matrix& V)
    {
        VectorColl rows;
        for (std::size_t i = 0; i < V.size1(); ++i)
        {
            math::Vector row(V.size2());
            double squares = 0.0;
            for (std::size_t j = 0; j < V.size2(); ++j)
            {
                row[j] = V(i, j);
                squares += row[j] * row[j];
            }
            const double norm = std::sqrt(squares);
            for (double& value : row)
                value = norm != 0.0 ? value / norm : value;
            rows.push_back(row);
        }
        return rows;
    }

    bool compute(ovUInt32 nbClusters, const VectorColl& data,
                 const math::clustering::KernelKMeansClusteringConfig& config)
    {
        samples = data;
        eigenValues.resize(nbClusters);
        eigenVectors.resize(data.size(), nbClusters);
        math::eigenPartialDecomposition(affinities(kernel, data), eigenValues, eigenVectors);
        return inner.compute(nbClusters, makeUnitRows(eigenVectors), config);
    }

    /// The sample in the space of the rows.
    math::Vector embed(const math::Vector& x) const
    {
        std::vector<double> v;
        double s = 0.0;
        for (const math::Vector& sample : samples)
        {
            v.push_back(kernel(sample, x));
            s += v.back();
        }
        for (double& value : v)
            value = s != 0.0 ? value / s : value;
        math::Vector y(eigenValues.size());
        for (std::size_t j = 0; j < y.size(); ++j)
        {
            double sum = 0.0;
            for (std::size_t i = 0; i < samples.size(); ++i)
                sum += v[i] * eigenVectors(i, j);
            y[j] = sum * eigenValues[j];
        }
        return y;
    }

    KernelType kernel;
    PlainKernelKMeans<KernelType> inner;
    VectorColl samples;
    math::Vector eigenValues;
    math::Matrix eigenVectors;
};

} // namespace test
} // namespace ovrix
