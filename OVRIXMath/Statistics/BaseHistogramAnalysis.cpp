#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Statistics/BaseHistogram.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>
#include <OVRIXMath/Tools/RoundingRules.h>

#include <boost/make_shared.hpp>

#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

/// The bins [begin, end).
struct BinRange
{
    ovUInt32 begin;
    ovUInt32 end;
};

/// The bins of the classes, or all of them.
BinRange getBinRange(const BaseHistogram& histogram, bool bIncludeOutOfBounds)
{
    if (bIncludeOutOfBounds)
        return {0, histogram.getNbBins()};
    const ovUInt32 offset = histogram.getInBoundsBinOffset();
    return {offset, offset + histogram.getNbClasses()};
}

/// Coordinates and values of extrema.
class ExtremaReader
{
public:
    explicit ExtremaReader(const BaseHistogram& histogram)
        : _histogram(histogram), _midValues(histogram.getBinMidValues()),
          _population(histogram.getHistogramPopulation())
    {
    }

    /// Those of one bin.
    void indexToExtremaCoords(ovUInt32 binIdx, ovReal64& coord, unsigned long& value) const
    {
        coord = _midValues[binIdx];
        value = _population[binIdx];
    }

    /// Those of a range of bins: the mean middle, weighted by the populations, and their sum. A range that runs across
    /// the end raises Statistics message 5.
    void rangeToExtremaCoords(const ExtremaRange& range, ovReal64& coord, unsigned long& value) const
    {
        coord = 0.0;
        value = 0;
        for (unsigned long b = range.first; b < range.first + range.second; ++b)
        {
            _histogram.checkBinIdx(static_cast<ovUInt32>(b));
            value += _population[b];
            coord += static_cast<double>(_population[b]) * _midValues[b];
        }
        if (value != 0)
            coord /= static_cast<double>(value);
    }

    /// The bin of a coordinate.
    ovUInt32 findBin(ovReal64 coord) const
    {
        const ovReal64 first = _histogram.getFirstHistoValue();
        if (first > coord)
            return _histogram.getLowerOutOfBoundsBinIdx();
        if (coord > _histogram.getLastHistoValue())
            return _histogram.getUpperOutOfBoundsBinIdx();
        const auto k = details::truncateTo<ovUInt32>((coord - first) / _histogram.getBinWidth());
        const ovUInt32 classIdx = k == _histogram.getNbClasses() ? k - 1 : k;
        return classIdx + _histogram.getInBoundsBinOffset();
    }

private:
    const BaseHistogram& _histogram;
    const std::vector<double> _midValues;
    const UInt64Vector& _population;
};

clustering::UInt32Vector findLocal(const BaseHistogram& histogram, eExtremaType type, bool bStrict,
                                   const eExtremaBorderPolicy& policy, ovReal64 minDistance,
                                   unsigned long valueThreshold)
{
    const ExtremaReader reader(histogram);
    clustering::UInt32Vector bins;
    if (bStrict)
        findLocalStrictExtrema(histogram.getHistogramPopulation(), policy, type, bins);
    else
        findLocalExtrema(histogram.getHistogramPopulation(), policy, type, bins);

    const ExtremumCoords<ovUInt32, unsigned long> getCoords =
        [&reader](const ovUInt32& binIdx, ovReal64& coord, unsigned long& value)
    { reader.indexToExtremaCoords(binIdx, coord, value); };
    filterExtrema(type, minDistance, valueThreshold, getCoords, bins);
    return bins;
}

std::vector<HistogramExtrema> findLocalDilated(const BaseHistogram& histogram, eExtremaType type,
                                               unsigned long dilateFactor, const eExtremaBorderPolicy& policy,
                                               ovReal64 minDistance, unsigned long valueThreshold)
{
    const ExtremaReader reader(histogram);
    ExtremaRangeColl ranges;
    findLocalDilatedExtrema(histogram.getHistogramPopulation(), policy, type, dilateFactor, ranges);

    const ExtremumCoords<ExtremaRange, unsigned long> getCoords =
        [&reader](const ExtremaRange& range, ovReal64& coord, unsigned long& value)
    { reader.rangeToExtremaCoords(range, coord, value); };
    filterExtrema(type, minDistance, valueThreshold, getCoords, ranges);

    std::vector<HistogramExtrema> extrema(ranges.size());
    for (std::size_t i = 0; i < ranges.size(); ++i)
    {
        reader.rangeToExtremaCoords(ranges[i], extrema[i]._coord, extrema[i]._population);
        extrema[i]._binIdx = reader.findBin(extrema[i]._coord);
    }
    return extrema;
}

/// Clusters the samples of a histogram; whether that succeeded is told by the object.
template <class Clustering, class Config>
boost::shared_ptr<Clustering> applyClustering(const BaseHistogram& histogram, ovUInt32 nbClusters,
                                              bool bIncludeOutOfBounds, const Config& config,
                                              const boost::shared_ptr<Clustering>& pClustering)
{
    pClustering->setConfig(config);
    clustering::VectorColl data;
    histogram.collectClusteringData(bIncludeOutOfBounds, data);
    OVRIXMATH_RAISE_UNLESS(nbClusters <= data.size(), eStatisticsMessage, 14, nbClusters, data.size());
    pClustering->compute(nbClusters, data);
    return pClustering;
}

} // namespace

clustering::UInt32Vector BaseHistogram::findLocalMaxima(bool bStrict, const eExtremaBorderPolicy& policy,
                                                        ovReal64 minDistance, unsigned long valueThreshold) const
{
    return findLocal(*this, eET_Maxima, bStrict, policy, minDistance, valueThreshold);
}

clustering::UInt32Vector BaseHistogram::findLocalMinima(bool bStrict, const eExtremaBorderPolicy& policy,
                                                        ovReal64 minDistance, unsigned long valueThreshold) const
{
    return findLocal(*this, eET_Minima, bStrict, policy, minDistance, valueThreshold);
}

std::vector<HistogramExtrema> BaseHistogram::findLocalDilatedMaxima(unsigned long dilateFactor,
                                                                    const eExtremaBorderPolicy& policy,
                                                                    ovReal64 minDistance,
                                                                    unsigned long valueThreshold) const
{
    return findLocalDilated(*this, eET_Maxima, dilateFactor, policy, minDistance, valueThreshold);
}

std::vector<HistogramExtrema> BaseHistogram::findLocalDilatedMinima(unsigned long dilateFactor,
                                                                    const eExtremaBorderPolicy& policy,
                                                                    ovReal64 minDistance,
                                                                    unsigned long valueThreshold) const
{
    return findLocalDilated(*this, eET_Minima, dilateFactor, policy, minDistance, valueThreshold);
}

void BaseHistogram::collectClusteringData(bool bIncludeOutOfBounds, clustering::VectorColl& data) const
{
    data.clear();
    const unsigned long total = getTotal();
    const std::vector<double> midValues = getBinMidValues();
    const BinRange bins = getBinRange(*this, bIncludeOutOfBounds);
    data.reserve(total);
    for (ovUInt32 b = bins.begin; b < bins.end; ++b)
    {
        for (unsigned long i = 0; i < _histogramPopulation[b]; ++i)
            data.emplace_back(1, midValues[b]);
    }
}

clustering::KMeansClusteringPtr
BaseHistogram::applyKMeansClustering(ovUInt32 nbClusters, bool bIncludeOutOfBounds,
                                     const clustering::KMeansClusteringConfig& config) const
{
    return applyClustering(*this, nbClusters, bIncludeOutOfBounds, config,
                           boost::make_shared<clustering::KMeansClustering>());
}

template <class KernelType>
boost::shared_ptr<clustering::KernelKMeansClustering<KernelType>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32 nbClusters, const KernelType& kernel, bool bIncludeOutOfBounds,
                                           const clustering::KernelKMeansClusteringConfig& config) const
{
    return applyClustering(*this, nbClusters, bIncludeOutOfBounds, config,
                           boost::make_shared<clustering::KernelKMeansClustering<KernelType>>(kernel));
}

template <class KernelType>
boost::shared_ptr<clustering::SpectralClustering<KernelType>>
BaseHistogram::applySpectralClustering(ovUInt32 nbClusters, const KernelType& kernel, bool bIncludeOutOfBounds,
                                       const clustering::KernelKMeansClusteringConfig& config) const
{
    return applyClustering(*this, nbClusters, bIncludeOutOfBounds, config,
                           boost::make_shared<clustering::SpectralClustering<KernelType>>(kernel));
}

HistogramGaussianCurveFit BaseHistogram::fitGaussianCurve(const EstimationConfig& config,
                                                          bool bIncludeOutOfBounds) const
{
    const std::vector<double> midValues = getBinMidValues();
    const BinRange bins = getBinRange(*this, bIncludeOutOfBounds);
    DataSet samples;
    samples.reserve(bins.end - bins.begin);
    Vector sample(2);
    for (ovUInt32 b = bins.begin; b < bins.end; ++b)
    {
        if (_histogramPopulation[b] == 0)
            continue;
        sample(0) = midValues[b];
        sample(1) = static_cast<double>(_histogramPopulation[b]);
        samples.push_back(sample);
    }

    HistogramGaussianCurveFit fit;
    processEstimation(config, boost::make_shared<GaussianCurve2dEstimator>(), samples, fit._estimationResults);
    if (fit._estimationResults.getEstimationStatus())
    {
        const ParameterType& parameters = fit._estimationResults.getEstimParams();
        fit._csteA = parameters(0);
        fit._csteMu = parameters(1);
        fit._csteSigma = parameters(2);
    }
    return fit;
}

template OVRIXMATH_EXPORT boost::shared_ptr<clustering::KernelKMeansClustering<clustering::LinearKernel>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32, const clustering::LinearKernel&, bool,
                                           const clustering::KernelKMeansClusteringConfig&) const;
template OVRIXMATH_EXPORT boost::shared_ptr<clustering::SpectralClustering<clustering::LinearKernel>>
BaseHistogram::applySpectralClustering(ovUInt32, const clustering::LinearKernel&, bool,
                                       const clustering::KernelKMeansClusteringConfig&) const;
template OVRIXMATH_EXPORT boost::shared_ptr<clustering::KernelKMeansClustering<clustering::PolynomialKernel>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32, const clustering::PolynomialKernel&, bool,
                                           const clustering::KernelKMeansClusteringConfig&) const;
template OVRIXMATH_EXPORT boost::shared_ptr<clustering::SpectralClustering<clustering::PolynomialKernel>>
BaseHistogram::applySpectralClustering(ovUInt32, const clustering::PolynomialKernel&, bool,
                                       const clustering::KernelKMeansClusteringConfig&) const;
template OVRIXMATH_EXPORT boost::shared_ptr<clustering::KernelKMeansClustering<clustering::RadialBasisKernel>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32, const clustering::RadialBasisKernel&, bool,
                                           const clustering::KernelKMeansClusteringConfig&) const;
template OVRIXMATH_EXPORT boost::shared_ptr<clustering::SpectralClustering<clustering::RadialBasisKernel>>
BaseHistogram::applySpectralClustering(ovUInt32, const clustering::RadialBasisKernel&, bool,
                                       const clustering::KernelKMeansClusteringConfig&) const;
template OVRIXMATH_EXPORT boost::shared_ptr<clustering::KernelKMeansClustering<clustering::SigmoidKernel>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32, const clustering::SigmoidKernel&, bool,
                                           const clustering::KernelKMeansClusteringConfig&) const;
template OVRIXMATH_EXPORT boost::shared_ptr<clustering::SpectralClustering<clustering::SigmoidKernel>>
BaseHistogram::applySpectralClustering(ovUInt32, const clustering::SigmoidKernel&, bool,
                                       const clustering::KernelKMeansClusteringConfig&) const;

} // namespace math
} // namespace ovrix
