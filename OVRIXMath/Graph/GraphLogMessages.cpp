#include <OVRIXMath/Graph/GraphLogMessages.h>
#include <OVRIXMath/MessageTexts.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eGraphMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Algorithm has not been initialized",
            /* 1 */ "Algorithm has not been resolved, can't access associated results",
            /* 2 */ "Column index %d is not valid given total number of matrix columns %d",
            /* 3 */ "Row index %d is not valid given total number of matrix rows %d",
            /* 4 */
            "Matrix should be column major for munkres processing while input number of rows is %d and number of "
            "columns is %d",
            /* 5 */ "Matrix size should not be null for munkres algorithm",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eGraphMessage::domain,
                                  details::MsgMapRegistratorDerived<eGraphMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eGraphMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
