#pragma once

#include <functional>
#include <string>
#include <vector>

namespace ovrix
{
namespace test
{

/// A call under test with the name that a failure tells.
struct NamedCall
{
    std::string name;
    std::function<void()> call;
};

/// Expects each call to return, or to raise an OVRIXMathException with the text `accepted`, and all of them together to
/// take less than some seconds of processor time.
///
/// The calls run in a child process, so that one that never ends, or that crashes, fails the test and is named.
void expectEnds(const std::string& accepted, const std::vector<NamedCall>& calls);

} // namespace test
} // namespace ovrix
