#include <OVRIXMath/MessageTexts.h>
#include <OVRIXMath/Optimization/OptimizationLogMessages.h>

namespace ovrix
{
namespace math
{

template <>
struct details::MsgMapRegistratorDerived<eOptimizationMessage::domain, void>
{
    static std::initializer_list<const char*> texts()
    {
        static const std::initializer_list<const char*> g_texts = {
            /* 0 */ "Cost function has not been initialized",
            /* 1 */ "Invalid input jacobian matrix size {%d, %d}, while expecting %d parameters and %d equations",
            /* 2 */ "Input equations vector with size %d is invalid regards to expected number of equations %s",
            /* 3 */ "Input parameter vector with size %d is invalid regards to expected number of parameters %s",
            /* 4 */ "Non linear solver has not been successfully executed",
            /* 5 */ "Input cost function shared pointer should not be null",
            /* 6 */ "Number of equations should not be null",
            /* 7 */ "Number of parameters should not be null",
            /* 8 */ "Improper input parameters",
            /* 9 */ "Algorithm estimates that the relative error in the sum of squares is at most tol",
            /* 10 */ "Algorithm estimates that the relative error between x and the solution is at most tol",
            /* 11 */
            "Algorithm estimates that the relative error in the sum of squares and between x and the solution is at "
            "most tol",
            /* 12 */ "Null residuals on last iteration",
            /* 13 */ "Fvec is orthogonal to the columns of the jacobian to machine precision",
            /* 14 */ "Number of calls to fcn has reached or exceeded max number of iterations",
            /* 15 */ "Tol is too small. no further reduction in the sum of squares is possible",
            /* 16 */ "Tol is too small. no further improvement in the approximate solution x is possible",
            /* 17 */ "Function evaluation failed with following reason\n%s",
            /* 18 */ "Jacobian evaluation failed with following reason\n%s",
            /* 19 */ "Unexpected input parameters for minpack function wrapper",
            /* 20 */ "Algorithm ended for an unknown reason",
        };
        return g_texts;
    }
};

template struct MsgMapRegistrator<eOptimizationMessage::domain,
                                  details::MsgMapRegistratorDerived<eOptimizationMessage::domain, void>>;

namespace
{

const bool g_bRegistred = MessageMapRegistrator<eOptimizationMessage::domain>::process();

} // namespace

} // namespace math
} // namespace ovrix
