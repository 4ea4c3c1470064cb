#pragma once

#include <gtest/gtest.h>

#include <string>
#include <support/ArchiveForms.h>

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

/// Expects that the golden archive of that name holds the value as its one item "value", and that today's code still
/// writes the same bytes.
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
}

/// As above, for a type that can be compared.
template <class Form, class T>
void checkGoldenArchive(const std::string& name, const T& value)
{
    checkGoldenArchive<Form>(name, value, [&](const T& restored) { return restored == value; });
}

} // namespace test
} // namespace ovrix
