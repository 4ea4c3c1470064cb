#include <OVRIXMath/Statistics/BasicStatistics.h>
#include <OVRIXMath/Statistics/ExtremaUtils.h>
#include <OVRIXMath/Tools/GaussianSmoothing1D.h>
#include <OVRIXMath/Tools/MathUtils.h>
#include <OVRIXMath/Tools/Tophat1D.h>

#include <FuzzInput.h>
#include <support/PlainExtrema.h>
#include <support/PlainSmoothing.h>
#include <support/PlainStatistics.h>
#include <support/PlainTophat.h>

// The input is a sequence of any type of numbers and what its searches and filters take. The plain loops give the same.

namespace ovrix
{
namespace fuzz
{

namespace
{

using namespace math;

/// The searches take 64 elements at once, filters up to 128.
constexpr std::size_t g_nbMaxElements = 200;

/// Half of the sequences are short, so that there is time for many.
template <class T>
std::vector<T> readSequence(FuzzInput& input)
{
    std::vector<T> values;
    const std::size_t size = input.integer(0, input.flag() ? 24 : g_nbMaxElements);
    while (values.size() < size)
    {
        const std::size_t run =
            std::min<std::size_t>(input.integer(0, 15) < 8 ? 1 : input.integer(1, 70), size - values.size());
        values.insert(values.end(), run, input.number<T>());
    }
    return values;
}

/// Checks that nothing was dropped without a reason, and nothing kept against one.
template <class T>
void checkFiltered(eExtremaType type, double minDistance, T threshold, const std::vector<T>& values,
                   const std::vector<unsigned long>& all, const std::vector<unsigned long>& kept)
{
    const bool bMaxima = type == eET_Maxima;
    const auto isWeak = [&](unsigned long i) { return bMaxima ? threshold >= values[i] : values[i] >= threshold; };
    const auto areNear = [&](unsigned long i, unsigned long j)
    { return minDistance > 0.0 && minDistance >= std::fabs(double(i) - double(j)); };
    require(std::is_sorted(kept.begin(), kept.end()), "what is kept ascends");
    for (const unsigned long i : kept)
    {
        require(std::count(all.begin(), all.end(), i) > 0 && !isWeak(i), "what is kept was there and is not weak");
        require(std::count_if(kept.begin(), kept.end(), [&](unsigned long j) { return areNear(i, j); }) <= 1,
                "what is kept lies apart");
    }
    for (const unsigned long i : all)
    {
        const bool bKept = std::count(kept.begin(), kept.end(), i) > 0;
        const auto displaces = [&](unsigned long j)
        {
            const bool bWeaker = bMaxima ? values[j] < values[i] : values[j] > values[i];
            return areNear(i, j) && !bWeaker;
        };
        require(bKept || isWeak(i) || std::any_of(kept.begin(), kept.end(), displaces),
                "what is dropped is weak, or near to a stronger one");
    }
}

template <class T>
void useSearches(FuzzInput& input, const std::vector<T>& values)
{
    const auto policy = input.enumeration<eExtremaBorderPolicy>(3);
    const eExtremaType type = input.flag() ? eET_Maxima : eET_Minima;
    const bool bKnown = policy >= eEBP_Include && policy <= eEBP_Periodic;
    const eExtremaBorderPolicy plainPolicy = bKnown ? policy : eEBP_Exclude;

    std::vector<unsigned int> strict;
    findLocalStrictExtrema(values, policy, type, strict);
    require(strict == test::plainStrictExtrema(values, plainPolicy, type),
            "strict extrema are those of a plain search");

    std::vector<unsigned long> plateaus;
    findLocalExtrema(values, policy, type, plateaus);
    const ExtremaRangeColl plain = test::plainLocalExtrema(values, plainPolicy, type);
    require(plateaus == test::plainExpansion<unsigned long>(values, plain), "plateaus are those of a plain search");

    const T dilateFactor = input.number<T>();
    ExtremaRangeColl ranges;
    if (attempt([&] { findLocalDilatedExtrema(values, policy, type, dilateFactor, ranges); }))
        require(ranges == test::plainDilatedExtrema(values, plainPolicy, type, dilateFactor),
                "dilated extrema are those of a plain search");
    else
        require(dilateFactor < T(0), "only a negative factor is refused");

    const double minDistance = input.number();
    const T threshold = input.number<T>();
    const ExtremumCoords<unsigned long, T> ofIndex = [&values](const unsigned long& index, double& coord, T& value)
    {
        coord = double(index);
        value = values[index];
    };
    std::vector<unsigned long> kept(plateaus);
    filterExtrema(type, minDistance, threshold, ofIndex, kept);
    checkFiltered(type, minDistance, threshold, values, plateaus, kept);
    const ExtremumCoords<ExtremaRange, T> ofRange = [&values](const ExtremaRange& range, double& coord, T& value)
    { extractBasicExtremaCoords(values, range, coord, value); };
    filterExtrema(type, minDistance, threshold, ofRange, ranges);
}

/// Half of the numbers are ones that filters of integers meet.
float readParameter(FuzzInput& input)
{
    return input.flag() ? input.number<float>() : float(input.integer(0, 6));
}

template <class T>
void useFilters(FuzzInput& input, const std::vector<T>& values)
{
    const bool bValleys = input.flag();
    const auto type = input.enumeration<eTopHat1DExtremumType>(4);
    const float width = readParameter(input);
    const float step = readParameter(input);
    const float threshold = readParameter(input);
    std::vector<int> indices;
    const ovUInt32 nbRuns = tophatThreshold1D(values, bValleys, type, width, step, threshold, indices);
    const float reach = width / step;
    const auto r = static_cast<int>(!(reach > 0.0f) ? 0.0f : std::min(reach, float(g_nbMaxElements)));
    const int plainType = int(type) < 0 ? eTHET_Extremum + 1 : int(type);
    require(indices.size() == nbRuns, "runs are counted");
    require(indices == test::findPlainly(values, bValleys, plainType, r, threshold),
            "runs are those of a plain search");

    const float sigma = readParameter(input);
    const std::vector<float> smooth = gaussianSmoothing1D(values, sigma);
    if (sigma >= 0.0f && sigma < 1000.0f)
        require(areSame(smooth, test::smoothPlainly(values, sigma)), "the sequence is smoothed as by plain sums");
    else
        require(smooth.size() == values.size(), "each element is smoothed");
    if (!(sigma > -0.001f))
        require(std::all_of(smooth.begin(), smooth.end(), [](float value) { return value == 0.0f; }),
                "a sigma that is negative or no number gives 0");
}

template <class T>
void useStatistics(FuzzInput& input, const std::vector<T>& values)
{
    require(isSame(variance(values), test::plainVariance(values)), "the variance is that of a plain loop");
    const auto both = meanAndVariance(values);
    const auto plain = test::plainMeanAndVariance(values);
    require(isSame(both.first, plain.first) && isSame(both.second, plain.second), "both are those of a plain loop");
    require(isSame(mean(values), plain.first), "the mean is that of a plain loop");
    std::vector<T> others = input.numbers<T>(std::min<std::size_t>(values.size(), 32));
    others.resize(values.size(), T(1));
    require(isSame(correlation(values, others), test::plainCorrelation(values, others)), "so is the correlation");
    others.push_back(T(0));
    require(!attempt([&] { correlation(values, others); }), "sizes must not differ");
}

template <class T>
void useNumbers(FuzzInput& input)
{
    const auto value = input.number<double>();
    const auto single = input.number<float>();
    const T limited = saturatedRound<T, double>(value);
    require(!(value >= 0.0 && value < 100.0) || std::fabs(double(limited) - value) <= 0.5, "a number is rounded");
    round<T, double>(value);
    round<T, float>(single);
    saturatedRound<T, float>(single);
    const T a = input.number<T>();
    const T b = input.number<T>();
    const T tolerance = input.number<T>();
    require(compare(std::vector<T>{a}, std::vector<T>{b}, tolerance) == compare(a, b, tolerance),
            "sequences are compared as their elements");
    if (!(tolerance < T(0)) && (std::is_floating_point<T>::value || double(tolerance) < 9e18))
        require(compareRelative(std::vector<T>{a}, std::vector<T>{b}, tolerance) == compareRelative(a, b, tolerance),
                "so are they relative to each other");
}

template <class T>
void useType(FuzzInput& input)
{
    const std::vector<T> values = readSequence<T>(input);
    useNumbers<T>(input);
    useSearches(input, values);
    constexpr bool bLong = std::is_integral<T>::value && sizeof(T) == 8;
    if constexpr (!bLong)
        useStatistics(input, values);
    if constexpr (!bLong && !std::is_same<T, double>::value)
        useFilters(input, values);
}

} // namespace

} // namespace fuzz
} // namespace ovrix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using namespace ovrix::fuzz;
    constexpr void (*useEach[])(FuzzInput&) = {useType<signed char>,    useType<unsigned char>, useType<short>,
                                               useType<unsigned short>, useType<int>,           useType<unsigned int>,
                                               useType<long>,           useType<unsigned long>, useType<float>,
                                               useType<double>};
    FuzzInput input(pData, size);
    useEach[input.integer(0, 9)](input);
    return 0;
}
