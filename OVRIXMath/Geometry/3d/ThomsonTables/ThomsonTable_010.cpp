// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_010()
{
    static const ovReal64 tab[] = {
        0.0686363982842, 0.363450401815,
        3.80093009863, 0.818969897725,
        1.91612455141, 1.0007167291,
        5.36096174625, 1.31764888475,
        0.490182955182, 1.46341268318,
        2.9200526747, 1.66015187045,
        4.3300308944, 1.86895959361,
        1.50529337051, 2.09022744844,
        5.94079173494, 2.34747546826,
        3.21022905187, 2.77814225177,
    };
    static_assert(sizeof(tab) == 16 * 10);
    return tab;
}

} // namespace math
} // namespace ovrix
