#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <boost/noncopyable.hpp>
#include <boost/shared_ptr.hpp>

namespace ovrix
{
namespace math
{

/// A least-squares problem: a fixed number of equations in a fixed number of parameters, whose sum of squares
/// NonLinearSolver minimises.
///
/// A subclass gives the two numbers with initBase() and evaluates its equations. It may give their derivatives as well;
/// without them forward differences are taken. A complete problem:
///
/// ```cpp
/// // Fits y = b0 exp(-b1 x) to observations (x, y).
/// class DecayCostFunction : public BaseCostFunction
/// {
/// public:
///     DecayCostFunction(const Vector& x, const Vector& y) : _x(x), _y(y)
///     {
///         initBase(2, static_cast<ovUInt32>(x.size()));
///     }
///
/// protected:
///     // One equation per observation: the model's value minus the observed one.
///     BoolResult processEquations(const Vector& params, Vector& equations) const override
///     {
///         if (!std::isfinite(params[1]))
///             return BoolResult(false, "b1 is not a finite number");
///         for (std::size_t i = 0; i < _x.size(); ++i)
///             equations[i] = params[0] * std::exp(-params[1] * _x[i]) - _y[i];
///         return true;
///     }
///
///     // One row per parameter: the derivatives of all equations with respect to it.
///     BoolResult processJacobian(const Vector& params, Matrix& jacobian) const override
///     {
///         for (std::size_t i = 0; i < _x.size(); ++i)
///         {
///             const double decay = std::exp(-params[1] * _x[i]);
///             jacobian(0, i) = decay;
///             jacobian(1, i) = -params[0] * _x[i] * decay;
///         }
///         return true;
///     }
///
/// private:
///     Vector _x;
///     Vector _y;
/// };
/// ```
///
/// The evaluations are `const` and this class keeps no state in them, so that several threads may evaluate one problem
/// if the subclass's own evaluations allow it.
class OVRIXMATH_EXPORT BaseCostFunction : private boost::noncopyable
{
public:
    virtual ~BaseCostFunction() = 0;

    /// Number of parameters, at least 1.
    ///
    /// @throws OVRIXMathException Optimization message 0 unless the function is initialised
    ovUInt32 getNbParameters() const;

    /// Number of equations, at least 1.
    ///
    /// @throws OVRIXMathException Optimization message 0 unless the function is initialised
    ovUInt32 getNbEquations() const;

    /// Evaluates all equations at `params`.
    ///
    /// @param params `getNbParameters()` values
    /// @param equations `getNbEquations()` values, sized by the caller and never resized here
    /// @return the result of processEquations(), unchanged
    /// @throws OVRIXMathException Optimization message 0 on a function that is not initialised, 3 on a wrong size of
    ///         `params`, then 2 on a wrong size of `equations`; sizes are compared by their low 32 bits
    BoolResult computeEquations(const Vector& params, Vector& equations) const;

    /// Evaluates the derivatives of all equations at `params`: `jacobian(j, i)` is that of equation `i` with respect to
    /// parameter `j`.
    ///
    /// This is the transpose of the usual layout. Its row-major storage is the column-major array that the solver works
    /// on, so nothing is copied on the way.
    ///
    /// @param params `getNbParameters()` values
    /// @param jacobian `getNbParameters()` x `getNbEquations()`, sized by the caller and never resized here
    /// @return the result of processJacobian(), unchanged
    /// @throws OVRIXMathException Optimization message 0 on a function that is not initialised, 3 on a wrong size of
    ///         `params`, then 1 on a wrong size of `jacobian`. Text 1 is given the rows and columns found, then the
    ///         number of equations where it says parameters and the number of parameters where it says equations: this
    ///         order is meant and stays
    BoolResult computeJacobian(const Vector& params, Matrix& jacobian) const;

    /// Makes the function not initialised, then calls clearDerived().
    void clear();

protected:
    BaseCostFunction() = default;

    /// Sets the two sizes and makes the function initialised; on a raise nothing has changed.
    ///
    /// @param nbParameters at least 1
    /// @param nbEquations at least 1
    /// @throws OVRIXMathException Optimization message 7 without parameters, then 6 without equations
    void initBase(ovUInt32 nbParameters, ovUInt32 nbEquations);

    /// Evaluates all equations.
    ///
    /// The sizes have been checked. Every element must be written, and in place: an assignment that gives `equations`
    /// other storage, such as `equations = prod(a, params)`, takes the solver's array away and makes the solve fail
    /// with Optimization message 19; `noalias(equations) = prod(a, params)` is right.
    ///
    /// @return success, or a failure whose text says why the equations have no value at `params`; a solve ends there
    virtual BoolResult processEquations(const Vector& params, Vector& equations) const = 0;

    /// Evaluates the derivatives, one row per parameter; as processEquations(), every element in place.
    ///
    /// `jacobian` has its size already. A call of `jacobian.resize(n, m)` for that very size gives it other storage all
    /// the same, and the solve fails with Optimization message 19.
    ///
    /// Unless overridden, forward differences: row `j` is `(f(params + h e_j) - f(params)) / h` with the step
    /// `h = max(s, |params[j]| s)`, `s` being the square root of machine epsilon. They cost `getNbParameters() + 1`
    /// evaluations and always succeed: the results of these evaluations are not looked at. What an evaluation leaves
    /// unwritten, or takes away by another size of its output, counts as zero.
    ///
    /// @return success, or a failure whose text says why there are no derivatives at `params`; a solve ends there
    virtual BoolResult processJacobian(const Vector& params, Matrix& jacobian) const;

    /// Clears the subclass's own state; does nothing unless overridden.
    virtual void clearDerived();

private:
    ovUInt32 _nbParameters = 0;
    ovUInt32 _nbEquations = 0;
    bool _bInit = false;
};

/// How cost functions are held.
using CostFunctionPtr = boost::shared_ptr<BaseCostFunction>;

/// How cost functions are held by those that only evaluate them.
using CostFunctionConstPtr = boost::shared_ptr<const BaseCostFunction>;

} // namespace math
} // namespace ovrix
