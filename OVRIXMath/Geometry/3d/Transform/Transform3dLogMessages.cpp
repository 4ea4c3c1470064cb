#include <OVRIXMath/Geometry/3d/Transform/Transform3dLogMessages.h>
#include <OVRIXMath/MessageTexts.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eTransform3dMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Number of parameters %d is not valid for transformation type %s, expecting %d parameters",
            /* 1 */ "Geometric transformation %s has already been registred",
            /* 2 */ "Geometric transformation %s has not been registred",
            /* 3 */ "Transformation cannot be inverted",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eTransform3dMessage::domain,
                                  details::MsgMapRegistratorDerived<eTransform3dMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eTransform3dMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
