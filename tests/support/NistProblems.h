#pragma once

#include <OVRIXMath/Optimization/BaseCostFunction.h>

#include <cstddef>
#include <string>
#include <vector>

/// @file
/// Non-linear regression problems with certified solutions: the Statistical Reference Datasets of the National
/// Institute of Standards and Technology, https://www.itl.nist.gov/div898/strd/nls/nls_main.shtml.

namespace ovrix
{
namespace test
{

/// The formula of a problem and its derivatives, evaluated over all observations.
class NistModel
{
public:
    virtual ~NistModel() = default;

    /// `residuals[i] = f(b, x[i]) - y[i]`.
    virtual void computeResiduals(const std::vector<double>& x, const std::vector<double>& y, const double* b,
                                  double* residuals) const = 0;

    /// `jacobian[j * parameterStride + i * observationStride] = df/db[j] (b, x[i])`.
    virtual void computeJacobian(const std::vector<double>& x, const double* b, double* jacobian,
                                 std::size_t parameterStride, std::size_t observationStride) const = 0;

    /// `f(b, x)`
    virtual double computeValue(double x, const double* b) const = 0;

    /// `gradient[j] = df/db[j] (b, x)`
    virtual void computeGradient(double x, const double* b, double* gradient) const = 0;
};

/// One data set: observations (x, y), two starting points, and the solution, certified to eleven digits.
struct NistProblem
{
    std::string name;
    const NistModel* pModel;
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> starts[2];
    std::vector<double> certifiedParams;
    double certifiedSumOfSquares;

    std::size_t getNbParameters() const
    {
        return certifiedParams.size();
    }

    std::size_t getNbObservations() const
    {
        return x.size();
    }

    void computeResiduals(const double* b, double* residuals) const
    {
        pModel->computeResiduals(x, y, b, residuals);
    }

    /// All derivatives, a row of observations for each parameter; by other strides in any other layout.
    void computeJacobian(const double* b, double* jacobian) const
    {
        computeJacobian(b, jacobian, getNbObservations(), 1);
    }

    void computeJacobian(const double* b, double* jacobian, std::size_t parameterStride,
                         std::size_t observationStride) const
    {
        pModel->computeJacobian(x, b, jacobian, parameterStride, observationStride);
    }

    double computeSumOfSquares(const double* b) const;

    /// The smallest number of significant digits, over all parameters, in which `b` agrees with the certified ones:
    /// `-log10(|b - c| / |c|)`, at most 11.
    double computeParamDigits(const double* b) const;

    /// The number of significant digits in which the sum of squares at `b` agrees with the certified one, at most 11.
    /// Digits are relative to the sum at the certified parameters where that is larger: the one of Lanczos1 is all
    /// rounding, of the eleven digits of its parameters.
    double computeSumOfSquaresDigits(const double* b) const;
};

/// All data sets, in the order of their names; read from `tests/data/nist` at the first call.
const std::vector<NistProblem>& getNistProblems();

/// A problem by its name.
const NistProblem& getNistProblem(const std::string& name);

/// A problem whose derivatives are left to forward differences.
class NistCostFunction : public math::BaseCostFunction
{
public:
    explicit NistCostFunction(const NistProblem& problem);

    std::size_t getNbEvaluations() const
    {
        return _nbEvaluations;
    }

protected:
    BoolResult processEquations(const math::Vector& params, math::Vector& equations) const override;

    const NistProblem& getProblem() const
    {
        return _problem;
    }

private:
    const NistProblem& _problem;
    mutable std::size_t _nbEvaluations = 0;
};

/// A problem with its derivatives in closed form.
class NistCostFunctionWithJacobian : public NistCostFunction
{
public:
    using NistCostFunction::NistCostFunction;

protected:
    BoolResult processJacobian(const math::Vector& params, math::Matrix& jacobian) const override;
};

} // namespace test
} // namespace ovrix
