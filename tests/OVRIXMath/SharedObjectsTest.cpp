#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXMath/Clustering/KernelClusteringUtils.h>
#include <OVRIXMath/Clustering/SpectralClustering.h>
#include <OVRIXMath/Estimation/EstimationOperators.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Graph/BipartitePartialMatch.h>
#include <OVRIXMath/Graph/Munkres.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>
#include <OVRIXMath/Statistics/GaussianCurve3dEstimator.h>
#include <OVRIXMath/Statistics/GaussianCurveNdEstimator.h>
#include <OVRIXMath/Statistics/HistogramStructures.h>
#include <OVRIXMath/Tools/Polynomial2dSurfaceEstimator.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <support/AtOnce.h>
#include <support/Builders.h>
#include <support/CostFunctions.h>
#include <support/DataSets.h>
#include <support/ExpectFailure.h>
#include <support/Histograms.h>
#include <support/Kernels.h>
#include <support/LineEstimator.h>
#include <support/RandomData.h>
#include <support/RingsAndMoons.h>
#include <support/TextOf.h>
#include <support/Transforms.h>
#include <vector>

// One object, several threads, and nothing but what may be called then.

namespace ovrix
{
namespace math
{

namespace
{

using clustering::KernelKMeansCentroid;
using clustering::KernelKMeansClustering;
using clustering::KMeansClustering;
using clustering::SpectralClustering;
using clustering::VectorColl;
using test::addTo;
using test::expectSameAtOnce;
using test::expectSuccess;
using test::makeVector;
using test::Outcome;
using test::outcomeOf;
using test::textOf;
using test::toStd;

/// A sample for each thread.
Vector sampleOf(std::size_t thread)
{
    return makeVector({0.5 + static_cast<double>(thread), 1.5 - 0.75 * static_cast<double>(thread)});
}

/// The centroid of 30 samples.
template <class KernelType>
KernelKMeansCentroid<KernelType> makeCentroid()
{
    KernelKMeansCentroid<KernelType> centroid(test::makeKernel<KernelType>());
    for (const Vector& sample : test::makeRings(30, 7))
        centroid.addSample(sample);
    return centroid;
}

/// Two clusters of 60 samples.
template <class Clustering>
void computeTwoClusters(Clustering& clustering)
{
    RandomUniformGenerator::getGen().seed(1);
    ASSERT_TRUE(clustering.compute(2, test::makeMoons(60, 3)));
}

/// What a kernel clustering tells about itself and about a sample.
template <class Clustering>
Outcome askClustering(const Clustering& clustering, const Vector& x)
{
    return outcomeOf(clustering.computeAssignment(x), clustering.getNbClusters(), clustering.getNbInputData(),
                     clustering.getDataSize(), clustering.getInputDataColl(), clustering.getNbFailedAttempts(),
                     clustering.getSeparation(), clustering.getNbIteration(), clustering.getAssignments(),
                     clustering.getClusterPopulation(0), textOf(clustering));
}

/// Gives an assignment problem random weights.
template <class Problem>
void fillWeights(Problem& problem)
{
    test::RandomData random(5);
    for (ovUInt32 row = 0; row < problem.getNbRows(); ++row)
        for (ovUInt32 column = 0; column < problem.getNbColumns(); ++column)
            problem.getWeights(row)[column] = random.real(0.0, 10.0);
}

/// Points of a Gaussian of each thread, to within a percent. They lie on the axes, as the fit of more than one
/// dimension leaves products of coordinates out.
std::vector<DataSet> drawGaussians(ovUInt32 nbDims)
{
    test::RandomData random(11);
    return test::forEachThread(
        [&](unsigned int thread)
        {
            DataSet dataSet(40, Vector(nbDims + 1, 0.0));
            for (std::size_t i = 0; i < dataSet.size(); ++i)
            {
                const double x = random.real(-1.0, 1.0);
                dataSet[i](i % nbDims) = x;
                dataSet[i](nbDims) = (5.0 + thread) * std::exp(-x * x) * random.real(0.99, 1.01);
            }
            return dataSet;
        });
}

/// Fits and residuals of one estimator, to data of its own for each thread.
void expectServesAll(BaseEstimator& estimator, const std::vector<DataSet>& dataSets)
{
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            ParameterType params(estimator.getNbEstimParams());
            ResidualsSet residuals(dataSets[thread].size());
            expectSuccess(estimator.computeEstimation(dataSets[thread], params));
            expectSuccess(estimator.computeResiduals(dataSets[thread], params, residuals));
            return outcomeOf(params, residuals);
        });
}

} // namespace

template <class Transform>
class SharedTransform : public testing::Test
{
};

TYPED_TEST_SUITE(SharedTransform, test::AllTransforms);

TYPED_TEST(SharedTransform, MapsAndTellsTheSameOnAllThreads)
{
    std::mt19937 generator(1);
    const TypeParam transform = test::makeTransform<TypeParam>(test::drawParams<TypeParam>(generator));
    using Family = test::FamilyOf<TypeParam>;
    const auto points = test::forEachThread([&](unsigned int) { return test::drawPoint<Family>(generator); });
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            return outcomeOf(
                test::map(transform, points[thread]), Family::apply(*transform.createInverted(), points[thread]),
                transform.getParams(), transform.getInvParams(), transform.getNbParams(), transform.isInvertible(),
                transform.isLinear(), Family::getType(transform), test::getEntries(transform.getHomogenousMatrix()),
                test::getEntries(transform.getInvHomogenousMatrix()));
        });
}

TEST(SharedHistogram, AnswersAllThreadsOnceItsCumulatedTableIsFilled)
{
    std::mt19937 generator(3);
    const Histogram<false> histogram = test::makeHistogram(eHOOBP_Dedicated, test::randomPopulation(generator, 64));
    histogram.updateCumulated();
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            std::vector<double> frequencies;
            histogram.getFrequencies(frequencies);
            std::vector<double> cumulatedFrequencies;
            histogram.getCumulatedFrequencies(cumulatedFrequencies);
            VectorColl samples;
            histogram.collectClusteringData(true, samples);
            Outcome outcome = outcomeOf(
                histogram.getQuantileClassIdx(0.2 + 0.2 * static_cast<double>(thread)), frequencies,
                cumulatedFrequencies, samples, histogram.getMaxPopulationClassIdx(), histogram.getBinMidValues(),
                histogram.getHistogramPopulation(), histogram.getCumulatedHistogramPopulation(),
                histogram.findLocalMaxima(thread % 2 == 0, eEBP_Include, 2.0, thread),
                histogram.findLocalMinima(thread % 2 == 0, eEBP_Periodic, 2.0, thread), textOf(histogram));
            for (const HistogramExtrema& maximum : histogram.findLocalDilatedMaxima(thread, eEBP_Exclude, 1.0, 1))
                addTo(outcome, textOf(maximum));
            return outcome;
        });
}

TEST(SharedHistogram, IsFittedOnAllThreads)
{
    const Histogram<false> histogram =
        test::makeHistogram(eHOOBP_Ignored, {1, 4, 11, 27, 55, 91, 124, 137, 124, 91, 55, 27, 11, 4, 1});
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const HistogramGaussianCurveFit fit = histogram.fitGaussianCurve(createNonRobustConfig(), thread % 2 == 0);
            return outcomeOf(fit._csteA, fit._csteMu, fit._csteSigma, fit._estimationResults.getResidualsSet());
        });
}

template <class KernelType>
class SharedKernel : public testing::Test
{
};

TYPED_TEST_SUITE(SharedKernel, test::Kernels, test::KernelNames);

TYPED_TEST(SharedKernel, ComparesSamplesOnAllThreads)
{
    const TypeParam kernel = test::makeKernel<TypeParam>();
    const VectorColl samples = test::makeRings(20, 9);
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Outcome outcome = outcomeOf(kernel(sampleOf(thread)));
            for (const Vector& sample : samples)
                addTo(outcome, kernel(sampleOf(thread), sample));
            return outcome;
        });
}

TYPED_TEST(SharedKernel, CentroidAnswersAllThreadsOnceItsClusterTermIsComputed)
{
    const KernelKMeansCentroid<TypeParam> centroid = makeCentroid<TypeParam>();
    centroid.updateClusterTerm();
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const Vector x = sampleOf(thread);
            const KernelKMeansCentroid<TypeParam> copy = centroid;
            return outcomeOf(centroid.distance(x), centroid.comparable_distance(x), centroid.getClusterTerm(),
                             centroid.getNbSamples(), centroid.getDictionarySize(), centroid.getDictionary(),
                             centroid.getWeights(), copy.distance(x));
        });
}

TYPED_TEST(SharedKernel, ClusteringAnswersAllThreadsAfterItsFirstAssignment)
{
    KernelKMeansClustering<TypeParam> clustering(test::makeKernel<TypeParam>());
    computeTwoClusters(clustering);
    clustering.computeAssignment(sampleOf(0));
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const Vector x = sampleOf(thread);
            Outcome outcome = askClustering(clustering, x);
            addTo(outcome, clustering.getCentroid(1).distance(x));
            addTo(outcome, computeKernelAssignment(clustering.getClustersCentroids(), x));
            addTo(outcome, computeKernelCompactness(clustering.getClustersCentroids(), clustering.getInputDataColl(),
                                                    clustering.getAssignments()));
            return outcome;
        });
}

TYPED_TEST(SharedKernel, SpectralClusteringAnswersAllThreadsAfterItsFirstAssignment)
{
    SpectralClustering<TypeParam> clustering(test::makeKernel<TypeParam>());
    RandomUniformGenerator::getGen().seed(1);
    test::RandomData random(2);
    // In the first quadrant, where every kernel is positive.
    ASSERT_TRUE(clustering.compute(2, random.dataSet(40, 2, 0.5, 2.0)));
    clustering.computeAssignment(makeVector({1.0, 1.0}));
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Outcome outcome = askClustering(clustering, makeVector({0.5 + 0.4 * static_cast<double>(thread), 1.0}));
            addTo(outcome, clustering.getEigenValues());
            addTo(outcome, toStd(clustering.getEigenVectors()));
            return outcome;
        });
}

TEST(SharedKMeansClustering, AnswersAllThreads)
{
    KMeansClustering clustering;
    computeTwoClusters(clustering);
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Outcome outcome = outcomeOf(
                clustering.computeAssignment(sampleOf(thread)), clustering.getNbClusters(), clustering.getNbInputData(),
                clustering.getDataSize(), clustering.getInputDataColl(), clustering.getNbFailedAttempts(),
                clustering.getCompactness(), clustering.getNbIteration(), clustering.getClustersCenters(),
                clustering.getAssignments(), clustering.getClusterPopulation(1), clustering.getClusterCenter(0),
                clustering.getClusterStdDev(0), textOf(clustering));
            for (const clustering::eValidityIndexType type :
                 {clustering::eVIT_Dunn, clustering::eVIT_DaviesBouldin, clustering::eVIT_RMSStd, clustering::eVIT_RS,
                  clustering::eVIT_SD})
                addTo(outcome, clustering.computeValidityIndex(type));
            return outcome;
        });
}

TEST(SharedEstimationConfig, IsReadOnAllThreads)
{
    EstimationConfig config;
    config.initMLESAC(0.05, 5.0, 200.0, 0.45);
    config.setRegularGridPartition(7);
    const EstimationConfig& shared = config;
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const EstimationConfig copy = shared;
            return outcomeOf(
                thread, shared.getRobustEstimationType(), shared.getOutlierThreshold(), shared.getGaussianSigma(),
                shared.getOutlierThresholdFactor(), shared.getOutlierRangeFactor(), shared.getExpectedOutlierRatio(),
                shared.getAllowSimpleEstimation(), shared.getSuccessRatio(),
                shared.getDataPartitionPtr()->getDataPartitionType(), copy.getSuccessRatio(), textOf(shared));
        });
}

TEST(SharedEstimationResults, AreReadOnAllThreads)
{
    EstimationConfig config;
    config.initRANSAC(0.4, 0.45);
    EstimationResults results;
    RandomUniformGenerator::getGen().seed(3);
    processEstimation(config, boost::make_shared<LineEstimator>(), test::noisyLine(1), results);
    expectSuccess(results.getEstimationStatus());
    ASSERT_TRUE(results.hasRobustEstimationDone());
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const EstimationResults copy = results;
            return outcomeOf(
                thread, results.getNbEstimParams(), results.getInputDataSize(), results.getNbMinDataForEstimation(),
                results.getNbMinDataForRobustEstimation(), results.getNbInputData(), results.getEstimParams(),
                results.getResidualsSet(), results.getOutlierFlags(), results.getEstimOutlierThreshold(),
                results.getGlobalRms(), results.getInliersRms(), results.getNbOutliers(), results.getOutlierRatio(),
                results.getInlierRatio(), results.getNbNonLinearIteration(), results.getNbInliers(),
                results.getEstimationConfig().getOutlierThreshold(), copy.getEstimParams(), textOf(results));
        });
}

TEST(SharedMunkres, IsReadOnAllThreads)
{
    Munkres munkres;
    munkres.init(12, 12);
    fillWeights(munkres);
    munkres.solve();
    const Munkres& shared = munkres;
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const auto row = static_cast<ovUInt32>(thread);
            return outcomeOf(shared.getNbRows(), shared.getNbColumns(), shared.getWeight(row, row),
                             shared.getWeights(row)[11], shared.isSolved(), shared.getAssignments());
        });
}

TEST(SharedBipartitePartialMatch, IsReadOnAllThreads)
{
    BipartitePartialMatch match;
    match.init(12, 9, 4.0);
    fillWeights(match);
    match.solve();
    const BipartitePartialMatch& shared = match;
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const auto row = static_cast<ovUInt32>(thread);
            return outcomeOf(shared.getNbRows(), shared.getNbColumns(), shared.getThreshold(),
                             shared.getWeight(row, row), shared.getWeights(row)[8], shared.isSolved(),
                             shared.getRowAssignments(), shared.getColumnAssignments());
        });
}

TEST(SharedEstimator, OfASurfaceServesAllThreads)
{
    Polynomial2dSurfaceEstimator estimator;
    test::RandomData random(12);
    expectServesAll(estimator, test::forEachThread([&](unsigned int) { return random.dataSet(20, 3, -1.0, 1.0); }));
}

TEST(SharedEstimator, OfAGaussianOfOneDimensionServesAllThreads)
{
    GaussianCurve2dEstimator estimator;
    expectServesAll(estimator, drawGaussians(1));
}

TEST(SharedEstimator, OfAGaussianOfTwoDimensionsServesAllThreads)
{
    GaussianCurve3dEstimator estimator;
    expectServesAll(estimator, drawGaussians(2));
}

TEST(SharedEstimator, OfAGaussianOfAnyDimensionServesAllThreads)
{
    GaussianCurveNdEstimator estimator(4);
    expectServesAll(estimator, drawGaussians(4));
}

TEST(SharedCostFunction, IsEvaluatedOnAllThreads)
{
    const test::DecayCostFunction costFunction(makeVector({0, 1, 2, 3}), makeVector({4, 2, 1, 0.5}));
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const Vector params = makeVector({4.0, 0.1 * static_cast<double>(thread)});
            Vector equations(costFunction.getNbEquations());
            expectSuccess(costFunction.computeEquations(params, equations));
            Matrix jacobian(costFunction.getNbParameters(), costFunction.getNbEquations());
            expectSuccess(costFunction.computeJacobian(params, jacobian));
            return outcomeOf(equations, toStd(jacobian));
        });
}

} // namespace math
} // namespace ovrix
