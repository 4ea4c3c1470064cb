// A process whose own static objects use the library before main() begins and after it has ended: fits, archives,
// factories, failures and the log work there as anywhere.

#include "library_use.h"

using namespace ovrix::test;

namespace
{

/// Uses the library for the first time, and for the last.
struct User
{
    User()
    {
        useLibrary("before");
    }

    ~User()
    {
        useLibrary("after");
    }
};

const User g_user;

} // namespace

int main()
{
    useLibrary("in");
}
