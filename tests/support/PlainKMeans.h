#pragma once

#include <OVRIXMath/Clustering/KMeansClusteringConfig.h>
#include <OVRIXMath/Types.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ovrix
{
namespace test
{

/// k-means and the Dunn index written out step by step, as the measure of the fast ones: every distance is computed.
struct PlainKMeans
{
    using UInt32Vector = math::clustering::UInt32Vector;
    using VectorColl = math::clustering::VectorColl;

    static double squaredDistance(const math::Vector& a, const math::Vector& b)
    {
        double sum = 0.0;
        for (std::size_t j = 0; j < a.size(); ++j)
            sum += (a[j] - b[j]) * (a[j] - b[j]);
        return sum;
    }

    static ovUInt32 assignment(const VectorColl& centers, const math::Vector& x)
    {
        ovUInt32 label = NumericLimits<ovUInt32>::s_max;
        double best = NumericLimits<double>::s_max;
        for (std::size_t k = 0; k < centers.size(); ++k)
        {
            const double d = squaredDistance(centers[k], x);
            if (d < best)
            {
                best = d;
                label = static_cast<ovUInt32>(k);
            }
        }
        return label;
    }

    static void means(std::size_t nbClusters, const VectorColl& data, const UInt32Vector& assignments,
                      VectorColl& centers)
    {
        centers.assign(nbClusters, math::Vector(data.front().size(), 0.0));
        std::vector<double> counts(nbClusters, 0.0);
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            if (assignments[i] >= nbClusters)
                continue;
            for (std::size_t j = 0; j < data[i].size(); ++j)
                centers[assignments[i]][j] += data[i][j];
            counts[assignments[i]] += 1.0;
        }
        for (std::size_t k = 0; k < nbClusters; ++k)
        {
            for (double& coordinate : centers[k])
                coordinate = counts[k] > 0.0 ? coordinate / counts[k] : coordinate;
        }
    }

    static ovUInt32 attempt(const VectorColl& data, ovUInt32 nbMaxIteration, VectorColl& centers,
                            UInt32Vector& assignments)
    {
        assignments.assign(data.size(), static_cast<ovUInt32>(centers.size()));
        for (ovUInt32 iteration = 1; iteration <= nbMaxIteration; ++iteration)
        {
            UInt32Vector labels;
            for (const math::Vector& sample : data)
                labels.push_back(assignment(centers, sample));
            if (labels == assignments)
                return iteration;
            assignments = labels;
            means(centers.size(), data, assignments, centers);
        }
        return nbMaxIteration;
    }

    static void seed(ovUInt32 nbClusters, const VectorColl& data, VectorColl& centers)
    {
        auto& generator = RandomUniformGenerator::getGen();
        const ovUInt32 last = static_cast<ovUInt32>(data.size() - 1);
        centers.assign(1, data[boost::random::uniform_int_distribution<ovUInt32>(0, last)(generator)]);
        while (centers.size() < nbClusters)
        {
            std::vector<double> cumulated;
            double total = 0.0;
            for (const math::Vector& sample : data)
                cumulated.push_back(total += squaredDistance(sample, centers.back()));
            const double r = boost::random::uniform_real_distribution<double>(0.0, total)(generator);
            std::size_t i = 0;
            while (r > cumulated[i])
                ++i;
            centers.push_back(data[i]);
        }
    }

    static double compactnessOf(const VectorColl& centers, const VectorColl& data, const UInt32Vector& assignments)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < data.size(); ++i)
            sum += squaredDistance(data[i], centers[assignments[i]]);
        return sum;
    }

    bool compute(ovUInt32 nbClusters, const VectorColl& data, const math::clustering::KMeansClusteringConfig& config)
    {
        nbFailedAttempts = 0;
        compactness = NumericLimits<double>::s_max;
        for (ovUInt32 i = 0; i < config.getNbAttempts(); ++i)
        {
            VectorColl attemptCenters;
            UInt32Vector attemptAssignments;
            seed(nbClusters, data, attemptCenters);
            const ovUInt32 iterations = attempt(data, config.getNbMaxIteration(), attemptCenters, attemptAssignments);
            if (iterations >= config.getNbMaxIteration())
            {
                ++nbFailedAttempts;
                continue;
            }
            const double value = compactnessOf(attemptCenters, data, attemptAssignments);
            if (compactness > value)
            {
                compactness = value;
                nbIteration = iterations;
                centers = attemptCenters;
                assignments = attemptAssignments;
            }
        }
        if (nbFailedAttempts >= config.getNbAttempts())
            return false;
        std::vector<std::pair<long, ovUInt32>> order;
        for (ovUInt32 k = 0; k < nbClusters; ++k)
            order.emplace_back(std::count(assignments.begin(), assignments.end(), k), k);
        std::sort(order.rbegin(), order.rend());
        const VectorColl formerCenters = centers;
        const UInt32Vector formerAssignments = assignments;
        for (ovUInt32 k = 0; k < nbClusters; ++k)
        {
            centers[k] = formerCenters[order[k].second];
            for (std::size_t i = 0; i < data.size(); ++i)
            {
                if (formerAssignments[i] == order[k].second)
                    assignments[i] = k;
            }
        }
        return true;
    }

    static double dunn(const VectorColl& data, const UInt32Vector& assignments)
    {
        double minInter = NumericLimits<double>::s_max;
        double maxIntra = NumericLimits<double>::s_min;
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            for (std::size_t j = i + 1; j < data.size(); ++j)
            {
                const double d = squaredDistance(data[i], data[j]);
                if (assignments[i] == assignments[j])
                    maxIntra = std::max(maxIntra, d);
                else
                    minInter = std::min(minInter, d);
            }
        }
        return maxIntra != 0.0 ? std::sqrt(minInter / maxIntra) : 0.0;
    }

    ovUInt32 nbFailedAttempts = 0;
    ovUInt32 nbIteration = 0;
    double compactness = 0.0;
    VectorColl centers;
    UInt32Vector assignments;
};

} // namespace test
} // namespace ovrix
