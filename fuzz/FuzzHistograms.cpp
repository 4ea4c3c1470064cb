#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Statistics/Histogram.h>

#include <FuzzInput.h>
#include <Seeding.h>
#include <numeric>
#include <sstream>

// The input is an interval, a width or a number of classes, a policy, populations, and the arguments of all queries.

namespace ovrix
{
namespace fuzz
{

namespace
{

using namespace math;
using namespace math::clustering;

/// Histograms take memory for each class, and clusterings for each sample.
constexpr ovUInt32 g_nbMaxClasses = 64;
constexpr unsigned long g_nbMaxSamples = 100;

void setUp(FuzzInput& input, BaseHistogram& histogram)
{
    const double first = input.number();
    const double last = input.flag() ? input.number() : first + input.integer(1, 16);
    const auto policy = input.enumeration<eHistogramOutOfBoundsPolicy>(4);
    if (input.flag())
    {
        const unsigned int nbClasses = input.integer(0, g_nbMaxClasses);
        histogram.updateHistogramParams(first, last, nbClasses, policy);
        return;
    }
    const double width = input.number();
    const ovUInt32 nbClasses = computeHistogramNbClasses(histogram.areDataIntegral(), first, last, width);
    if (nbClasses > g_nbMaxClasses)
        return;
    UInt64Vector population = input.numbers<unsigned long>(computeHistogramNbBins(nbClasses, policy));
    if (input.integer(0, 15) == 1)
        population.resize(input.integer(0, 8));
    histogram.initFromExisting(first, last, width, population, policy);
}

/// The layout of the bins, and the tables that have one entry for each.
void checkTables(const BaseHistogram& histogram)
{
    const UInt64Vector& population = histogram.getHistogramPopulation();
    const std::size_t nbBins = histogram.getNbBins();
    const ovUInt32 nbClasses = histogram.getNbClasses();
    const ovUInt32 offset = histogram.getInBoundsBinOffset();
    require(population.size() == nbBins && nbBins >= std::size_t(offset) + nbClasses, "each class has a bin");
    for (const ovUInt32 bin : {histogram.getLowerOutOfBoundsBinIdx(), histogram.getUpperOutOfBoundsBinIdx()})
        require(bin < nbBins || bin == NumericLimits<ovUInt32>::s_max, "bins outside of the interval are bins");

    histogram.updateCumulated();
    UInt64Vector cumulated(nbBins);
    std::partial_sum(population.begin(), population.end(), cumulated.begin());
    require(histogram.getCumulatedHistogramPopulation() == cumulated, "populations are summed up");
    std::vector<double> shares;
    histogram.getFrequencies(shares);
    require(shares.size() == nbBins, "each bin has a share");
    for (std::size_t b = 0; b < nbBins; ++b)
        require(isSame(shares[b], double(population[b]) / double(cumulated.back())), "it is that of its population");
    histogram.getCumulatedFrequencies(shares);
    require(shares.size() == nbBins && isSame(shares.back(), cumulated.back() == 0 ? NAN : 1.0), "shares add up to 1");

    const std::vector<double> middles = histogram.getBinMidValues();
    require(middles.size() == nbBins, "each bin has a middle");
    for (std::size_t b = 0; b < nbBins; ++b)
    {
        const double middle = (double(b) - offset + 0.5) * histogram.getBinWidth() + histogram.getFirstHistoValue();
        const bool bLastOfMany = b == std::size_t(offset) + nbClasses - 1 && nbClasses > 1;
        require(bLastOfMany || isSame(middles[b], middle), "it lies half a width behind its start");
    }
}

void checkQueries(FuzzInput& input, const BaseHistogram& histogram)
{
    const UInt64Vector& population = histogram.getHistogramPopulation();
    const ovUInt32 nbClasses = histogram.getNbClasses();
    const ovUInt32 largest = histogram.getMaxPopulationClassIdx();
    require(largest < nbClasses, "the largest is one of the first bins");
    for (ovUInt32 b = 0; b < nbClasses; ++b)
        require(b < largest ? population[b] < population[largest] : population[b] <= population[largest],
                "it is the first of the largest");

    const double q = input.flag() ? input.number() : input.integer(0, 8) / 8.0;
    ovUInt32 quantile = 0;
    const bool bDone = attempt([&] { quantile = histogram.getQuantileClassIdx(q); });
    require(bDone == (q >= 0.0 && q <= 1.0) && quantile < nbClasses, "a share in [0, 1] has a class");

    const auto policy = input.enumeration<eExtremaBorderPolicy>(3);
    const double distance = input.number();
    const auto threshold = input.number<unsigned long>();
    for (const bool bStrict : {false, true})
    {
        for (const UInt32Vector& bins : {histogram.findLocalMaxima(bStrict, policy, distance, threshold),
                                         histogram.findLocalMinima(bStrict, policy, distance, threshold)})
            require(bins.empty() || (std::is_sorted(bins.begin(), bins.end()) && bins.back() < population.size()),
                    "extrema are bins that ascend");
    }
    const auto dilateFactor = input.number<unsigned long>();
    attempt([&] { histogram.findLocalDilatedMaxima(dilateFactor, policy, distance, threshold); });
    attempt([&] { histogram.findLocalDilatedMinima(dilateFactor, policy, distance, threshold); });
}

/// A population that wraps round counts as a large one.
bool hasFewSamples(const UInt64Vector& population)
{
    unsigned long total = 0;
    for (const unsigned long count : population)
    {
        if (count > g_nbMaxSamples || (total += count) > g_nbMaxSamples)
            return false;
    }
    return true;
}

void cluster(FuzzInput& input, const BaseHistogram& histogram)
{
    const bool bAll = input.flag();
    VectorColl data;
    histogram.collectClusteringData(bAll, data);
    require(data.size() <= g_nbMaxSamples, "each counted one is a sample");
    const ovUInt32 nbClusters = input.integer(0, 4);
    const bool bSeedless = nbClusters < 2 || nbClusters > data.size();
    const bool bInRange = nbClusters >= 1 && nbClusters <= data.size();
    if (bSeedless || canSeedFrom(data))
    {
        const bool bDone =
            attempt([&] { histogram.applyKMeansClustering(nbClusters, bAll, KMeansClusteringConfig()); });
        require(bDone == bInRange, "a number of clusters in range is accepted");
    }
    const LinearKernel kernel = LinearKernel::createKernel();
    const KernelKMeansClusteringConfig config;
    if (bSeedless || canSeedFrom(data, kernel, nbClusters))
        attempt([&] { histogram.applyKernelKMeansClustering(nbClusters, kernel, bAll, config); });
    if (bSeedless)
        attempt([&] { histogram.applySpectralClustering(nbClusters, kernel, bAll, config); });
}

void fit(FuzzInput& input, const BaseHistogram& histogram)
{
    EstimationConfig config;
    config.initNonRobust();
    const double ratio = input.integer(0, 5) / 10.0;
    if (input.flag())
        config.initRANSAC(input.number(), ratio);
    HistogramGaussianCurveFit curve;
    if (!attempt([&] { curve = histogram.fitGaussianCurve(config, input.flag()); }))
        return;
    if (!curve._estimationResults.getEstimationStatus())
        require(curve._csteA == 0.0 && curve._csteMu == 0.0 && curve._csteSigma == 0.0, "a failure leaves zeros");
    std::ostringstream text;
    text << curve;
}

template <bool bIntegral>
void useHistogram(FuzzInput& input)
{
    Histogram<bIntegral> histogram;
    attempt([&] { setUp(input, histogram); });
    std::ostringstream text;
    text << histogram;
    if (!attempt([&] { histogram.checkInit(); }))
    {
        require(text.str() == "Histogram not initialized\n", "without classes there is nothing to write");
        require(!attempt([&] { histogram.getBinMidValues(); }), "without classes there is nothing to ask for");
        return;
    }
    checkTables(histogram);
    checkQueries(input, histogram);
    if (hasFewSamples(histogram.getHistogramPopulation()))
        cluster(input, histogram);
    fit(input, histogram);
    std::ostringstream textOfCopy;
    textOfCopy << Histogram<bIntegral>(histogram);
    require(textOfCopy.str() == text.str(), "a copy writes the same");
}

} // namespace

} // namespace fuzz
} // namespace ovrix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using namespace ovrix::fuzz;
    FuzzInput input(pData, size);
    if (input.flag())
        useHistogram<true>(input);
    else
        useHistogram<false>(input);
    return 0;
}
