#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/MessageTexts.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eClusteringMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Proceed to clustering before use",
            /* 1 */ "Invalid accuracy threshold value %f, should be strictly positive",
            /* 2 */ "Invalid cluster index {%d} while clustering operation count %d clusters",
            /* 3 */ "Invalid maximum dictionary size, should not be null",
            /* 4 */ "Invalid minimum change ratio %f, should be in [0, 1[",
            /* 5 */ "Number of clusters {%d} should not be greater than number of input data {%d}",
            /* 6 */ "Invalid polynomial kernel alpha value %f, should be strictly positive",
            /* 7 */ "Invalid polynomial kernel beta value %f, should be positive",
            /* 8 */ "Invalid polynomial kernel degree %f, should be strictly positive",
            /* 9 */ "Invalid sigma value %f for radial basis function, should be strictly positive",
            /* 10 */ "Number of attempts parameter should not be null",
            /* 11 */ "Target number of clusters should not be null",
            /* 12 */ "Number of iterations parameter should not be null",
            /* 13 */ "Clustering validity index %s is not yet supported",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eClusteringMessage::domain,
                                  details::MsgMapRegistratorDerived<eClusteringMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eClusteringMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
