#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/MessageTexts.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eEstimationMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Failed to generate a sub set of data using data partition",
            /* 1 */ "Data partition has not been initialized",
            /* 2 */ "Data set collection size %d mismatch with outlier flags collection size %d",
            /* 3 */ "Estimation configuration has not been initialized",
            /* 4 */ "Can't get results from a failed estimation",
            /* 5 */ "Estimation results have not been initialized",
            /* 6 */ "Estimator has not been initialized",
            /* 7 */ "Not enough buckets %d generated to ensure requested sub sets size %d",
            /* 8 */ "Invalid data size %d into data set, expecting data with size %d",
            /* 9 */ "Invalid expected outlier ratio value %f, should be in [0, %d[",
            /* 10 */ "Input gaussian sigma value {%f} should be strictly positive",
            /* 11 */ "Invalid number of estimated parameters %d, expecting %d number of estimated parameters",
            /* 12 */
            "Input outlier range factor value {%f} should be strictly greater than outlier threshold factor {%f}",
            /* 13 */ "Input outlier threshold factor value {%f} should be strictly positive",
            /* 14 */ "Invalid data sub set size %d, exepection sub set with size %d",
            /* 15 */ "Invalid success ratio value %f, should be in ]0, 1[",
            /* 16 */ "Non linear estimation pass failed\n%s",
            /* 17 */ "Data set with size %d do no contains enough data to ensure processing (needs at least %d data)",
            /* 18 */ "Cost function shared pointer should not be null for estimation",
            /* 19 */ "Data partition shared pointer should not be null",
            /* 20 */ "Data size should not be null",
            /* 21 */ "Estimator shared pointer should not be null for robust estimator initialization",
            /* 22 */ "Number of buckets by axis should not be null",
            /* 23 */ "Number of estimated parameters should not be null",
            /* 24 */ "Minimun number of requested data should not be null",
            /* 25 */ "Sub set requested size should not be null",
            /* 26 */ "Data range [%f, %f] is not sufficient to ensure regular grid bucket partitioning",
            /* 27 */ "Residuals computation failed while estimation was successful\n%s",
            /* 28 */ "Residuals set collection size %d mismatch with outlier flags collection size %d",
            /* 29 */ "Residuals collection size %d mismatch with data set size %d",
            /* 30 */ "Robust estimation final estimation failed\n%s",
            /* 31 */ "Robust estimation failed, no valid estimation score computed, outlier threshold may be to high",
            /* 32 */ "Robust estimation has not been proceeded, can't retrieve results",
            /* 33 */ "Not enough data %d to ensure robust estimation (need at least %d data)",
            /* 34 */
            "Robust estimation failed after %d runs (with %d successful runs), while expecting %d successful runs",
            /* 35 */ "Robust estimator has not been initialized",
            /* 36 */ "Robust estimator %s is not yet supported",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eEstimationMessage::domain,
                                  details::MsgMapRegistratorDerived<eEstimationMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eEstimationMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
