#pragma once

#include <OVRIXMath/Types.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <support/PlainKMeans.h>
#include <vector>

namespace ovrix
{
namespace test
{

/// The indices of a partition that read its centres, written out formula by formula: a loop over all samples for each
/// sum. A sample whose label is none of a centre counts for what is formed from all samples only.
struct PlainValidity
{
    using UInt32Vector = math::clustering::UInt32Vector;
    using VectorColl = math::clustering::VectorColl;

    const VectorColl& centers;
    const VectorColl& data;
    const UInt32Vector& assignments;

    double daviesBouldin() const
    {
        const std::size_t nbClusters = centers.size();
        std::vector<double> S;
        for (std::size_t k = 0; k < nbClusters; ++k)
        {
            double sum = 0.0;
            for (const std::size_t i : samplesOf(k))
                sum += distance(data[i], centers[k]);
            S.push_back(samplesOf(k).empty() ? 0.0 : sum / double(samplesOf(k).size()));
        }
        if (nbClusters <= 1)
            return 0.0;
        double sum = 0.0;
        for (std::size_t i = 0; i < nbClusters; ++i)
        {
            double R = NumericLimits<double>::s_min;
            for (std::size_t j = 0; j < nbClusters; ++j)
            {
                if (i == j)
                    continue;
                const double d = distance(centers[i], centers[j]);
                if (d == 0.0)
                    return NumericLimits<double>::s_max;
                R = std::max(R, (S[0] + S[i]) / d);
            }
            sum += R;
        }
        return sum / double(nbClusters);
    }

    double rmsStd() const
    {
        double F = 0.0;
        for (std::size_t k = 0; k < centers.size(); ++k)
            F += samplesOf(k).empty() ? 4294967295.0 : double(samplesOf(k).size() - 1);
        F *= double(data.front().size());
        return F != 0.0 ? std::sqrt(squaredError() / F) : 0.0;
    }

    double rSquared() const
    {
        math::Vector mean(data.front().size());
        for (std::size_t j = 0; j < mean.size(); ++j)
            mean[j] = sumOver([&](std::size_t i) { return data[i][j]; }) / double(data.size());
        const double T = sumOver([&](std::size_t i) { return PlainKMeans::squaredDistance(data[i], mean); });
        return T != 0.0 ? (T - squaredError()) / T : 0.0;
    }

    double sd() const
    {
        const double N = double(data.size());
        double squaredSigma = 0.0;
        for (std::size_t j = 0; j < data.front().size(); ++j)
        {
            const double m = sumOver([&](std::size_t i) { return data[i][j]; }) / N;
            const double q = sumOver([&](std::size_t i) { return data[i][j] * data[i][j]; }) / N;
            squaredSigma += (q - m * m) * (q - m * m);
        }
        const double D = std::sqrt(squaredSigma) * double(centers.size());
        if (D == 0.0)
            return NumericLimits<double>::s_max;
        double A = 0.0;
        for (std::size_t k = 0; k < centers.size(); ++k)
        {
            const std::vector<std::size_t> samples = samplesOf(k);
            if (samples.empty())
                continue;
            double squaredNorm = 0.0;
            for (std::size_t j = 0; j < data.front().size(); ++j)
            {
                double v = 0.0;
                for (const std::size_t i : samples)
                    v += (data[i][j] - centers[k][j]) * (data[i][j] - centers[k][j]);
                squaredNorm += (v / double(samples.size())) * (v / double(samples.size()));
            }
            A += std::sqrt(squaredNorm);
        }
        double dMax = NumericLimits<double>::s_min;
        double dMin = NumericLimits<double>::s_max;
        double B = 0.0;
        for (std::size_t i = 0; i < centers.size(); ++i)
        {
            for (std::size_t j = 0; j < centers.size(); ++j)
            {
                if (i == j)
                    continue;
                const double d = distance(centers[i], centers[j]);
                if (d == 0.0)
                    return NumericLimits<double>::s_max;
                dMax = std::max(dMax, d);
                dMin = std::min(dMin, d);
                B = B + 1.0 / d;
            }
        }
        return (A / D + 1.0) * (B * (dMax / dMin));
    }

private:
    static double distance(const math::Vector& a, const math::Vector& b)
    {
        return std::sqrt(PlainKMeans::squaredDistance(a, b));
    }

    std::vector<std::size_t> samplesOf(std::size_t label) const
    {
        std::vector<std::size_t> samples;
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            if (assignments[i] == label)
                samples.push_back(i);
        }
        return samples;
    }

    template <class Term>
    double sumOver(const Term& term) const
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < data.size(); ++i)
            sum += term(i);
        return sum;
    }

    double squaredError() const
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            if (assignments[i] < centers.size())
                sum += PlainKMeans::squaredDistance(data[i], centers[assignments[i]]);
        }
        return sum;
    }
};

} // namespace test
} // namespace ovrix
