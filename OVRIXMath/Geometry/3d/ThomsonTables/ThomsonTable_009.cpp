// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_009()
{
    static const ovReal64 tab[] = {
        1.81018503374, 0.307363236753,
        4.61663791963, 1.03318021022,
        6.05215403759, 1.05002923945,
        3.21194224316, 1.36707320322,
        1.99948548552, 1.50917495744,
        0.808149034306, 1.73002795068,
        4.16782632217, 2.16413006329,
        5.70844744722, 2.21380298775,
        2.1367783226, 2.71258112205,
    };
    static_assert(sizeof(tab) == 16 * 9);
    return tab;
}

} // namespace math
} // namespace ovrix
