// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_014()
{
    static const ovReal64 tab[] = {
        2.17110171013, 0.279880171805,
        5.43666647207, 0.819870954175,
        4.22110326527, 0.950091839396,
        0.330542488747, 1.00231133632,
        3.21165653693, 1.22712966735,
        1.31523076709, 1.27271240965,
        2.26336319125, 1.37659596293,
        4.93029377186, 1.78572241811,
        5.87908527388, 1.81135683238,
        3.97755379164, 1.99618732385,
        0.556402624819, 2.05174516381,
        2.91353352698, 2.2614620992,
        1.66311507103, 2.29431017122,
        5.31269436372, 2.86171248178,
    };
    static_assert(sizeof(tab) == 16 * 14);
    return tab;
}

} // namespace math
} // namespace ovrix
