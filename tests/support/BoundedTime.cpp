#include <OVRIXMath/OVRIXMathException.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>
#include <support/BoundedTime.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ovrix
{
namespace test
{

namespace
{

constexpr rlim_t g_nbSeconds = 20;

bool ends(const std::string& accepted, const NamedCall& call)
{
    try
    {
        call.call();
        return true;
    }
    catch (const math::OVRIXMathException& exception)
    {
        return exception.what() == accepted;
    }
    catch (...)
    {
        return false;
    }
}

/// Runs the calls in order and leaves the process, with a failure at the first that goes wrong; `*pIndex` tells where.
[[noreturn]] void runInChild(const std::string& accepted, const std::vector<NamedCall>& calls, std::size_t* pIndex)
{
    const rlimit limit{g_nbSeconds, g_nbSeconds + 1};
    setrlimit(RLIMIT_CPU, &limit);
    for (; *pIndex < calls.size(); ++*pIndex)
    {
        if (!ends(accepted, calls[*pIndex]))
            _exit(EXIT_FAILURE);
    }
    _exit(EXIT_SUCCESS);
}

} // namespace

void expectEnds(const std::string& accepted, const std::vector<NamedCall>& calls)
{
    void* const pShared = mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pShared, MAP_FAILED);
    std::size_t* const pIndex = new (pShared) std::size_t(0);
    const pid_t child = fork();
    ASSERT_NE(child, -1);
    if (child == 0)
        runInChild(accepted, calls, pIndex);

    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    const std::string name = *pIndex < calls.size() ? calls[*pIndex].name : "none";
    EXPECT_FALSE(WIFSIGNALED(status)) << name << " ended with signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), EXIT_SUCCESS) << name << " did not return as expected";
    munmap(pShared, sizeof(std::size_t));
}

} // namespace test
} // namespace ovrix
