#include <OVRIXMath/MessageTexts.h>
#include <OVRIXMath/Tools/ToolsLogMessages.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eToolsMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Polynomial 2d surface is not well defined by input data, can't estimate it",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eToolsMessage::domain,
                                  details::MsgMapRegistratorDerived<eToolsMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eToolsMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
