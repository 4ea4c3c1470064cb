#include <OVRIXMath/MessageTexts.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eStatisticsMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Input collections size should be the same (first collection size is %d while second collection "
                    "size is %d)",
            /* 1 */ "Failed to export histogram to file %s",
            /* 2 */ "Gaussian curve estimation leads to an invalid solution for estimated parameters",
            /* 3 */ "Invalid matrix rank %d for gaussian curve estimation, expecting a full matrix rank [%d]",
            /* 4 */ "Histogram global bounds policy %s is not yet supported",
            /* 5 */ "Histogram bin index %d is not valid for histogram with %d bins",
            /* 6 */ "Histogram class index %d is not valid for histogram with %d classes",
            /* 7 */ "Invalid quantile value %f, should be in [0, 1]",
            /* 8 */ "Histogram class has not been initialized",
            /* 9 */ "Histogram population with expected size %d mismatch from provided collection size %d",
            /* 10 */ "Dilate factor should be positive",
            /* 11 */ "Histogram bin width %f should be greater than zero",
            /* 12 */ "First histogram value %f should be greater than last one %f",
            /* 13 */ "Histogram number of classes should not be null",
            /* 14 */ "Number of clusters {%d} should not be greater than number of used histogram bins {%d}",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eStatisticsMessage::domain,
                                  details::MsgMapRegistratorDerived<eStatisticsMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eStatisticsMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
