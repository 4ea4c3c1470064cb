#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>

#include <cmath>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <vector>

namespace ovrix
{
namespace math
{

using namespace test;

TEST(EigenDecomposition, GivesEigenvaluesInRisingOrder)
{
    Vector w(2);
    Matrix V(2, 2);
    EXPECT_EQ(eigenDecomposition(makeMatrix({{2.0, 1.0}, {1.0, 2.0}}), w, V), 2u);
    EXPECT_NEAR(w(0), 1.0, 1e-15);
    EXPECT_NEAR(w(1), 3.0, 1e-15);
    EXPECT_NEAR(std::fabs(V(0, 1)), std::sqrt(0.5), 1e-15);
    EXPECT_NEAR(V(0, 1), V(1, 1), 1e-15);
}

TEST(EigenDecomposition3, TakesTheDiagonalCaseOnTheIdentity)
{
    double l0, l1, l2, v0x, v0y, v0z, v1x, v1y, v1z, v2x, v2y, v2z;
    eigenDecomposition(1.0, 0.0, 0.0, 1.0, 0.0, 1.0, l0, l1, l2, v0x, v0y, v0z, v1x, v1y, v1z, v2x, v2y, v2z);
    EXPECT_EQ((std::vector<double>{l0, l1, l2}), (std::vector<double>{1.0, 1.0, 1.0}));
    EXPECT_EQ((std::vector<double>{v0x, v0y, v0z, v1x, v1y, v1z, v2x, v2y, v2z}),
              (std::vector<double>{0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0.0}));
}

} // namespace math
} // namespace ovrix
