#include <gmock/gmock.h>

#include <algorithm>
#include <orientations/Evenness.h>
#include <orientations/SpherePicture.h>
#include <sstream>
#include <string>

namespace ovrix
{
namespace orientations
{

namespace
{

std::string draw(const std::vector<Panel>& panels)
{
    std::ostringstream stream;
    drawSpheres(panels, stream);
    return stream.str();
}

std::size_t count(const std::string& text, const std::string& part)
{
    std::size_t nbFound = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++nbFound;
    return nbFound;
}

} // namespace

TEST(SpherePicture, HasACircleForEachPoint)
{
    const std::string picture = draw({{makeFibonacciSpiral(20), "twenty"}, {makeFibonacciSpiral(30), "thirty"}});
    constexpr std::size_t nbInLegend = 4;
    EXPECT_EQ(count(picture, "fill=\"#") - 1, 20u + 30u + nbInLegend); // one fill is the background's
    EXPECT_THAT(picture, testing::HasSubstr(">twenty</text>"));
    EXPECT_THAT(picture, testing::HasSubstr(">thirty</text>"));
}

TEST(SpherePicture, PutsWhatIsBehindIntoTheFaintHalf)
{
    const std::string picture = draw({{makeFibonacciSpiral(20), ""}});
    const std::size_t back = picture.find("class=\"back\"");
    const std::size_t front = picture.find("class=\"front\"");
    ASSERT_LT(back, front);
    EXPECT_EQ(count(picture.substr(back, front - back), "<circle"), 10u);
}

} // namespace orientations
} // namespace ovrix
