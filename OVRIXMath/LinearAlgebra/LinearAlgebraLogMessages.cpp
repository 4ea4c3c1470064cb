#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/MessageTexts.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eLinearAlgebraMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Matrix col size %d mismatch with matrix col size %d",
            /* 1 */ "Matrix col size %d mismatch with matrix row size %d",
            /* 2 */ "Matrix col size %d mismatch with vector size %d",
            /* 3 */ "Algorithm expects a square matrix while matrix size is {%d, %d}",
            /* 4 */ "Number of searched eigen values {%d} can't be greater than input matrix size {%d}",
            /* 5 */ "Matrix size {%d, %d} mismatch with matrix size {%d, %d}",
            /* 6 */
            "Expecting at least a one rank deficient linear system while %d equations for %d variables on input",
            /* 7 */ "Invalid input matrix size {%d, %d}, expecting over constrained system",
            /* 8 */ "Matrix row size %d mismatch with matrix col size %d",
            /* 9 */ "Matrix row size %d mismatch with matrix row size %d",
            /* 10 */ "Matrix row size %d mismatch with vector size %d",
            /* 11 */ "LaPack repport an error during execution",
            /* 12 */ "Input vector size %d mismatch with output matrix global size %d (sx=%d, sy=%d)",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eLinearAlgebraMessage::domain,
                                  details::MsgMapRegistratorDerived<eLinearAlgebraMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eLinearAlgebraMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
