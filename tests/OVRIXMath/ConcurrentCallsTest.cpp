#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXMath/Clustering/KernelKMeansClustering.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Geometry/2d/Circle2d.h>
#include <OVRIXMath/Geometry/2d/Ellipse2d.h>
#include <OVRIXMath/Geometry/2d/Line2d.h>
#include <OVRIXMath/Geometry/2d/Point2d.h>
#include <OVRIXMath/Geometry/2d/Segment2d.h>
#include <OVRIXMath/Geometry/3d/Angles3d.h>
#include <OVRIXMath/Geometry/3d/Ellipsoid3d.h>
#include <OVRIXMath/Geometry/3d/Plan3d.h>
#include <OVRIXMath/Geometry/3d/Point3d.h>
#include <OVRIXMath/Geometry/3d/Segment3d.h>
#include <OVRIXMath/Geometry/3d/Sphere3d.h>
#include <OVRIXMath/Geometry/3d/Tetrahedron3d.h>
#include <OVRIXMath/Graph/BipartitePartialMatch.h>
#include <OVRIXMath/Graph/Munkres.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraSerializationOperators.h>
#include <OVRIXMath/Statistics/BasicStatistics.h>
#include <OVRIXMath/Statistics/ExtremaUtils.h>
#include <OVRIXMath/Statistics/HistogramUtils.h>
#include <OVRIXMath/Tools/GaussianSmoothing1D.h>
#include <OVRIXMath/Tools/NormalDistribution.h>
#include <OVRIXMath/Tools/Polynomial.h>
#include <OVRIXMath/Tools/Tophat1D.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/DynamicObjectFactory.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <mutex>
#include <random>
#include <string>
#include <support/ArchiveForms.h>
#include <support/AtOnce.h>
#include <support/Builders.h>
#include <support/DataSets.h>
#include <support/ExpectFailure.h>
#include <support/Histograms.h>
#include <support/LineEstimator.h>
#include <support/Matrices.h>
#include <support/RandomData.h>
#include <support/RingsAndMoons.h>
#include <vector>

// Several threads, each with inputs and outputs of its own.

namespace ovrix
{
namespace math
{

namespace
{

using test::expectSameAtOnce;
using test::expectSuccess;
using test::forEachThread;
using test::outcomeOf;
using test::toStd;

/// Coordinates in [-2, 2[ for each thread.
std::vector<std::array<double, 12>> drawCoordinates()
{
    test::RandomData random(17);
    return forEachThread(
        [&](unsigned int)
        {
            std::array<double, 12> coordinates;
            for (double& coordinate : coordinates)
                coordinate = random.real(-2.0, 2.0);
            return coordinates;
        });
}

/// Sequences of 200 elements.
template <class T>
std::vector<std::vector<T>> drawSequences(unsigned int seed)
{
    test::RandomData random(seed);
    return forEachThread(
        [&](unsigned int)
        {
            std::vector<T> sequence(200);
            for (T& element : sequence)
                element = static_cast<T>(random.real(0.0, 100.0));
            return sequence;
        });
}

} // namespace

TEST(ConcurrentClosedForms, GiveTheSameOnAllThreads)
{
    const auto coordinates = drawCoordinates();
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const auto& [a, b, c, d, e, f, x, y, z, p, q, r] = coordinates[thread];
            std::array<double, 3> l2;
            eigenDecomposition(a, b, c, l2[0], l2[1], l2[2]);
            std::array<double, 12> l3;
            eigenDecomposition(a, b, c, d, e, f, l3[0], l3[1], l3[2], l3[3], l3[4], l3[5], l3[6], l3[7], l3[8], l3[9],
                               l3[10], l3[11]);
            std::array<double, 6> angles;
            eigenDecomposition(a, b, c, d, e, f, angles[0], angles[1], angles[2], angles[3], angles[4], angles[5]);
            std::array<double, 2> roots{};
            const ovUInt32 nbRoots = solveQuadratic(x, y, z, roots[0], roots[1]);
            return outcomeOf(l2, l3, angles, nbRoots, roots, normalDistribution(p, 1.5, q),
                             normalDistributionFirstDerivative(p, 1.5, q),
                             normalDistributionSecondDerivative(p, 1.5, q), cumulativeNormalDistribution(p, 1.5, r));
        });
}

TEST(ConcurrentStatistics, GiveTheSameOnAllThreads)
{
    const auto values = drawSequences<double>(1);
    const auto others = drawSequences<double>(2);
    const auto integers = drawSequences<int>(3);
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            return outcomeOf(mean(values[thread]), variance(values[thread]), stdDev(values[thread]),
                             meanAndVariance(integers[thread]), correlation(values[thread], others[thread]));
        });
}

TEST(ConcurrentSequences, AreSearchedAndSmoothedOnAllThreads)
{
    const auto values = drawSequences<float>(4);
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const std::vector<float>& sequence = values[thread];
            std::vector<unsigned int> strict;
            findLocalStrictExtrema(sequence, eEBP_Include, eET_Maxima, strict);
            std::vector<unsigned int> extrema;
            findLocalExtrema(sequence, eEBP_Periodic, eET_Minima, extrema);
            ExtremaRangeColl ranges;
            findLocalDilatedExtrema(sequence, eEBP_Exclude, eET_Maxima, 10.0f, ranges);
            const ExtremumCoords<ExtremaRange, float> getCoords =
                [&sequence](const ExtremaRange& range, ovReal64& coord, float& value)
            { extractBasicExtremaCoords(sequence, range, coord, value); };
            filterExtrema(eET_Maxima, 3.0, 20.0f, getCoords, ranges);
            std::vector<int> peaks;
            tophatThreshold1D(sequence, false, eTHET_Extremum, 3.0f, 1.0f, 40.0f, peaks);
            return outcomeOf(strict, extrema, ranges, peaks, gaussianSmoothing1D(sequence, 2.0f));
        });
}

TEST(ConcurrentHistogramUtils, GiveTheSameOnAllThreads)
{
    expectSameAtOnce(
        [](std::size_t thread)
        {
            const double last = 10.0 + static_cast<double>(thread);
            ovUInt32 lower = 0;
            ovUInt32 upper = 0;
            ovUInt32 offset = 0;
            ovUInt32 nbBins = 0;
            const ovUInt32 nbClasses = computeHistogramNbClasses(true, 0.0, last, 3.0);
            computeHistogramBoundsInfo(nbClasses, test::g_outOfBoundsPolicies[thread], lower, upper, offset, nbBins);
            return outcomeOf(computeHistogramRange(true, 0.0, last), nbClasses,
                             computeHistogramBinWidth(false, 0.0, last, 7), lower, upper, offset, nbBins);
        });
}

TEST(ConcurrentGeometry, OfThePlaneGivesTheSameOnAllThreads)
{
    const auto coordinates = drawCoordinates();
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const auto& [a, b, c, d, e, f, g, h, r1, r2, angle, theta] = coordinates[thread];
            std::array<double, 3> circle{};
            const bool bCircle = circleFromPoints(a, b, c, d, e, f, circle[0], circle[1], circle[2]);
            std::array<double, 2> line{};
            const bool bLine = lineFromPoints(a, b, c, d, line[0], line[1]);
            std::array<double, 6> conic{};
            convertEllipseToQuadratic(a, b, theta, 3.0 + r1, 3.0 + r2, conic[0], conic[1], conic[2], conic[3], conic[4],
                                      conic[5]);
            std::array<double, 5> ellipse{};
            const bool bEllipse =
                convertEllipseFromQuadratic(conic[0], conic[1], conic[2], conic[3], conic[4], conic[5], ellipse[0],
                                            ellipse[1], ellipse[2], ellipse[3], ellipse[4]);
            return outcomeOf(bCircle, circle, bLine, line, conic, bEllipse, ellipse,
                             segmentsDistance(a, b, c, d, e, f, g, h), segmentsIntersects(a, b, c, d, e, f, g, h),
                             pointSegmentDistance(a, b, c, d, e, f), ellipsePerimeterUpperBound(3.0 + r1, 3.0 + r2),
                             ellipseRadius(3.0 + r1, 3.0 + r2, theta, angle));
        });
}

TEST(ConcurrentGeometry, OfSpaceGivesTheSameOnAllThreads)
{
    const auto coordinates = drawCoordinates();
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const auto& [a, b, c, d, e, f, g, h, i, j, k, l] = coordinates[thread];
            std::array<double, 4> sphere{};
            const bool bSphere =
                sphereFromPoints(a, b, c, d, e, f, g, h, i, j, k, l, sphere[0], sphere[1], sphere[2], sphere[3]);
            std::array<double, 3> plane{};
            const bool bPlane = planFromPoints(a, b, c, d, e, f, g, h, i, plane[0], plane[1], plane[2]);
            std::array<double, 4> quaternion{};
            eulerToQuaternion(a, b, c, quaternion[0], quaternion[1], quaternion[2], quaternion[3]);
            std::array<double, 10> quadric{};
            convertEllipsoidToQuadratic(a, b, c, d, e, f, 3.0 + g, 3.0 + h, 3.0 + i, quadric[0], quadric[1], quadric[2],
                                        quadric[3], quadric[4], quadric[5], quadric[6], quadric[7], quadric[8],
                                        quadric[9]);
            std::array<double, 9> ellipsoid{};
            const bool bEllipsoid = convertEllipsoidFromQuadratic(
                quadric[0], quadric[1], quadric[2], quadric[3], quadric[4], quadric[5], quadric[6], quadric[7],
                quadric[8], quadric[9], ellipsoid[0], ellipsoid[1], ellipsoid[2], ellipsoid[3], ellipsoid[4],
                ellipsoid[5], ellipsoid[6], ellipsoid[7], ellipsoid[8]);
            std::array<double, 6> ends{};
            const double distance = segmentsDistance(a, b, c, d, e, f, g, h, i, j, k, l, ends[0], ends[1], ends[2],
                                                     ends[3], ends[4], ends[5]);
            return outcomeOf(bSphere, sphere, bPlane, plane, quaternion, quadric, bEllipsoid, ellipsoid, distance, ends,
                             segmentsIntersects(a, b, c, d, e, f, g, h, i, j, k, l),
                             pointSegmentDistance(a, b, c, d, e, f, g, h, i),
                             tetrahedronArea(a, b, c, d, e, f, g, h, i, j, k, l),
                             tetrahedronVolume(a, b, c, d, e, f, g, h, i, j, k, l),
                             ellipsoidRadius(3.0 + a, 3.0 + b, 3.0 + c, d, e));
        });
}

TEST(ConcurrentAssignment, IsSolvedOnAllThreads)
{
    const auto weights =
        forEachThread([](unsigned int thread) { return test::RandomData(thread).vector(400, 0.0, 10.0); });
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Munkres munkres;
            munkres.init(20, 20);
            BipartitePartialMatch match;
            match.init(20, 20, 3.0);
            for (ovUInt32 row = 0; row < 20; ++row)
            {
                std::copy_n(weights[thread].begin() + 20 * row, 20, munkres.getWeights(row));
                std::copy_n(weights[thread].begin() + 20 * row, 20, match.getWeights(row));
            }
            munkres.solve();
            match.solve();
            return outcomeOf(munkres.getAssignments(), munkres.getTotalWeigth(), match.getRowAssignments());
        },
        100);
}

TEST(ConcurrentCreation, ByNameGivesTheSameOnAllThreads)
{
    const std::array<std::string, test::g_nbThreads> names{
        "ovrix::math::Histogram<true>", "ovrix::math::Histogram<false>", "ovrix::math::EstimationConfig",
        "ovrix::math::EstimationResults"};
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
            const DynamicObjectPtr pObject = factory.createShared(names[thread]);
            return outcomeOf(pObject->getClassName(), factory.isRegistred(names[thread]),
                             factory.isRegistred("no class"), factory.tryCreateShared("no class") == nullptr);
        });
}

template <class Form>
class ConcurrentArchives : public testing::Test
{
};

TYPED_TEST_SUITE(ConcurrentArchives, test::ArchiveForms);

TYPED_TEST(ConcurrentArchives, AreWrittenAndReadOnAllThreads)
{
    std::mt19937 generator(21);
    const auto histograms = forEachThread([&](unsigned int) { return test::randomHistogram<false>(generator); });
    const auto matrices = forEachThread([&](unsigned int) { return test::randomMatrix(7, 5, generator); });
    const auto configs = forEachThread(
        [](unsigned int thread)
        {
            EstimationConfig config;
            config.initRANSAC(1.0 + thread, 0.25);
            return config;
        });
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            const std::string bytes = test::writeArchive<TypeParam>(
                [&](BaseOArchive& archive)
                {
                    const boost::shared_ptr<BaseHistogram> pHistogram =
                        boost::make_shared<Histogram<false>>(histograms[thread]);
                    archive << makeOItem("histogram", pHistogram) << makeOItem("matrix", matrices[thread])
                            << makeOItem("config", configs[thread]);
                });
            boost::shared_ptr<BaseHistogram> pHistogram;
            Matrix matrix;
            EstimationConfig config;
            test::readArchive<TypeParam>(bytes,
                                         [&](BaseIArchive& archive) {
                                             archive >> makeIItem("histogram", pHistogram) >>
                                                 makeIItem("matrix", matrix) >> makeIItem("config", config);
                                         });
            return outcomeOf(bytes, pHistogram->getHistogramPopulation(), pHistogram->getBinWidth(), toStd(matrix),
                             config.getOutlierThreshold());
        });
}

TEST(ConcurrentEstimation, WithoutOutliersNeedsNoLock)
{
    const auto dataSets = forEachThread([](unsigned int thread) { return test::noisyLine(thread); });
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            EstimationConfig config;
            config.initNonRobust();
            EstimationResults results;
            processEstimation(config, boost::make_shared<LineEstimator>(), dataSets[thread], results);
            expectSuccess(results.getEstimationStatus());
            return outcomeOf(results.getEstimParams(), results.getResidualsSet(), results.getGlobalRms());
        });
}

TEST(ConcurrentEstimation, AmongOutliersRepeatsItselfBehindOneMutex)
{
    const auto dataSets = forEachThread([](unsigned int thread) { return test::noisyLine(thread); });
    std::mutex generatorMutex;
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            EstimationConfig config;
            config.initMSAC(0.4, 0.45);
            EstimationResults results;
            {
                const std::lock_guard<std::mutex> lock(generatorMutex);
                RandomUniformGenerator::getGen().seed(static_cast<unsigned int>(thread));
                processEstimation(config, boost::make_shared<LineEstimator>(), dataSets[thread], results);
            }
            expectSuccess(results.getEstimationStatus());
            return outcomeOf(results.getEstimParams(), results.getResidualsSet(), results.getOutlierFlags());
        },
        50);
}

TEST(ConcurrentClustering, RepeatsItselfBehindOneMutex)
{
    const auto samples = forEachThread([](unsigned int thread) { return test::makeRings(40, thread); });
    std::mutex generatorMutex;
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            clustering::KMeansClustering kMeans;
            clustering::KernelKMeansClustering<clustering::RadialBasisKernel> kernelKMeans(
                clustering::RadialBasisKernel(0.8));
            {
                const std::lock_guard<std::mutex> lock(generatorMutex);
                RandomUniformGenerator::getGen().seed(static_cast<unsigned int>(thread));
                EXPECT_TRUE(kMeans.compute(3, samples[thread]));
                EXPECT_TRUE(kernelKMeans.compute(2, samples[thread]));
            }
            return outcomeOf(kMeans.getAssignments(), kMeans.getCompactness(), kernelKMeans.getAssignments(),
                             kernelKMeans.getSeparation());
        },
        30);
}

} // namespace math
} // namespace ovrix
