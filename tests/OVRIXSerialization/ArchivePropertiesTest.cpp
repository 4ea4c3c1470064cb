#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <set>
#include <string>
#include <support/ArbitraryNumbers.h>
#include <support/ArchiveForms.h>
#include <support/PipeStream.h>
#include <vector>

namespace ovrix
{
namespace test
{

namespace
{

/// Expects that a value passes through both forms, from a file and from a pipe.
template <class T>
void checkPasses(const T& value)
{
    RC_ASSERT(passThrough<TextForm>(value) == value);
    RC_ASSERT(passThrough<BinaryForm>(value) == value);
    PipeStream stream(save<BinaryForm>(value));
    T restored{};
    BinaryIArchive archive(stream);
    archive >> makeIItem("value", restored);
    RC_ASSERT(restored == value);
}

} // namespace

RC_GTEST_PROP(ArchiveProperties, RealValuesPassToTheBit, ())
{
    const std::vector<double> values = *anyReals();
    RC_ASSERT(haveSameBits(passThrough<TextForm>(values), values));
    RC_ASSERT(haveSameBits(passThrough<BinaryForm>(values), values));
    for (const double& value : values)
    {
        const double fromText = passThrough<TextForm>(value);
        const double fromBinary = passThrough<BinaryForm>(value);
        RC_ASSERT(haveSameBits(&fromText, &value, 1));
        RC_ASSERT(haveSameBits(&fromBinary, &value, 1));
    }
}

RC_GTEST_PROP(ArchiveProperties, IntegersPass, (int a, unsigned int b, long c, unsigned long d))
{
    checkPasses(a);
    checkPasses(b);
    checkPasses(c);
    checkPasses(d);
}

RC_GTEST_PROP(ArchiveProperties, StringsOfAnyBytesPass, (const std::string& value))
{
    checkPasses(value);
}

RC_GTEST_PROP(ArchiveProperties, VectorsPass,
              (const std::vector<bool>& flags, const std::vector<unsigned int>& numbers,
               const std::vector<std::string>& texts))
{
    checkPasses(flags);
    checkPasses(numbers);
    checkPasses(texts);
}

RC_GTEST_PROP(ArchiveProperties, SetsOfSetsPass, (const std::set<std::set<unsigned int>>& value))
{
    checkPasses(value);
}

RC_GTEST_PROP(ArchiveProperties, MapsPass,
              (const std::map<double, std::vector<unsigned int>>& value, const std::map<std::string, bool>& flags))
{
    checkPasses(value);
    checkPasses(flags);
}

RC_GTEST_PROP(ArchiveProperties, ResultsPass, (bool outcome, const std::string& message))
{
    const BoolResult result(outcome, message);
    for (const BoolResult& restored : {passThrough<TextForm>(result), passThrough<BinaryForm>(result)})
    {
        RC_ASSERT(static_cast<bool>(restored) == outcome);
        RC_ASSERT(restored.getMessage() == message);
    }
}

} // namespace test
} // namespace ovrix
