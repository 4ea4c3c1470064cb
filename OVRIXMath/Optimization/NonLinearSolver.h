#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Optimization/BaseCostFunction.h>
#include <OVRIXMath/Types.h>

#include <string>

namespace ovrix
{
namespace math
{

/// How a minimisation ended.
enum eOptStatus : int
{
    eOS_Converged = 0, ///< a convergence test was met
    eOS_Stopped = 1,   ///< stopped by the limit of evaluations or a too small tolerance; the last estimate stands
    eOS_Failed = 2     ///< no usable estimate
};

/// Outcome of a minimisation.
struct OptResult
{
    eOptStatus status; ///< how it ended
    std::string msg;   ///< the reason in words, from the message catalogue
};

/// Minimises the sum of squares of a cost function's equations by the Levenberg-Marquardt method.
///
/// ```cpp
/// NonLinearSolver solver;
/// const OptResult result = solver.solve(boost::make_shared<DecayCostFunction>(x, y), start);
/// if (result.status == eOS_Failed)
///     throw std::runtime_error(result.msg);
/// const Vector fitted = solver.getEstimParams();
/// ```
///
/// The method is `lmder` of MINPACK (J. J. More, "The Levenberg-Marquardt algorithm: implementation and theory", 1978)
/// with its own scaling of the parameters. Its arrays are the storage of this class's vectors and matrix, and its
/// callback finds the vector by the address of the array: an evaluation copies and allocates nothing. With n
/// parameters, m equations, the parameters x, the equations f and the square root of machine epsilon as `tol`, a solve
/// converges when
///
/// - the sum of squares settles: its relative reduction, actual and predicted, is at most `tol` (message 9),
/// - the parameters settle: the trust region is at most `tol ||D x||` wide (message 10), or both (message 11),
/// - the gradient is exactly zero and so are all equations (message 12).
///
/// It stops after `100 (n + 1)` evaluations of the equations and fails after more than 100 iterations.
///
/// A solver is used by one thread at a time and may be used again; two solvers are independent of each other.
class OVRIXMATH_EXPORT NonLinearSolver
{
public:
    NonLinearSolver() = default;

    /// Minimises from `initParams`, after clearResults().
    ///
    /// | Status | Optimization message | Reason |
    /// |---|---|---|
    /// | `eOS_Converged` | 9 to 12 | see above |
    /// | `eOS_Stopped` | 14 | the limit of evaluations was reached |
    /// | `eOS_Stopped` | 15, 16 | cannot occur: before precision runs out, a test with `tol` is met |
    /// | `eOS_Failed` | 8 | fewer equations than parameters |
    /// | `eOS_Failed` | 13 | the gradient is exactly zero where the equations are not |
    /// | `eOS_Failed` | 14 | the limit of iterations was exceeded |
    /// | `eOS_Failed` | 17, 18 | the equations, or the Jacobian, could not be evaluated |
    /// | `eOS_Failed` | 19 | an evaluation replaced the storage of its output, or its size |
    /// | `eOS_Failed` | 20 | any other reason, such as a gradient below machine precision that is not zero |
    ///
    /// A gradient that vanishes is a failure as soon as one equation is left over, so a start at the very minimum of a
    /// problem with residuals fails. Texts 17 and 18 end where the reason would stand: the cost function's own text
    /// never reaches them. Both are meant and callers rely on it.
    ///
    /// What a cost function throws reaches the caller as it is, and so does std::bad_alloc. There is no result then,
    /// and the solver may be used again.
    ///
    /// @param pCostFunction the problem; the solver holds it until clearResults()
    /// @param initParams n values. This must not be the vector that getEstimParams() refers to, which is cleared first:
    ///        pass a copy of it to go on from an earlier estimate
    /// @throws OVRIXMathException Optimization message 5 on a null pointer, 0 on a cost function that is not
    ///         initialised, and 3 at the first evaluation when the size of `initParams` is not its number of parameters
    OptResult solve(const CostFunctionConstPtr& pCostFunction, const Vector& initParams);

    /// Number of iterations of the last solve: its successful evaluations of the Jacobian.
    ///
    /// @throws OVRIXMathException Optimization message 4 unless the last solve ended with `eOS_Converged` or
    ///         `eOS_Stopped`
    ovUInt32 getNbIteration() const;

    /// Parameters found by the last solve; the reference is good until the next solve() or clearResults().
    ///
    /// @throws OVRIXMathException Optimization message 4 unless the last solve ended with `eOS_Converged` or
    ///         `eOS_Stopped`
    const Vector& getEstimParams() const;

    /// Goes back to the state of no result: releases the cost function and sets the estimated parameters to zero,
    /// keeping their number.
    void clearResults();

    /// Callback of `lmder`, which hands its own arrays to it.
    ///
    /// @param p the solver
    /// @param x the parameters: storage of the estimated or of the trial parameters
    /// @param fvec output for `iflag` 1: storage of the equations at the estimate or at the trial point
    /// @param fjac output for `iflag` 2: storage of the Jacobian
    /// @param iflag 1 evaluates the equations, 2 the Jacobian, any other value nothing
    /// @return 0 to go on; -1 when the limit of iterations has been exceeded, which is looked at first; -2 and -3 when
    ///         the equations, or the Jacobian, could not be evaluated; -4 when an array is none of the above. The sizes
    ///         `m`, `n` and `ldfjac` are not looked at
    static int minPackProxy(void* p, int m, int n, double* x, double* fvec, double* fjac, int ldfjac, int iflag);

private:
    int evaluateEquations(const Vector& params, const double* fvec);
    int evaluateJacobian(const Vector& params, const double* fjac);

    ovUInt32 _nbMaxIterations = 100;
    eOptStatus _status = eOS_Failed;
    ovUInt32 _nbIterations = 0;
    Vector _estimParams;                 // x of lmder
    CostFunctionConstPtr _pCostFunction; // of the running solve
    Vector _equations;                   // fvec
    Vector _trialParams;                 // wa2, where lmder puts a trial point
    Vector _trialEquations;              // wa4, the equations there
    Matrix _jacobian;                    // fjac, a row per parameter
    std::string _errorMsg;               // of a failed evaluation; no text shows it
};

} // namespace math
} // namespace ovrix
