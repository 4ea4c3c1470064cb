// A process with a static object that stands idle until its destructor uses the library, after main() has ended. What
// the library makes at its first use, in main(), is younger than that object, and still has to be there. With any
// argument main() does not use it either.

#include "library_use.h"

using namespace ovrix::test;

namespace
{

/// Uses the library for the last time.
struct LateUser
{
    ~LateUser()
    {
        useLibrary("after");
    }
};

const LateUser g_lateUser;

} // namespace

int main(int argc, char**)
{
    if (argc == 1)
        useLibrary("in");
}
