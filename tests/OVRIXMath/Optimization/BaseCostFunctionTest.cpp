#include <OVRIXMath/Optimization/BaseCostFunction.h>

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <support/AllocationCount.h>
#include <support/Builders.h>
#include <support/CostFunctions.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <type_traits>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::DecayCostFunction;
using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::FreeCostFunction;
using test::makeMatrix;
using test::makeVector;
using test::toStd;
using testing::HasSubstr;

constexpr double g_step = NumericLimits<double>::s_sqrt_eps;

BoolResult square(const Vector& params, Vector& equations)
{
    equations[0] = params[0] * params[0];
    return true;
}

/// Forward differences of 1 + 2 p0 + 4 p1, three times, at zeros, where one of the three evaluations gives its output
/// another size, and fails if that is not 3. All operations are exact.
std::vector<double> differencesWithAnOutputOfAnotherSize(unsigned int evaluation, std::size_t size)
{
    const FreeCostFunction function(2, 3,
                                    [=, nbEvaluations = 0u](const Vector& p, Vector& f) mutable
                                    {
                                        if (nbEvaluations++ == evaluation)
                                            f.resize(size, false);
                                        for (double& value : f)
                                            value = 1.0 + 2.0 * p[0] + 4.0 * p[1];
                                        return BoolResult(f.size() == 3, "Another size");
                                    });
    Matrix jacobian(2, 3, 9.0);
    expectSuccess(function.computeJacobian(makeVector({0.0, 0.0}), jacobian));
    return toStd(jacobian);
}

} // namespace

TEST(BaseCostFunction, TheExampleOfTheHeaderCompiles)
{
    EXPECT_THAT(test::readCode("tests/support/CostFunctions.h"),
                HasSubstr(test::readExample("OVRIXMath/Optimization/BaseCostFunction.h")));
}

TEST(BaseCostFunction, TheExampleOfTheHeaderEvaluatesItsModel)
{
    const DecayCostFunction function(makeVector({0.0, 1.0}), makeVector({3.0, 1.0}));
    Vector equations(2);
    expectSuccess(function.computeEquations(makeVector({2.0, 0.0}), equations));
    EXPECT_EQ(toStd(equations), (std::vector<double>{-1.0, 1.0}));
    Matrix jacobian(2, 2);
    expectSuccess(function.computeJacobian(makeVector({2.0, 0.0}), jacobian));
    EXPECT_EQ(toStd(jacobian), (std::vector<double>{1.0, 1.0, -0.0, -2.0}));
}

TEST(BaseCostFunction, IsNotCopyable)
{
    EXPECT_FALSE(std::is_copy_constructible<DecayCostFunction>::value);
    EXPECT_FALSE(std::is_copy_assignable<DecayCostFunction>::value);
}

TEST(BaseCostFunction, IsNotInitialisedWhenNew)
{
    const FreeCostFunction function;
    expectMathRaises("Cost function has not been initialized", [&] { function.getNbParameters(); });
    expectMathRaises("Cost function has not been initialized", [&] { function.getNbEquations(); });
}

TEST(BaseCostFunction, CannotBeEvaluatedBeforeInitBase)
{
    const FreeCostFunction function;
    Vector equations;
    Matrix jacobian;
    expectMathRaises("Cost function has not been initialized", [&] { function.computeEquations(Vector(), equations); });
    expectMathRaises("Cost function has not been initialized", [&] { function.computeJacobian(Vector(), jacobian); });
}

TEST(BaseCostFunction, InitBaseGivesBothSizes)
{
    FreeCostFunction function;
    function.initBase(3, 5);
    EXPECT_EQ(function.getNbParameters(), 3u);
    EXPECT_EQ(function.getNbEquations(), 5u);
}

TEST(BaseCostFunction, InitBaseMayBeCalledAgain)
{
    FreeCostFunction function(3, 5);
    function.initBase(1, 2);
    EXPECT_EQ(function.getNbParameters(), 1u);
    EXPECT_EQ(function.getNbEquations(), 2u);
}

TEST(BaseCostFunction, InitBaseRefusesNoParameters)
{
    FreeCostFunction function;
    expectMathRaises("Number of parameters should not be null", [&] { function.initBase(0, 5); });
    expectMathRaises("Cost function has not been initialized", [&] { function.getNbParameters(); });
}

TEST(BaseCostFunction, InitBaseRefusesNoEquations)
{
    FreeCostFunction function;
    expectMathRaises("Number of equations should not be null", [&] { function.initBase(3, 0); });
    expectMathRaises("Cost function has not been initialized", [&] { function.getNbEquations(); });
}

TEST(BaseCostFunction, InitBaseLooksAtTheParametersFirst)
{
    FreeCostFunction function;
    expectMathRaises("Number of parameters should not be null", [&] { function.initBase(0, 0); });
}

TEST(BaseCostFunction, ARefusedInitBaseLeavesTheSizes)
{
    FreeCostFunction function(2, 3);
    expectMathRaises("Number of equations should not be null", [&] { function.initBase(4, 0); });
    EXPECT_EQ(function.getNbParameters(), 2u);
    EXPECT_EQ(function.getNbEquations(), 3u);
}

TEST(BaseCostFunction, ClearMakesItNotInitialised)
{
    FreeCostFunction function(2, 3);
    function.clear();
    expectMathRaises("Cost function has not been initialized", [&] { function.getNbParameters(); });
    expectMathRaises("Cost function has not been initialized", [&] { function.getNbEquations(); });
}

TEST(BaseCostFunction, ClearClearsTheSubclassOnceItIsNotInitialised)
{
    class WithState : public FreeCostFunction
    {
    public:
        using FreeCostFunction::FreeCostFunction;
        int nbClears = 0;

    protected:
        void clearDerived() override
        {
            expectMathRaises("Cost function has not been initialized", [this] { getNbParameters(); });
            ++nbClears;
        }
    };
    WithState function(2, 3);
    function.clear();
    EXPECT_EQ(function.nbClears, 1);
}

TEST(BaseCostFunction, ComputeEquationsGivesTheSubclassesValues)
{
    const FreeCostFunction function(1, 1, square);
    Vector equations(1);
    expectSuccess(function.computeEquations(makeVector({3.0}), equations));
    EXPECT_EQ(toStd(equations), (std::vector<double>{9.0}));
}

TEST(BaseCostFunction, ComputeEquationsPassesAFailureOn)
{
    const DecayCostFunction function(makeVector({0.0, 1.0}), makeVector({3.0, 1.0}));
    Vector equations(2);
    expectFailure("b1 is not a finite number",
                  function.computeEquations(makeVector({1.0, std::numeric_limits<double>::infinity()}), equations));
}

TEST(BaseCostFunction, ComputeEquationsRefusesAWrongNumberOfParameters)
{
    const FreeCostFunction function(2, 3);
    Vector equations = makeVector({1.0, 2.0, 3.0});
    expectMathRaises("Input parameter vector with size 1 is invalid regards to expected number of parameters 2",
                     [&] { function.computeEquations(Vector(1), equations); });
    EXPECT_TRUE(function.getPoints().empty());
    EXPECT_EQ(toStd(equations), (std::vector<double>{1.0, 2.0, 3.0}));
}

TEST(BaseCostFunction, ComputeEquationsRefusesAWrongNumberOfEquations)
{
    const FreeCostFunction function(2, 3);
    Vector equations = makeVector({1.0, 2.0});
    expectMathRaises("Input equations vector with size 2 is invalid regards to expected number of equations 3",
                     [&] { function.computeEquations(Vector(2), equations); });
    EXPECT_TRUE(function.getPoints().empty());
    EXPECT_EQ(toStd(equations), (std::vector<double>{1.0, 2.0}));
}

TEST(BaseCostFunction, ComputeEquationsLooksAtTheParametersFirst)
{
    const FreeCostFunction function(2, 3);
    Vector equations(2);
    expectMathRaises("Input parameter vector with size 3 is invalid regards to expected number of parameters 2",
                     [&] { function.computeEquations(Vector(3), equations); });
}

TEST(BaseCostFunction, ComputeJacobianRefusesAWrongNumberOfParameters)
{
    const FreeCostFunction function(2, 3);
    Matrix jacobian(1, 1);
    expectMathRaises("Input parameter vector with size 3 is invalid regards to expected number of parameters 2",
                     [&] { function.computeJacobian(Vector(3), jacobian); });
    EXPECT_TRUE(function.getPoints().empty());
}

TEST(BaseCostFunction, ComputeJacobianNamesTheExpectedCountsCrosswise)
{
    const FreeCostFunction function(2, 5);
    Matrix jacobian(5, 2);
    expectMathRaises("Invalid input jacobian matrix size {5, 2}, while expecting 5 parameters and 2 equations",
                     [&] { function.computeJacobian(Vector(2), jacobian); });
    EXPECT_TRUE(function.getPoints().empty());
}

TEST(BaseCostFunction, ComputeJacobianRefusesAWrongNumberOfRows)
{
    const FreeCostFunction function(2, 5);
    Matrix jacobian(3, 5);
    expectMathRaises("Invalid input jacobian matrix size {3, 5}, while expecting 5 parameters and 2 equations",
                     [&] { function.computeJacobian(Vector(2), jacobian); });
}

TEST(BaseCostFunction, ComputeJacobianRefusesAWrongNumberOfColumns)
{
    const FreeCostFunction function(2, 5);
    Matrix jacobian(2, 4);
    expectMathRaises("Invalid input jacobian matrix size {2, 4}, while expecting 5 parameters and 2 equations",
                     [&] { function.computeJacobian(Vector(2), jacobian); });
}

TEST(BaseCostFunction, ComputeJacobianPassesAFailureOn)
{
    const FreeCostFunction function(1, 1, square,
                                    [](const Vector&, Matrix&) { return BoolResult(false, "No derivative here"); });
    Matrix jacobian(1, 1);
    expectFailure("No derivative here", function.computeJacobian(Vector(1), jacobian));
}

TEST(ForwardDifferences, HaveARowOfAllEquationsForEachParameter)
{
    const FreeCostFunction function(2, 3,
                                    [](const Vector& p, Vector& f)
                                    {
                                        f[0] = 2.0 * p[0];
                                        f[1] = 4.0 * p[1];
                                        f[2] = 8.0 * p[0] + 16.0 * p[1];
                                        return BoolResult(true);
                                    });
    Matrix jacobian(2, 3);
    // Powers of two at a point of zeros: every operation is exact.
    expectSuccess(function.computeJacobian(makeVector({0.0, 0.0}), jacobian));
    EXPECT_EQ(toStd(jacobian), (std::vector<double>{2.0, 0.0, 8.0, 0.0, 4.0, 16.0}));
}

TEST(ForwardDifferences, StepByTheFloorAtZero)
{
    const FreeCostFunction function(1, 1, square);
    Matrix jacobian(1, 1);
    expectSuccess(function.computeJacobian(makeVector({0.0}), jacobian));
    EXPECT_EQ(jacobian(0, 0), g_step);
}

TEST(ForwardDifferences, MoveOneParameterAtATimeByAStepRelativeToItsSize)
{
    const FreeCostFunction function(4, 1);
    Matrix jacobian(4, 1);
    const double small = 0.5;
    const double large = -1000.0;
    expectSuccess(function.computeJacobian(makeVector({0.0, small, 1.0, large}), jacobian));
    EXPECT_EQ(function.getPoints(), (std::vector<std::vector<double>>{
                                        {0.0, small, 1.0, large},
                                        {g_step, small, 1.0, large},
                                        {0.0, small + g_step, 1.0, large},
                                        {0.0, small, 1.0 + g_step, large},
                                        {0.0, small, 1.0, large + 1000.0 * g_step},
                                    }));
}

TEST(ForwardDifferences, DivideByTheStepAsked)
{
    const double x = 1000.1;
    const double h = x * g_step;
    const FreeCostFunction function(1, 1, square);
    Matrix jacobian(1, 1);
    expectSuccess(function.computeJacobian(makeVector({x}), jacobian));
    EXPECT_EQ(jacobian(0, 0), ((x + h) * (x + h) - x * x) / h);
}

TEST(ForwardDifferences, StepByTheFloorWhereTheParameterIsNotANumber)
{
    const FreeCostFunction function(1, 1,
                                    [](const Vector& p, Vector& f)
                                    {
                                        f[0] = std::isnan(p[0]) ? 1.0 : 0.0;
                                        return BoolResult(true);
                                    });
    Matrix jacobian = makeMatrix({{7.0}});
    expectSuccess(function.computeJacobian(makeVector({std::numeric_limits<double>::quiet_NaN()}), jacobian));
    // The difference is zero, and only a step that is a number makes that a zero.
    EXPECT_EQ(jacobian(0, 0), 0.0);
}

TEST(ForwardDifferences, DoNotLookAtTheResultOfAnEvaluation)
{
    const FreeCostFunction function(1, 1,
                                    [](const Vector& p, Vector& f)
                                    {
                                        f[0] = 4.0 * p[0];
                                        return BoolResult(false, "Out of range");
                                    });
    Matrix jacobian(1, 1);
    expectSuccess(function.computeJacobian(makeVector({0.0}), jacobian));
    EXPECT_EQ(jacobian(0, 0), 4.0);
}

TEST(ForwardDifferences, ReadZerosWhereAFailedEvaluationLeftItsEquationsAlone)
{
    const FreeCostFunction function(2, 1,
                                    [](const Vector& p, Vector& f)
                                    {
                                        if (p[1] != 0.0)
                                            return BoolResult(false, "Out of range");
                                        f[0] = 4.0 * p[0];
                                        return BoolResult(true);
                                    });
    Matrix jacobian(2, 1);
    expectSuccess(function.computeJacobian(makeVector({0.0, 0.0}), jacobian));
    EXPECT_EQ(toStd(jacobian), (std::vector<double>{4.0, 0.0}));
}

TEST(ForwardDifferences, AcceptEquationsThatTookOtherStorage)
{
    const FreeCostFunction function(2, 2,
                                    [](const Vector& p, Vector& f)
                                    {
                                        f = 2.0 * p;
                                        return BoolResult(true);
                                    });
    Matrix jacobian(2, 2);
    expectSuccess(function.computeJacobian(makeVector({0.0, 0.0}), jacobian));
    EXPECT_EQ(toStd(jacobian), (std::vector<double>{2.0, 0.0, 0.0, 2.0}));
}

TEST(ForwardDifferences, CountEquationsAsZerosThatAnEvaluationTakesAway)
{
    const double whole = 1.0 / g_step;
    EXPECT_EQ(differencesWithAnOutputOfAnotherSize(0, 1),
              (std::vector<double>{2.0, whole + 2.0, whole + 2.0, 4.0, whole + 4.0, whole + 4.0}));
    EXPECT_EQ(differencesWithAnOutputOfAnotherSize(1, 1), (std::vector<double>{2.0, -whole, -whole, 4.0, 4.0, 4.0}));
    EXPECT_EQ(differencesWithAnOutputOfAnotherSize(2, 1), (std::vector<double>{2.0, 2.0, 2.0, 4.0, -whole, -whole}));
}

TEST(ForwardDifferences, CountAllEquationsAsZerosThatAnEvaluationTakesAway)
{
    const double whole = 1.0 / g_step;
    EXPECT_EQ(differencesWithAnOutputOfAnotherSize(0, 0),
              (std::vector<double>{whole + 2.0, whole + 2.0, whole + 2.0, whole + 4.0, whole + 4.0, whole + 4.0}));
    EXPECT_EQ(differencesWithAnOutputOfAnotherSize(1, 0), (std::vector<double>{-whole, -whole, -whole, 4.0, 4.0, 4.0}));
    EXPECT_EQ(differencesWithAnOutputOfAnotherSize(2, 0), (std::vector<double>{2.0, 2.0, 2.0, -whole, -whole, -whole}));
}

TEST(ForwardDifferences, ReadNoMoreThanTheirEquationsFromALargerOutput)
{
    for (const unsigned int evaluation : {0u, 1u, 2u})
    {
        EXPECT_EQ(differencesWithAnOutputOfAnotherSize(evaluation, 500),
                  (std::vector<double>{2.0, 2.0, 2.0, 4.0, 4.0, 4.0}));
    }
}

TEST(ForwardDifferences, AllocateThreeVectorsHoweverManyTheParameters)
{
    class Sum : public BaseCostFunction
    {
    public:
        explicit Sum(ovUInt32 nbParameters)
        {
            initBase(nbParameters, 5);
        }

    protected:
        BoolResult processEquations(const Vector& params, Vector& equations) const override
        {
            for (double& equation : equations)
                equation = params[0] + params[params.size() - 1];
            return true;
        }
    };
    for (const ovUInt32 nbParameters : {1u, 20u})
    {
        const Sum sum(nbParameters);
        const Vector params(nbParameters, 1.0);
        Matrix jacobian(nbParameters, 5);
        EXPECT_EQ(test::countSteadyAllocations([&] { sum.computeJacobian(params, jacobian); }), 3u) << nbParameters;
    }
}

TEST(ForwardDifferences, LeaveTheParametersAlone)
{
    const FreeCostFunction function(2, 1);
    const Vector params = makeVector({1.0, 2.0});
    Matrix jacobian(2, 1);
    expectSuccess(function.computeJacobian(params, jacobian));
    EXPECT_EQ(toStd(params), (std::vector<double>{1.0, 2.0}));
}

} // namespace math
} // namespace ovrix
