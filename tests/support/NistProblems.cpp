#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <support/NistProblems.h>
#include <utility>

namespace ovrix
{
namespace test
{

namespace
{

// The formulas, b[0] being the data sets' b1; gradient() writes the derivatives with respect to each b.

/// b1 (1 - exp(-b2 x))
struct ExponentialApproach
{
    static constexpr std::size_t s_nbParameters = 2;

    static double value(const double* b, double x)
    {
        return b[0] * (1.0 - std::exp(-b[1] * x));
    }

    static void gradient(const double* b, double x, double* g)
    {
        const double decay = std::exp(-b[1] * x);
        g[0] = 1.0 - decay;
        g[1] = b[0] * x * decay;
    }
};

/// b1 (1 - (1 + b2 x / 2)^-2)
struct QuadraticApproach
{
    static constexpr std::size_t s_nbParameters = 2;

    static double value(const double* b, double x)
    {
        const double base = 1.0 + b[1] * x / 2.0;
        return b[0] * (1.0 - 1.0 / (base * base));
    }

    static void gradient(const double* b, double x, double* g)
    {
        const double base = 1.0 + b[1] * x / 2.0;
        g[0] = 1.0 - 1.0 / (base * base);
        g[1] = b[0] * x / (base * base * base);
    }
};

/// exp(-b1 x) / (b2 + b3 x)
struct DecayOverLine
{
    static constexpr std::size_t s_nbParameters = 3;

    static double value(const double* b, double x)
    {
        return std::exp(-b[0] * x) / (b[1] + b[2] * x);
    }

    static void gradient(const double* b, double x, double* g)
    {
        const double line = b[1] + b[2] * x;
        const double f = std::exp(-b[0] * x) / line;
        g[0] = -x * f;
        g[1] = -f / line;
        g[2] = -x * f / line;
    }
};

/// b1 x^b2
struct Power
{
    static constexpr std::size_t s_nbParameters = 2;

    static double value(const double* b, double x)
    {
        return b[0] * std::pow(x, b[1]);
    }

    static void gradient(const double* b, double x, double* g)
    {
        g[0] = std::pow(x, b[1]);
        g[1] = b[0] * g[0] * std::log(x);
    }
};

/// b1 exp(-b2 x) + b3 exp(-(x - b4)^2 / b5^2) + b6 exp(-(x - b7)^2 / b8^2)
struct TwoGaussiansOnDecay
{
    static constexpr std::size_t s_nbParameters = 8;

    static double peak(const double* b, double x)
    {
        const double t = (x - b[1]) / b[2];
        return b[0] * std::exp(-t * t);
    }

    static void peakGradient(const double* b, double x, double* g)
    {
        const double t = (x - b[1]) / b[2];
        g[0] = std::exp(-t * t);
        g[1] = 2.0 * b[0] * g[0] * t / b[2];
        g[2] = g[1] * t;
    }

    static double value(const double* b, double x)
    {
        return b[0] * std::exp(-b[1] * x) + peak(b + 2, x) + peak(b + 5, x);
    }

    static void gradient(const double* b, double x, double* g)
    {
        g[0] = std::exp(-b[1] * x);
        g[1] = -b[0] * x * g[0];
        peakGradient(b + 2, x, g + 2);
        peakGradient(b + 5, x, g + 5);
    }
};

/// (b1 + b2 x + ... + b(D+1) x^D) / (1 + b(D+2) x + ... + b(2D+1) x^D)
template <std::size_t Degree>
struct PolynomialRatio
{
    static constexpr std::size_t s_nbParameters = 2 * Degree + 1;

    static double numerator(const double* b, double x)
    {
        double sum = b[Degree];
        for (std::size_t k = Degree; k-- > 0;)
            sum = sum * x + b[k];
        return sum;
    }

    static double denominator(const double* b, double x)
    {
        double sum = b[2 * Degree];
        for (std::size_t k = 2 * Degree; k-- > Degree + 1;)
            sum = sum * x + b[k];
        return sum * x + 1.0;
    }

    static double value(const double* b, double x)
    {
        return numerator(b, x) / denominator(b, x);
    }

    static void gradient(const double* b, double x, double* g)
    {
        const double inverse = 1.0 / denominator(b, x);
        const double f = numerator(b, x) * inverse;
        double power = inverse;
        g[0] = power;
        for (std::size_t k = 1; k <= Degree; ++k)
        {
            power *= x;
            g[k] = power;
            g[Degree + k] = -f * power;
        }
    }
};

/// b1 exp(-b2 x) + b3 exp(-b4 x) + b5 exp(-b6 x)
struct ThreeDecays
{
    static constexpr std::size_t s_nbParameters = 6;

    static double value(const double* b, double x)
    {
        return b[0] * std::exp(-b[1] * x) + b[2] * std::exp(-b[3] * x) + b[4] * std::exp(-b[5] * x);
    }

    static void gradient(const double* b, double x, double* g)
    {
        for (std::size_t k = 0; k < s_nbParameters; k += 2)
        {
            g[k] = std::exp(-b[k + 1] * x);
            g[k + 1] = -b[k] * x * g[k];
        }
    }
};

/// b1 (x^2 + b2 x) / (x^2 + b3 x + b4)
struct KowalikOsborne
{
    static constexpr std::size_t s_nbParameters = 4;

    static double value(const double* b, double x)
    {
        return b[0] * (x * x + x * b[1]) / (x * x + x * b[2] + b[3]);
    }

    static void gradient(const double* b, double x, double* g)
    {
        const double inverse = 1.0 / (x * x + x * b[2] + b[3]);
        g[0] = (x * x + x * b[1]) * inverse;
        g[1] = b[0] * x * inverse;
        g[3] = -b[0] * g[0] * inverse;
        g[2] = g[3] * x;
    }
};

/// b1 + b2 exp(-b4 x) + b3 exp(-b5 x)
struct TwoDecaysOnConstant
{
    static constexpr std::size_t s_nbParameters = 5;

    static double value(const double* b, double x)
    {
        return b[0] + b[1] * std::exp(-x * b[3]) + b[2] * std::exp(-x * b[4]);
    }

    static void gradient(const double* b, double x, double* g)
    {
        g[0] = 1.0;
        g[1] = std::exp(-x * b[3]);
        g[2] = std::exp(-x * b[4]);
        g[3] = -b[1] * x * g[1];
        g[4] = -b[2] * x * g[2];
    }
};

/// b1 / (1 + exp(b2 - b3 x))
struct Logistic
{
    static constexpr std::size_t s_nbParameters = 3;

    static double value(const double* b, double x)
    {
        return b[0] / (1.0 + std::exp(b[1] - b[2] * x));
    }

    static void gradient(const double* b, double x, double* g)
    {
        const double growth = std::exp(b[1] - b[2] * x);
        g[0] = 1.0 / (1.0 + growth);
        g[1] = -b[0] * growth * g[0] * g[0];
        g[2] = -x * g[1];
    }
};

/// b1 - b2 x - arctan(b3 / (x - b4)) / pi
struct LineAndArctangent
{
    static constexpr std::size_t s_nbParameters = 4;
    static constexpr double s_pi = 3.141592653589793238462643383279;

    static double value(const double* b, double x)
    {
        return b[0] - b[1] * x - std::atan(b[2] / (x - b[3])) / s_pi;
    }

    static void gradient(const double* b, double x, double* g)
    {
        const double d = x - b[3];
        const double scale = -1.0 / (s_pi * (d * d + b[2] * b[2]));
        g[0] = 1.0;
        g[1] = -x;
        g[2] = d * scale;
        g[3] = b[2] * scale;
    }
};

template <class Formula>
class NistModelOf : public NistModel
{
public:
    void computeResiduals(const std::vector<double>& x, const std::vector<double>& y, const double* b,
                          double* residuals) const override
    {
        for (std::size_t i = 0; i < x.size(); ++i)
            residuals[i] = Formula::value(b, x[i]) - y[i];
    }

    void computeJacobian(const std::vector<double>& x, const double* b, double* jacobian, std::size_t parameterStride,
                         std::size_t observationStride) const override
    {
        double g[Formula::s_nbParameters];
        for (std::size_t i = 0; i < x.size(); ++i)
        {
            Formula::gradient(b, x[i], g);
            for (std::size_t j = 0; j < Formula::s_nbParameters; ++j)
                jacobian[j * parameterStride + i * observationStride] = g[j];
        }
    }

    double computeValue(double x, const double* b) const override
    {
        return Formula::value(b, x);
    }

    void computeGradient(double x, const double* b, double* gradient) const override
    {
        Formula::gradient(b, x, gradient);
    }
};

template <class Formula>
const NistModel* model()
{
    static const NistModelOf<Formula> theModel;
    return &theModel;
}

/// Reads a data set: starting points and certified values stand behind "b1 =", "b2 =" and so on, the observations, y
/// before x, from line 61 on.
NistProblem readProblem(const std::string& name, const NistModel* pModel)
{
    const std::string path = std::string(OVRIX_TEST_DATA_DIR) + "/nist/" + name + ".dat";
    const std::string sumOfSquaresKey = "Residual Sum of Squares:";
    constexpr int nbHeaderLines = 60;

    NistProblem problem{name, pModel, {}, {}, {}, {}, 0.0};
    std::ifstream file(path);
    std::string line;
    for (int number = 1; std::getline(file, line); ++number)
    {
        std::istringstream values(line);
        if (number > nbHeaderLines)
        {
            double y = 0.0;
            double x = 0.0;
            if (values >> y >> x)
            {
                problem.y.push_back(y);
                problem.x.push_back(x);
            }
        }
        else if (line.compare(0, sumOfSquaresKey.size(), sumOfSquaresKey) == 0)
        {
            problem.certifiedSumOfSquares = std::stod(line.substr(sumOfSquaresKey.size()));
        }
        else
        {
            std::string parameter;
            std::string equals;
            double start1 = 0.0;
            double start2 = 0.0;
            double certified = 0.0;
            if (values >> parameter >> equals >> start1 >> start2 >> certified && equals == "=")
            {
                problem.starts[0].push_back(start1);
                problem.starts[1].push_back(start2);
                problem.certifiedParams.push_back(certified);
            }
        }
    }
    if (problem.x.empty() || problem.certifiedParams.empty())
        throw std::runtime_error("No data set in " + path);
    return problem;
}

std::vector<NistProblem> readProblems()
{
    const std::pair<const char*, const NistModel*> sets[] = {
        {"BoxBOD", model<ExponentialApproach>()},
        {"Chwirut1", model<DecayOverLine>()},
        {"DanWood", model<Power>()},
        {"Gauss1", model<TwoGaussiansOnDecay>()},
        {"Gauss3", model<TwoGaussiansOnDecay>()},
        {"Hahn1", model<PolynomialRatio<3>>()},
        {"Kirby2", model<PolynomialRatio<2>>()},
        {"Lanczos1", model<ThreeDecays>()},
        {"Lanczos3", model<ThreeDecays>()},
        {"MGH09", model<KowalikOsborne>()},
        {"MGH17", model<TwoDecaysOnConstant>()},
        {"Misra1a", model<ExponentialApproach>()},
        {"Misra1b", model<QuadraticApproach>()},
        {"Rat42", model<Logistic>()},
        {"Roszman1", model<LineAndArctangent>()},
        {"Thurber", model<PolynomialRatio<3>>()},
    };
    std::vector<NistProblem> problems;
    for (const auto& [name, pModel] : sets)
        problems.push_back(readProblem(name, pModel));
    return problems;
}

/// `-log10(|error| / |scale|)`, from 0 to the eleven digits that are certified.
double countDigits(double difference, double scale)
{
    constexpr double certifiedDigits = 11.0;
    const double error = std::fabs(difference) / std::fabs(scale);
    if (!(error < std::numeric_limits<double>::infinity()))
        return 0.0;
    return std::max(0.0, std::min(certifiedDigits, -std::log10(error)));
}

} // namespace

double NistProblem::computeSumOfSquares(const double* b) const
{
    std::vector<double> residuals(getNbObservations());
    computeResiduals(b, residuals.data());
    double sum = 0.0;
    for (const double residual : residuals)
        sum += residual * residual;
    return sum;
}

double NistProblem::computeParamDigits(const double* b) const
{
    double digits = std::numeric_limits<double>::infinity();
    for (std::size_t j = 0; j < getNbParameters(); ++j)
        digits = std::min(digits, countDigits(b[j] - certifiedParams[j], certifiedParams[j]));
    return digits;
}

double NistProblem::computeSumOfSquaresDigits(const double* b) const
{
    const double scale = std::max(certifiedSumOfSquares, computeSumOfSquares(certifiedParams.data()));
    return countDigits(computeSumOfSquares(b) - certifiedSumOfSquares, scale);
}

const std::vector<NistProblem>& getNistProblems()
{
    static const std::vector<NistProblem> problems = readProblems();
    return problems;
}

const NistProblem& getNistProblem(const std::string& name)
{
    for (const NistProblem& problem : getNistProblems())
    {
        if (problem.name == name)
            return problem;
    }
    throw std::runtime_error("No data set of the name " + name);
}

NistCostFunction::NistCostFunction(const NistProblem& problem) : _problem(problem)
{
    initBase(static_cast<ovUInt32>(problem.getNbParameters()), static_cast<ovUInt32>(problem.getNbObservations()));
}

BoolResult NistCostFunction::processEquations(const math::Vector& params, math::Vector& equations) const
{
    ++_nbEvaluations;
    _problem.computeResiduals(params.data().begin(), equations.data().begin());
    return true;
}

BoolResult NistCostFunctionWithJacobian::processJacobian(const math::Vector& params, math::Matrix& jacobian) const
{
    getProblem().computeJacobian(params.data().begin(), jacobian.data().begin());
    return true;
}

} // namespace test
} // namespace ovrix
