#pragma once

#include <gtest/gtest.h>

#include <string>
#include <support/ArchiveDamage.h>
#include <support/ArchiveForms.h>
#include <type_traits>

namespace ovrix
{
namespace test
{

/// The whole file.
std::string readFile(const std::string& path);

/// Path of a golden archive of version 1 of the archive forms.
std::string getGoldenArchivePath(const std::string& fileName);

/// Keeps what was written beside the test program, where a new golden file is taken from once it has been looked at.
///
/// @return its path
std::string keepOutput(const std::string& fileName, const std::string& bytes);

/// Expects that a binary archive of a T raises wherever it is cut short, and whichever of its bits is turned over: none
/// of them is without a meaning.
template <class T>
void checkDamage(const std::string& bytes)
{
    const auto read = [](const std::string& damaged)
    {
        T value{};
        load<BinaryForm>(damaged, value);
    };
    EXPECT_EQ(readTruncations(bytes, read).nbRaised, bytes.size());
    EXPECT_EQ(readBitFlips(bytes, read).nbRaised, 8 * bytes.size());
}

/// Expects that the golden archive of that name holds the value as its one item "value", that today's code still writes
/// the same bytes, and that a binary one is refused when it is damaged in any way.
///
/// @param isSame called with the value that was restored; whether it is the one that was written
template <class Form, class T, class IsSame>
void checkGoldenArchive(const std::string& name, const T& value, const IsSame& isSame)
{
    const std::string fileName = name + Form::s_extension;
    const std::string written = save<Form>(value);
    const std::string golden = readFile(getGoldenArchivePath(fileName));
    EXPECT_TRUE(written == golden) << "What is written today stands in " << keepOutput(fileName, written);
    T restored{};
    load<Form>(golden, restored);
    EXPECT_TRUE(isSame(restored)) << fileName;
    if constexpr (std::is_same<Form, BinaryForm>::value)
        checkDamage<T>(golden);
}

/// As above, for a type that can be compared.
template <class Form, class T>
void checkGoldenArchive(const std::string& name, const T& value)
{
    checkGoldenArchive<Form>(name, value, [&](const T& restored) { return restored == value; });
}

} // namespace test
} // namespace ovrix
