#include <OVRIXMath/MessageTexts.h>
#include <OVRIXMath/OVRIXMathLogMessages.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eOVRIXMathMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Invalid line direction, should not be null",
            /* 1 */ "Object of type %s has not been initialized, can't use it",
            /* 2 */ "Geometric processing %s doesn't support entity %s",
            /* 3 */ "Number of points passed as argument is out of range (should be between 1 and 400",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eOVRIXMathMessage::domain,
                                  details::MsgMapRegistratorDerived<eOVRIXMathMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eOVRIXMathMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
