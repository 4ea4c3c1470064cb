#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Optimization/BaseCostFunction.h>
#include <OVRIXMath/Optimization/OptimizationLogMessages.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{

BaseCostFunction::~BaseCostFunction() = default;

void BaseCostFunction::initBase(ovUInt32 nbParameters, ovUInt32 nbEquations)
{
    OVRIXMATH_RAISE_UNLESS(nbParameters != 0, eOptimizationMessage, 7);
    OVRIXMATH_RAISE_UNLESS(nbEquations != 0, eOptimizationMessage, 6);
    _nbParameters = nbParameters;
    _nbEquations = nbEquations;
    _bInit = true;
}

ovUInt32 BaseCostFunction::getNbParameters() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eOptimizationMessage, 0);
    return _nbParameters;
}

ovUInt32 BaseCostFunction::getNbEquations() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eOptimizationMessage, 0);
    return _nbEquations;
}

BoolResult BaseCostFunction::computeEquations(const Vector& params, Vector& equations) const
{
    const ovUInt32 nbParams = static_cast<ovUInt32>(params.size());
    const ovUInt32 nbEquations = static_cast<ovUInt32>(equations.size());
    OVRIXMATH_RAISE_UNLESS(nbParams == getNbParameters(), eOptimizationMessage, 3, nbParams, getNbParameters());
    OVRIXMATH_RAISE_UNLESS(nbEquations == getNbEquations(), eOptimizationMessage, 2, nbEquations, getNbEquations());
    return processEquations(params, equations);
}

BoolResult BaseCostFunction::computeJacobian(const Vector& params, Matrix& jacobian) const
{
    OVRIXMATH_RAISE_UNLESS(params.size() == getNbParameters(), eOptimizationMessage, 3, params.size(),
                           getNbParameters());
    // The text asks for the number of parameters first; it is given the number of equations on purpose.
    OVRIXMATH_RAISE_UNLESS(jacobian.size2() == getNbEquations() && jacobian.size1() == getNbParameters(),
                           eOptimizationMessage, 1, jacobian.size1(), jacobian.size2(), getNbEquations(),
                           getNbParameters());
    return processJacobian(params, jacobian);
}

void BaseCostFunction::clear()
{
    _bInit = false;
    clearDerived();
}

BoolResult BaseCostFunction::processJacobian(const Vector& params, Matrix& jacobian) const
{
    constexpr double s = NumericLimits<double>::s_sqrt_eps;
    // Whatever an evaluation leaves unwritten or takes away counts as zero, never as a value of the parameter before.
    const auto evaluate = [this](const Vector& point, Vector& equations)
    {
        equations.resize(_nbEquations, false);
        std::fill(equations.data().begin(), equations.data().end(), 0.0);
        processEquations(point, equations);
        // Elements that are preserved are followed by zeros.
        if (equations.size() < _nbEquations)
            equations.resize(_nbEquations, true);
    };
    Vector base(_nbEquations);
    Vector shifted(_nbEquations);
    Vector trial(params);
    evaluate(params, base);
    double* row = jacobian.data().begin();
    for (ovUInt32 j = 0; j < _nbParameters; ++j, row += _nbEquations)
    {
        const double h = std::max(s, std::fabs(params[j]) * s);
        trial[j] = params[j] + h;
        evaluate(trial, shifted);
        trial[j] = params[j];

        const double* const at = base.data().begin();
        const double* const beside = shifted.data().begin();
        for (ovUInt32 i = 0; i < _nbEquations; ++i)
            row[i] = (beside[i] - at[i]) / h;
    }
    return true;
}

void BaseCostFunction::clearDerived() {}

} // namespace math
} // namespace ovrix
