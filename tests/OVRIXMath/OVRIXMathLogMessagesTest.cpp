#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/Geometry/2d/Transform/Transform2dLogMessages.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dLogMessages.h>
#include <OVRIXMath/Graph/GraphLogMessages.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/OVRIXMathLog.h>
#include <OVRIXMath/OVRIXMathLogMessages.h>
#include <OVRIXMath/Optimization/OptimizationLogMessages.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>
#include <OVRIXMath/Tools/ToolsLogMessages.h>
#include <OVRIXUtil/LogMessageFormater.h>
#include <OVRIXUtil/LogMessageManager.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <regex>
#include <string>
#include <typeinfo>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

/// All messages of a domain, as programs and their logs know them.
struct Domain
{
    std::string key;
    int nbTexts;
    std::vector<std::string> texts;
};

void PrintTo(const Domain& domain, std::ostream* pStream)
{
    *pStream << domain.key;
}

const std::vector<Domain> g_domains = {
    {"N5ovrix4math18eClusteringMessage6domainE",
     14,
     {
         "Proceed to clustering before use",
         "Invalid accuracy threshold value %f, should be strictly positive",
         "Invalid cluster index {%d} while clustering operation count %d clusters",
         "Invalid maximum dictionary size, should not be null",
         "Invalid minimum change ratio %f, should be in [0, 1[",
         "Number of clusters {%d} should not be greater than number of input data {%d}",
         "Invalid polynomial kernel alpha value %f, should be strictly positive",
         "Invalid polynomial kernel beta value %f, should be positive",
         "Invalid polynomial kernel degree %f, should be strictly positive",
         "Invalid sigma value %f for radial basis function, should be strictly positive",
         "Number of attempts parameter should not be null",
         "Target number of clusters should not be null",
         "Number of iterations parameter should not be null",
         "Clustering validity index %s is not yet supported",
     }},
    {"N5ovrix4math18eEstimationMessage6domainE",
     37,
     {
         "Failed to generate a sub set of data using data partition",
         "Data partition has not been initialized",
         "Data set collection size %d mismatch with outlier flags collection size %d",
         "Estimation configuration has not been initialized",
         "Can't get results from a failed estimation",
         "Estimation results have not been initialized",
         "Estimator has not been initialized",
         "Not enough buckets %d generated to ensure requested sub sets size %d",
         "Invalid data size %d into data set, expecting data with size %d",
         "Invalid expected outlier ratio value %f, should be in [0, %d[",
         "Input gaussian sigma value {%f} should be strictly positive",
         "Invalid number of estimated parameters %d, expecting %d number of estimated parameters",
         "Input outlier range factor value {%f} should be strictly greater than outlier threshold factor {%f}",
         "Input outlier threshold factor value {%f} should be strictly positive",
         "Invalid data sub set size %d, exepection sub set with size %d",
         "Invalid success ratio value %f, should be in ]0, 1[",
         "Non linear estimation pass failed\n%s",
         "Data set with size %d do no contains enough data to ensure processing (needs at least %d data)",
         "Cost function shared pointer should not be null for estimation",
         "Data partition shared pointer should not be null",
         "Data size should not be null",
         "Estimator shared pointer should not be null for robust estimator initialization",
         "Number of buckets by axis should not be null",
         "Number of estimated parameters should not be null",
         "Minimun number of requested data should not be null",
         "Sub set requested size should not be null",
         "Data range [%f, %f] is not sufficient to ensure regular grid bucket partitioning",
         "Residuals computation failed while estimation was successful\n%s",
         "Residuals set collection size %d mismatch with outlier flags collection size %d",
         "Residuals collection size %d mismatch with data set size %d",
         "Robust estimation final estimation failed\n%s",
         "Robust estimation failed, no valid estimation score computed, outlier threshold may be to high",
         "Robust estimation has not been proceeded, can't retrieve results",
         "Not enough data %d to ensure robust estimation (need at least %d data)",
         "Robust estimation failed after %d runs (with %d successful runs), while expecting %d successful runs",
         "Robust estimator has not been initialized",
         "Robust estimator %s is not yet supported",
     }},
    {"N5ovrix4math19eTransform2dMessage6domainE",
     4,
     {
         "Number of parameters %d is not valid for transformation type %s, expecting %d parameters",
         "Geometric transformation %s has already been registred",
         "Geometric transformation %s has not been registred",
         "Transformation cannot be inverted",
     }},
    {"N5ovrix4math19eTransform3dMessage6domainE",
     4,
     {
         "Number of parameters %d is not valid for transformation type %s, expecting %d parameters",
         "Geometric transformation %s has already been registred",
         "Geometric transformation %s has not been registred",
         "Transformation cannot be inverted",
     }},
    {"N5ovrix4math13eGraphMessage6domainE",
     6,
     {
         "Algorithm has not been initialized",
         "Algorithm has not been resolved, can't access associated results",
         "Column index %d is not valid given total number of matrix columns %d",
         "Row index %d is not valid given total number of matrix rows %d",
         "Matrix should be column major for munkres processing while input number of rows is %d and number of columns "
         "is %d",
         "Matrix size should not be null for munkres algorithm",
     }},
    {"N5ovrix4math21eLinearAlgebraMessage6domainE",
     13,
     {
         "Matrix col size %d mismatch with matrix col size %d",
         "Matrix col size %d mismatch with matrix row size %d",
         "Matrix col size %d mismatch with vector size %d",
         "Algorithm expects a square matrix while matrix size is {%d, %d}",
         "Number of searched eigen values {%d} can't be greater than input matrix size {%d}",
         "Matrix size {%d, %d} mismatch with matrix size {%d, %d}",
         "Expecting at least a one rank deficient linear system while %d equations for %d variables on input",
         "Invalid input matrix size {%d, %d}, expecting over constrained system",
         "Matrix row size %d mismatch with matrix col size %d",
         "Matrix row size %d mismatch with matrix row size %d",
         "Matrix row size %d mismatch with vector size %d",
         "LaPack repport an error during execution",
         "Input vector size %d mismatch with output matrix global size %d (sx=%d, sy=%d)",
     }},
    {"N5ovrix4math17eOVRIXMathMessage6domainE",
     4,
     {
         "Invalid line direction, should not be null",
         "Object of type %s has not been initialized, can't use it",
         "Geometric processing %s doesn't support entity %s",
         "Number of points passed as argument is out of range (should be between 1 and 400",
     }},
    {"N5ovrix4math20eOptimizationMessage6domainE",
     21,
     {
         "Cost function has not been initialized",
         "Invalid input jacobian matrix size {%d, %d}, while expecting %d parameters and %d equations",
         "Input equations vector with size %d is invalid regards to expected number of equations %s",
         "Input parameter vector with size %d is invalid regards to expected number of parameters %s",
         "Non linear solver has not been successfully executed",
         "Input cost function shared pointer should not be null",
         "Number of equations should not be null",
         "Number of parameters should not be null",
         "Improper input parameters",
         "Algorithm estimates that the relative error in the sum of squares is at most tol",
         "Algorithm estimates that the relative error between x and the solution is at most tol",
         "Algorithm estimates that the relative error in the sum of squares and between x and the solution is at most "
         "tol",
         "Null residuals on last iteration",
         "Fvec is orthogonal to the columns of the jacobian to machine precision",
         "Number of calls to fcn has reached or exceeded max number of iterations",
         "Tol is too small. no further reduction in the sum of squares is possible",
         "Tol is too small. no further improvement in the approximate solution x is possible",
         "Function evaluation failed with following reason\n%s",
         "Jacobian evaluation failed with following reason\n%s",
         "Unexpected input parameters for minpack function wrapper",
         "Algorithm ended for an unknown reason",
     }},
    {"N5ovrix4math18eStatisticsMessage6domainE",
     15,
     {
         "Input collections size should be the same (first collection size is %d while second collection size is %d)",
         "Failed to export histogram to file %s",
         "Gaussian curve estimation leads to an invalid solution for estimated parameters",
         "Invalid matrix rank %d for gaussian curve estimation, expecting a full matrix rank [%d]",
         "Histogram global bounds policy %s is not yet supported",
         "Histogram bin index %d is not valid for histogram with %d bins",
         "Histogram class index %d is not valid for histogram with %d classes",
         "Invalid quantile value %f, should be in [0, 1]",
         "Histogram class has not been initialized",
         "Histogram population with expected size %d mismatch from provided collection size %d",
         "Dilate factor should be positive",
         "Histogram bin width %f should be greater than zero",
         "First histogram value %f should be greater than last one %f",
         "Histogram number of classes should not be null",
         "Number of clusters {%d} should not be greater than number of used histogram bins {%d}",
     }},
    {"N5ovrix4math13eToolsMessage6domainE",
     1,
     {
         "Polynomial 2d surface is not well defined by input data, can't estimate it",
     }},
};

/// What remains of a text whose placeholders are unfed.
std::string withoutPlaceholders(const std::string& text)
{
    return std::regex_replace(text, std::regex("%[dfs]"), "");
}

} // namespace

/// The texts and their numbers are stable: programs and people look for them in logs.
class MessageDomain : public testing::TestWithParam<Domain>
{
};

INSTANTIATE_TEST_SUITE_P(, MessageDomain, testing::ValuesIn(g_domains),
                         [](const auto& domain)
                         { return std::regex_replace(domain.param.key, std::regex("N5ovrix4math..|6domainE"), ""); });

TEST_P(MessageDomain, HasAllItsTexts)
{
    const LogMessageManager& manager = getOVRIXMathLogMessageManager();
    ASSERT_EQ(static_cast<int>(GetParam().texts.size()), GetParam().nbTexts);
    for (int id = 0; id < GetParam().nbTexts; ++id)
    {
        const std::string* const pText = manager.findMessage(GetParam().key, id);
        ASSERT_NE(pText, nullptr) << id;
        EXPECT_EQ(*pText, GetParam().texts[static_cast<std::size_t>(id)]) << id;
    }
}

TEST_P(MessageDomain, HasNoOtherTexts)
{
    const LogMessageManager& manager = getOVRIXMathLogMessageManager();
    EXPECT_EQ(manager.findMessage(GetParam().key, GetParam().nbTexts), nullptr);
    EXPECT_EQ(manager.findMessage(GetParam().key, -1), nullptr);
}

TEST_P(MessageDomain, IsSelectedByTheFormatterWithEachId)
{
    for (int id = 0; id < GetParam().nbTexts; ++id)
    {
        LogMessageFormater formater(getOVRIXMathLogMessageManager());
        EXPECT_EQ(formater.setMsgId(GetParam().key, id).string(),
                  withoutPlaceholders(GetParam().texts[static_cast<std::size_t>(id)]));
    }
}

/// The ten enumerations.
template <class Messages>
class MessageEnumeration : public testing::Test
{
protected:
    using Enumeration = typename Messages::domain;
    using Registrator = MsgMapRegistrator<Enumeration, details::MsgMapRegistratorDerived<Enumeration, void>>;

    static const std::string& getFirstText()
    {
        return *getOVRIXMathLogMessageManager().findMessage(typeid(Enumeration).name(), 0);
    }

    static void setFirstText(const std::string& text)
    {
        LogMessageManager::getInstance("OVRIXMath").addMessage(Enumeration(0), text);
    }
};

using MessageEnumerations =
    testing::Types<eClusteringMessage, eEstimationMessage, eTransform2dMessage, eTransform3dMessage, eGraphMessage,
                   eLinearAlgebraMessage, eOVRIXMathMessage, eOptimizationMessage, eStatisticsMessage, eToolsMessage>;
TYPED_TEST_SUITE(MessageEnumeration, MessageEnumerations);

TYPED_TEST(MessageEnumeration, NamesADomain)
{
    const std::string key = typeid(typename TypeParam::domain).name();
    EXPECT_EQ(
        std::count_if(g_domains.begin(), g_domains.end(), [&](const Domain& domain) { return domain.key == key; }), 1);
}

TYPED_TEST(MessageEnumeration, SelectsATextOfTheFormatter)
{
    LogMessageFormater formater(getOVRIXMathLogMessageManager());
    EXPECT_EQ(formater[typename TypeParam::domain(0)].string(), withoutPlaceholders(this->getFirstText()));
}

TYPED_TEST(MessageEnumeration, AddsNothingWhenItIsRegisteredAgain)
{
    const std::string text = this->getFirstText();
    this->setFirstText("Set after the registration");
    EXPECT_TRUE(TestFixture::Registrator::registerMessageMap());
    EXPECT_EQ(this->getFirstText(), "Set after the registration");
    this->setFirstText(text);
}

TYPED_TEST(MessageEnumeration, AddsNothingWhenItIsRegisteredAgainOnDemand)
{
    const std::string text = this->getFirstText();
    this->setFirstText("Set after the registration");
    EXPECT_TRUE((MessageMapRegistrator<typename TypeParam::domain, void>::process()));
    EXPECT_EQ(this->getFirstText(), "Set after the registration");
    this->setFirstText(text);
}

} // namespace math
} // namespace ovrix
