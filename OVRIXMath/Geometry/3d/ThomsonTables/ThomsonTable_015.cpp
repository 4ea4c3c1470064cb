// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_015()
{
    static const ovReal64 tab[] = {
        1.90563402293, 0.190292014533,
        6.0807137046, 0.749189172283,
        4.31638971671, 0.862205807561,
        3.08197949235, 1.01147825886,
        1.90537182098, 1.11326100812,
        0.857806843113, 1.27449612844,
        5.27053621554, 1.37423732801,
        6.24248222476, 1.68709939082,
        3.55667696491, 1.81468612963,
        4.44867406853, 1.86442993533,
        2.56757829483, 1.90042705622,
        1.57234125794, 2.00592182194,
        5.37791229133, 2.38606175766,
        0.602099553372, 2.43681375307,
        3.21039407543, 2.80157225901,
    };
    static_assert(sizeof(tab) == 16 * 15);
    return tab;
}

} // namespace math
} // namespace ovrix
