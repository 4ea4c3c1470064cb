#pragma once

#include <string>
#include <vector>

namespace ovrix
{
namespace test
{

/// The first example in the documentation of a header: the lines between "```cpp" and "```", without the marks of the
/// comment and without indentation.
///
/// A test shows that the example compiles by finding it, word for word, in a source that is compiled:
///
/// ```cpp
/// EXPECT_THAT(readCode(__FILE__), HasSubstr(readExample("OVRIXMath/Optimization/NonLinearSolver.h")));
/// ```
///
/// @param header path from the project's root
std::string readExample(const std::string& header);

/// All examples in the documentation of a header, each as above.
std::vector<std::string> readExamples(const std::string& header);

/// The examples of a guide in Markdown, each as above.
///
/// @param guide path from the project's root
std::vector<std::string> readGuideExamples(const std::string& guide);

/// The lines of a source file without indentation.
///
/// @param source path from the project's root; `__FILE__` is one
std::string readCode(const std::string& source);

} // namespace test
} // namespace ovrix
