// Memory that runs out at every allocation in turn: std::bad_alloc comes out, and what was under way can be done again
// with the same objects.

#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraSerializationOperators.h>
#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXMath/OVRIXMathLog.h>
#include <OVRIXMath/Optimization/NonLinearSolver.h>
#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/LogMessageFormater.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <map>
#include <memory>
#include <numeric>
#include <sstream>
#include <string>
#include <support/AllocationCount.h>
#include <support/ArchiveForms.h>
#include <support/Builders.h>
#include <support/CostFunctions.h>
#include <support/GreyHistogram.h>
#include <support/LineEstimator.h>
#include <support/RandomData.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::failEachAllocation;
using test::toStd;

/// 15 points about the line y = 2 x + 1, and 5 far from it.
DataSet makeLineWithOutliers()
{
    test::RandomData random(1);
    DataSet data;
    for (unsigned int i = 0; i < 20; ++i)
    {
        const double error = i % 4 == 0 ? random.real(20.0, 50.0) : random.real(-0.1, 0.1);
        data.push_back(test::makeVector({double(i), 2.0 * i + 1.0 + error}));
    }
    return data;
}

/// A robust fit, and what it needs.
struct Fit
{
    explicit Fit(eRobustEstimationType type)
    {
        if (type == eRET_LMS)
            config.initLMS(0.3);
        else if (type == eRET_MLESAC)
            config.initMLESAC(0.1, 5.0, 500.0, 0.3);
        else if (type == eRET_MSAC)
            config.initMSAC(1.0, 0.3);
        else
            config.initRANSAC(1.0, 0.3);
    }

    void run()
    {
        RandomUniformGenerator::getGen().seed(1);
        processEstimation(config, pEstimator, data, results);
    }

    EstimationConfig config;
    EstimationResults results;
    DataSet data = makeLineWithOutliers();
    EstimatorPtr pEstimator = boost::make_shared<LineEstimator>();
};

/// What analyses of the histogram of a photograph tell.
struct Analysis
{
    Analysis()
    {
        const test::GreyHistogram grey = test::readGreyHistogram("coins.pgm");
        UInt64Vector population(64);
        for (std::size_t i = 0; i < grey.size(); ++i)
            population[i / 4] += grey[i];
        histogram.initFromExisting(0.0, 64.0, 1.0, population, eHOOBP_Ignored);
    }

    void run()
    {
        RandomUniformGenerator::getGen().seed(1);
        histogram.updateCumulated();
        maxima = histogram.findLocalMaxima(true, eEBP_Exclude, 3.0, 100);
        dilatedMaxima = histogram.findLocalDilatedMaxima(50, eEBP_Exclude, 3.0, 100);
        histogram.getFrequencies(frequencies);
        EstimationConfig config;
        config.initRANSAC(300.0, 0.3);
        const HistogramGaussianCurveFit curve = histogram.fitGaussianCurve(config, false);
        fit = {curve._csteA, curve._csteMu, curve._csteSigma};
    }

    Histogram<false> histogram;
    clustering::UInt32Vector maxima;
    std::vector<HistogramExtrema> dilatedMaxima;
    std::vector<double> frequencies;
    std::vector<double> fit;
};

EstimationConfig makeConfig()
{
    EstimationConfig config;
    config.initRANSAC(2.0, 0.3);
    return config;
}

Matrix makeTable()
{
    Matrix table(100, 70);
    std::iota(table.data().begin(), table.data().end(), 0.5);
    return table;
}

using NamedNumbers = std::map<std::string, std::vector<double>>;

NamedNumbers makeNamedNumbers()
{
    return {{"the name of a few numbers", {1.0, 2.5}},
            {"the name of no numbers at all", {}},
            {"the name of one more number", {-3.0}}};
}

} // namespace

/// Robust fits of all methods.
class AllocationFailureOfFits : public testing::TestWithParam<eRobustEstimationType>
{
};

TEST_P(AllocationFailureOfFits, LeavesObjectsThatFitAgain)
{
    Fit wanted(GetParam());
    wanted.run();
    ASSERT_TRUE(wanted.results.getEstimationStatus()) << wanted.results.getEstimationStatus().getMessage();

    const std::size_t nbFailures = failEachAllocation(
        [] { return std::make_unique<Fit>(GetParam()); }, [](const std::unique_ptr<Fit>& pFit) { pFit->run(); },
        [&](const std::unique_ptr<Fit>& pFit)
        {
            pFit->run();
            EXPECT_EQ(toStd(pFit->results.getEstimParams()), toStd(wanted.results.getEstimParams()));
            EXPECT_EQ(pFit->results.getOutlierFlags(), wanted.results.getOutlierFlags());
        });
    EXPECT_GT(nbFailures, 20u);
}

INSTANTIATE_TEST_SUITE_P(Methods, AllocationFailureOfFits,
                         testing::Values(eRET_LMS, eRET_RANSAC, eRET_MSAC, eRET_MLESAC));

TEST(AllocationFailure, LeavesAHistogramThatIsAnalysedAgain)
{
    Analysis wanted;
    wanted.run();
    ASSERT_FALSE(wanted.maxima.empty());
    ASSERT_FALSE(wanted.dilatedMaxima.empty());

    const std::size_t nbFailures =
        failEachAllocation([] { return std::make_unique<Analysis>(); },
                           [](const std::unique_ptr<Analysis>& pAnalysis) { pAnalysis->run(); },
                           [&](const std::unique_ptr<Analysis>& pAnalysis)
                           {
                               pAnalysis->run();
                               EXPECT_EQ(pAnalysis->maxima, wanted.maxima);
                               EXPECT_EQ(pAnalysis->dilatedMaxima, wanted.dilatedMaxima);
                               EXPECT_EQ(pAnalysis->frequencies, wanted.frequencies);
                               EXPECT_EQ(pAnalysis->fit, wanted.fit);
                           });
    EXPECT_GT(nbFailures, 20u);
}

TEST(AllocationFailure, LeavesAHistogramThatIsClusteredAgain)
{
    Histogram<true> histogram;
    histogram.initFromExisting(0.0, 7.0, 1.0, {2, 3, 1, 0, 0, 1, 2, 3}, eHOOBP_Ignored);
    clustering::KMeansClusteringPtr pClustering;
    const auto run = [&](const Histogram<true>& target)
    {
        RandomUniformGenerator::getGen().seed(1);
        pClustering = target.applyKMeansClustering(2, false, clustering::KMeansClusteringConfig());
    };
    run(histogram);
    const clustering::UInt32Vector wanted = pClustering->getAssignments();

    const std::size_t nbFailures = failEachAllocation([&] { return histogram; }, run,
                                                      [&](const Histogram<true>& target)
                                                      {
                                                          run(target);
                                                          EXPECT_EQ(pClustering->getAssignments(), wanted);
                                                      });
    EXPECT_GT(nbFailures, 20u);
}

TEST(AllocationFailure, LeavesASolverWithoutAResultThatSolvesAgain)
{
    // Without derivatives of its own, so that the solver's callbacks take memory as well.
    const auto makeProblem = []
    {
        return boost::make_shared<test::FreeCostFunction>(2u, 4u,
                                                          [](const Vector& params, Vector& equations)
                                                          {
                                                              for (std::size_t i = 0; i < 4; ++i)
                                                                  equations[i] = params[0] * std::exp(-params[1] * i) -
                                                                                 std::exp2(-double(i)) - 0.01 * (i % 2);
                                                              return BoolResult(true);
                                                          });
    };
    const Vector start = test::makeVector({2.0, 0.1});
    NonLinearSolver wanted;
    const OptResult wantedResult = wanted.solve(makeProblem(), start);
    ASSERT_EQ(wantedResult.status, eOS_Converged);

    CostFunctionConstPtr pProblem;
    const std::size_t nbFailures = failEachAllocation(
        [&]
        {
            pProblem = makeProblem();
            return wanted;
        },
        [&](NonLinearSolver& solver) { solver.solve(pProblem, start); },
        [&](NonLinearSolver& solver)
        {
            EXPECT_THROW(solver.getEstimParams(), OVRIXMathException);
            const OptResult result = solver.solve(pProblem, start);
            EXPECT_EQ(result.msg, wantedResult.msg);
            EXPECT_EQ(toStd(solver.getEstimParams()), toStd(wanted.getEstimParams()));
            EXPECT_EQ(solver.getNbIteration(), wanted.getNbIteration());
        });
    EXPECT_GT(nbFailures, 20u);
}

TEST(AllocationFailure, GivesNoMessageWithoutItsArguments)
{
    const auto format = []
    {
        return (LogMessageFormater(getOVRIXMathLogMessageManager())[eEstimationMessage::domain(17)] % 20ul % 30ul)
            .string();
    };
    ASSERT_THAT(format(), testing::HasSubstr("30"));
    const std::size_t nbFailures =
        failEachAllocation([] { return std::string(); }, [&](std::string& text) { text = format(); },
                           [](const std::string& text) { EXPECT_EQ(text, ""); });
    EXPECT_GT(nbFailures, 5u);
}

/// Archives of both forms.
template <class Form>
class AllocationFailureOfArchives : public testing::Test
{
protected:
    /// What an archive is opened on, and what is read from it.
    template <class T>
    struct Reading
    {
        Reading(const std::string& bytes, const T& before) : stream(bytes), restored(before) {}

        std::istringstream stream;
        T restored;
        bool bOpened = false;
    };

    /// Reads a value with each allocation failing in turn, then once more.
    ///
    /// @param before what the value is read into
    /// @param checkFailed is called with that after each failure
    template <class T, class CheckFailed>
    static void expectReadAgain(const T& value, const T& before, const CheckFailed& checkFailed)
    {
        const std::string bytes = test::save<Form>(value);
        const auto read = [](const std::unique_ptr<Reading<T>>& pReading)
        {
            typename Form::IArchive archive(pReading->stream);
            pReading->bOpened = true;
            archive >> makeIItem("value", pReading->restored);
        };
        const auto readAgain = [&](const std::unique_ptr<Reading<T>>& pReading)
        {
            // Nobody has begun to read the value while the archive is being opened.
            if (pReading->bOpened)
                checkFailed(pReading->restored);
            test::load<Form>(bytes, pReading->restored);
            EXPECT_EQ(test::save<Form>(pReading->restored), bytes);
        };
        const std::size_t nbFailures =
            failEachAllocation([&] { return std::make_unique<Reading<T>>(bytes, before); }, read, readAgain);
        EXPECT_GT(nbFailures, 3u);
    }

    /// Writes a value with each allocation failing in turn, then once more.
    template <class T>
    static void expectWrittenAgain(const T& value)
    {
        const std::string bytes = test::save<Form>(value);
        const std::size_t nbFailures = failEachAllocation(
            [&]
            {
                // Room enough: a stream that finds no memory does not raise, but fails.
                return std::make_unique<std::ostringstream>(std::string(2 * bytes.size(), ' '));
            },
            [&](const std::unique_ptr<std::ostringstream>& pStream)
            {
                typename Form::OArchive archive(*pStream);
                archive << makeOItem("value", value);
                archive.close();
            },
            [&](const std::unique_ptr<std::ostringstream>&) { EXPECT_EQ(test::save<Form>(value), bytes); });
        EXPECT_GT(nbFailures, 3u);
    }
};

TYPED_TEST_SUITE(AllocationFailureOfArchives, test::ArchiveForms, );

TYPED_TEST(AllocationFailureOfArchives, LeavesAConfigurationNotInitialisedThatIsReadAgain)
{
    EstimationConfig before;
    before.initRANSAC(3.0, 0.4);
    this->expectReadAgain(makeConfig(), before,
                          [](const EstimationConfig& config)
                          { EXPECT_THROW(config.getOutlierThreshold(), OVRIXMathException); });
}

TYPED_TEST(AllocationFailureOfArchives, LeavesAConfigurationThatIsWrittenAgain)
{
    this->expectWrittenAgain(makeConfig());
}

TYPED_TEST(AllocationFailureOfArchives, LeavesAHistogramNotInitialisedThatIsReadAgain)
{
    const Analysis analysis;
    Histogram<false> before;
    before.updateHistogramParams(0.0, 1.0, 2u, eHOOBP_Ignored);
    this->expectReadAgain(analysis.histogram, before,
                          [](const Histogram<false>& histogram)
                          { EXPECT_THROW(histogram.checkInit(), OVRIXMathException); });
}

TYPED_TEST(AllocationFailureOfArchives, LeavesAHistogramThatIsWrittenAgain)
{
    this->expectWrittenAgain(Analysis().histogram);
}

TYPED_TEST(AllocationFailureOfArchives, LeavesAMatrixAsItWasThatIsReadAgain)
{
    const Matrix before = test::makeMatrix({{7.0, 8.0, 9.0}});
    this->expectReadAgain(makeTable(), before, [&](const Matrix& matrix) { EXPECT_EQ(toStd(matrix), toStd(before)); });
}

TYPED_TEST(AllocationFailureOfArchives, LeavesAMatrixThatIsWrittenAgain)
{
    this->expectWrittenAgain(makeTable());
}

TYPED_TEST(AllocationFailureOfArchives, LeavesAMapAsItWasThatIsReadAgain)
{
    const NamedNumbers before = {{"a name from before that takes memory", {1.0}}};
    this->expectReadAgain(makeNamedNumbers(), before, [&](const NamedNumbers& map) { EXPECT_EQ(map, before); });
}

TYPED_TEST(AllocationFailureOfArchives, LeavesAMapThatIsWrittenAgain)
{
    this->expectWrittenAgain(makeNamedNumbers());
}

} // namespace math
} // namespace ovrix
