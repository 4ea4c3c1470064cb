#pragma once

#include <OVRIXMath/Optimization/BaseCostFunction.h>

#include <boost/make_shared.hpp>

#include <cmath>
#include <cstddef>
#include <functional>
#include <support/Builders.h>
#include <utility>
#include <vector>

namespace ovrix
{
namespace test
{

using math::BaseCostFunction;
using math::Matrix;
using math::Vector;

// Fits y = b0 exp(-b1 x) to observations (x, y).
class DecayCostFunction : public BaseCostFunction
{
public:
    DecayCostFunction(const Vector& x, const Vector& y) : _x(x), _y(y)
    {
        initBase(2, static_cast<ovUInt32>(x.size()));
    }

protected:
    // One equation per observation: the model's value minus the observed one.
    BoolResult processEquations(const Vector& params, Vector& equations) const override
    {
        if (!std::isfinite(params[1]))
            return BoolResult(false, "b1 is not a finite number");
        for (std::size_t i = 0; i < _x.size(); ++i)
            equations[i] = params[0] * std::exp(-params[1] * _x[i]) - _y[i];
        return true;
    }

    // One row per parameter: the derivatives of all equations with respect to it.
    BoolResult processJacobian(const Vector& params, Matrix& jacobian) const override
    {
        for (std::size_t i = 0; i < _x.size(); ++i)
        {
            const double decay = std::exp(-params[1] * _x[i]);
            jacobian(0, i) = decay;
            jacobian(1, i) = -params[0] * _x[i] * decay;
        }
        return true;
    }

private:
    Vector _x;
    Vector _y;
};

/// A problem given as functions, which notes where its equations were evaluated.
class FreeCostFunction : public BaseCostFunction
{
public:
    using Equations = std::function<BoolResult(const Vector&, Vector&)>;
    using Jacobian = std::function<BoolResult(const Vector&, Matrix&)>;

    FreeCostFunction() = default;

    /// @param equations no function leaves the equations alone
    /// @param jacobian no function stands for forward differences
    FreeCostFunction(ovUInt32 nbParameters, ovUInt32 nbEquations, Equations equations = nullptr,
                     Jacobian jacobian = nullptr)
        : _equations(std::move(equations)), _jacobian(std::move(jacobian))
    {
        initBase(nbParameters, nbEquations);
    }

    using BaseCostFunction::initBase;

    const std::vector<std::vector<double>>& getPoints() const
    {
        return _points;
    }

protected:
    BoolResult processEquations(const Vector& params, Vector& equations) const override
    {
        _points.push_back(toStd(params));
        return _equations ? _equations(params, equations) : BoolResult(true);
    }

    BoolResult processJacobian(const Vector& params, Matrix& jacobian) const override
    {
        return _jacobian ? _jacobian(params, jacobian) : BaseCostFunction::processJacobian(params, jacobian);
    }

private:
    Equations _equations;
    Jacobian _jacobian;
    mutable std::vector<std::vector<double>> _points;
};

/// A function of one variable and its derivative, as a problem of one equation.
template <class F, class D>
boost::shared_ptr<FreeCostFunction> makeScalarProblem(F f, D derivative)
{
    return boost::make_shared<FreeCostFunction>(
        1u, 1u,
        [f](const Vector& p, Vector& equations)
        {
            equations[0] = f(p[0]);
            return BoolResult(true);
        },
        [derivative](const Vector& p, Matrix& jacobian)
        {
            jacobian(0, 0) = derivative(p[0]);
            return BoolResult(true);
        });
}

} // namespace test
} // namespace ovrix
