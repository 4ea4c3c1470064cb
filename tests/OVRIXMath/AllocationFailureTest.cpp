// Memory that runs out at every allocation in turn: std::bad_alloc comes out, and what was under way can be done again
// with the same objects.

#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <support/AllocationCount.h>
#include <support/ArchiveForms.h>
#include <support/Builders.h>
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
        histogram.getFrequencies(frequencies);
        EstimationConfig config;
        config.initRANSAC(300.0, 0.3);
        const HistogramGaussianCurveFit curve = histogram.fitGaussianCurve(config, false);
        fit = {curve._csteA, curve._csteMu, curve._csteSigma};
    }

    Histogram<false> histogram;
    clustering::UInt32Vector maxima;
    std::vector<double> frequencies;
    std::vector<double> fit;
};

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

    const std::size_t nbFailures =
        failEachAllocation([] { return std::make_unique<Analysis>(); },
                           [](const std::unique_ptr<Analysis>& pAnalysis) { pAnalysis->run(); },
                           [&](const std::unique_ptr<Analysis>& pAnalysis)
                           {
                               pAnalysis->run();
                               EXPECT_EQ(pAnalysis->maxima, wanted.maxima);
                               EXPECT_EQ(pAnalysis->frequencies, wanted.frequencies);
                               EXPECT_EQ(pAnalysis->fit, wanted.fit);
                           });
    EXPECT_GT(nbFailures, 20u);
}

/// Archives of both forms.
template <class Form>
class AllocationFailureOfArchives : public testing::Test
{
protected:
    static void write(std::ostream& stream, const EstimationConfig& config)
    {
        typename Form::OArchive archive(stream);
        archive << makeOItem("config", config);
        archive.close();
    }

    static void read(std::istream& stream, EstimationConfig& config)
    {
        typename Form::IArchive archive(stream);
        archive >> makeIItem("config", config);
    }
};

TYPED_TEST_SUITE(AllocationFailureOfArchives, test::ArchiveForms, );

TYPED_TEST(AllocationFailureOfArchives, LeavesAConfigurationNotInitialisedThatIsReadAgain)
{
    EstimationConfig config;
    config.initRANSAC(2.0, 0.3);
    std::stringstream stream;
    this->write(stream, config);

    const std::size_t nbFailures = failEachAllocation(
        [&]
        {
            stream.clear();
            stream.seekg(0);
            return EstimationConfig();
        },
        [&](EstimationConfig& restored) { this->read(stream, restored); },
        [&](EstimationConfig& restored)
        {
            EXPECT_THROW(restored.getOutlierThreshold(), OVRIXMathException);
            stream.clear();
            stream.seekg(0);
            this->read(stream, restored);
            EXPECT_EQ(restored.getOutlierThreshold(), 2.0);
        });
    EXPECT_GT(nbFailures, 5u);
}

TYPED_TEST(AllocationFailureOfArchives, LeavesAConfigurationThatIsWrittenAgain)
{
    EstimationConfig config;
    config.initRANSAC(2.0, 0.3);
    std::ostringstream wanted;
    this->write(wanted, config);

    const std::size_t nbFailures = failEachAllocation(
        [&]
        {
            // Room enough: a stream that finds no memory does not raise, but fails.
            return std::make_unique<std::ostringstream>(std::string(2 * wanted.str().size(), ' '));
        },
        [&](const std::unique_ptr<std::ostringstream>& pStream) { this->write(*pStream, config); },
        [&](const std::unique_ptr<std::ostringstream>&)
        {
            std::ostringstream again;
            this->write(again, config);
            EXPECT_EQ(again.str(), wanted.str());
        });
    EXPECT_GT(nbFailures, 5u);
}

} // namespace math
} // namespace ovrix
