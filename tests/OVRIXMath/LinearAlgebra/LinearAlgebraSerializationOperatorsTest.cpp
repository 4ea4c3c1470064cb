#include <OVRIXMath/LinearAlgebra/LinearAlgebraSerializationOperators.h>
#include <OVRIXSerialization/ArchiveSectionManager.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <support/AllocationCount.h>
#include <support/ArbitraryNumbers.h>
#include <support/ArchiveForms.h>
#include <support/BinaryArchiveBytes.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/GoldenArchive.h>
#include <support/PipeStream.h>
#include <support/SparseFile.h>
#include <vector>

namespace ovrix
{
namespace test
{

namespace
{

using boost::numeric::ublas::bounded_matrix;
using boost::numeric::ublas::bounded_vector;
using math::Matrix;
using math::Vector;

/// A vector or matrix of fixed size that holds the numbers from 1 on.
template <class T>
T makeBounded()
{
    T value;
    double element = 0.0;
    for (double& target : value.data())
        target = ++element;
    return value;
}

template <class T>
bool areSame(const T& first, const T& second)
{
    return std::equal(first.data().begin(), first.data().end(), second.data().begin(), second.data().end());
}

bool areSame(const Matrix& first, const Matrix& second)
{
    return first.size1() == second.size1() && first.size2() == second.size2() &&
           haveSameBits(toStd(first), toStd(second));
}

/// Names of the double items that the section of a value holds, in order; their values must be the numbers from 1 on.
template <class T>
std::vector<std::string> readElementNames(const T& value)
{
    std::vector<std::string> names;
    std::istringstream stream(save<BinaryForm>(value));
    BinaryIArchive archive(stream);
    const ArchiveSectionManager section(archive, "value");
    while (archive.peekEntry().type == eAE_Double)
    {
        names.push_back(archive.peekEntry().name);
        double element = 0.0;
        archive >> makeIItem(names.back(), element);
        EXPECT_EQ(element, static_cast<double>(names.size()));
    }
    return names;
}

using Names = std::vector<std::string>;

} // namespace

template <class Form>
class LinearAlgebraSerialization : public ::testing::Test
{
};

TYPED_TEST_SUITE(LinearAlgebraSerialization, ArchiveForms);

TYPED_TEST(LinearAlgebraSerialization, AVectorPasses)
{
    EXPECT_EQ(toStd(passThrough<TypeParam>(makeVector({1.5, -2.0, 0.1}))), toStd(makeVector({1.5, -2.0, 0.1})));
}

TYPED_TEST(LinearAlgebraSerialization, AMatrixPasses)
{
    const Matrix matrix = makeMatrix({{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}});
    EXPECT_TRUE(areSame(passThrough<TypeParam>(matrix), matrix));
}

TYPED_TEST(LinearAlgebraSerialization, EmptyVectorsAndMatricesKeepTheirSizes)
{
    EXPECT_EQ(passThrough<TypeParam>(Vector()).size(), 0u);
    for (const Matrix& matrix : {Matrix(0, 0), Matrix(0, 3), Matrix(3, 0)})
    {
        const Matrix restored = passThrough<TypeParam>(matrix);
        EXPECT_EQ(restored.size1(), matrix.size1());
        EXPECT_EQ(restored.size2(), matrix.size2());
    }
}

TYPED_TEST(LinearAlgebraSerialization, ManyRowsOrColumnsWithoutElementsTakeNoMemory)
{
    const std::size_t size = std::numeric_limits<ovUInt32>::max();
    for (const Matrix& matrix : {Matrix(size, 0), Matrix(0, size)})
    {
        const std::string bytes = save<TypeParam>(matrix);
        Matrix restored;
        resetLargestAllocation();
        load<TypeParam>(bytes, restored);
        EXPECT_LE(getLargestAllocation(), 40000u);
        EXPECT_EQ(restored.size1(), matrix.size1());
        EXPECT_EQ(restored.size2(), matrix.size2());
    }
}

TYPED_TEST(LinearAlgebraSerialization, WhatAMatrixHeldIsDropped)
{
    Matrix matrix(7, 9, 1.0);
    load<TypeParam>(save<TypeParam>(makeMatrix({{5.0}})), matrix);
    EXPECT_TRUE(areSame(matrix, makeMatrix({{5.0}})));
}

TYPED_TEST(LinearAlgebraSerialization, BoundedVectorsPass)
{
    EXPECT_TRUE(areSame(passThrough<TypeParam>(makeBounded<bounded_vector<double, 2>>()),
                        makeBounded<bounded_vector<double, 2>>()));
    EXPECT_TRUE(areSame(passThrough<TypeParam>(makeBounded<bounded_vector<double, 3>>()),
                        makeBounded<bounded_vector<double, 3>>()));
    EXPECT_TRUE(areSame(passThrough<TypeParam>(makeBounded<bounded_vector<double, 4>>()),
                        makeBounded<bounded_vector<double, 4>>()));
}

TYPED_TEST(LinearAlgebraSerialization, BoundedMatricesPass)
{
    EXPECT_TRUE(areSame(passThrough<TypeParam>(makeBounded<bounded_matrix<double, 2, 2>>()),
                        makeBounded<bounded_matrix<double, 2, 2>>()));
    EXPECT_TRUE(areSame(passThrough<TypeParam>(makeBounded<bounded_matrix<double, 3, 3>>()),
                        makeBounded<bounded_matrix<double, 3, 3>>()));
    EXPECT_TRUE(areSame(passThrough<TypeParam>(makeBounded<bounded_matrix<double, 4, 4>>()),
                        makeBounded<bounded_matrix<double, 4, 4>>()));
}

TYPED_TEST(LinearAlgebraSerialization, ABoundedVectorOfFewerElementsIsNotWritten)
{
    expectRaises<OVRIXSerializationException>(
        "Bounded type holds 2 elements while archives hold all 4 of its type, in section \"/value\"",
        [] { save<TypeParam>(bounded_vector<double, 4>(2)); });
}

TYPED_TEST(LinearAlgebraSerialization, ABoundedMatrixOfFewerElementsIsNotWritten)
{
    for (const auto& matrix : {bounded_matrix<double, 3, 3>(2, 3), bounded_matrix<double, 3, 3>(3, 2)})
        EXPECT_THROW(save<TypeParam>(matrix), OVRIXSerializationException);
    expectRaises<OVRIXSerializationException>(
        "Bounded type holds 2 x 3 elements while archives hold all 3 x 3 of its type, in section \"/value\"",
        [] { save<TypeParam>(bounded_matrix<double, 3, 3>(2, 3)); });
}

TYPED_TEST(LinearAlgebraSerialization, BoundedTypesOfFewerElementsAreFilled)
{
    bounded_vector<double, 4> vector(2);
    load<TypeParam>(save<TypeParam>(makeBounded<bounded_vector<double, 4>>()), vector);
    EXPECT_EQ(vector.size(), 4u);
    EXPECT_TRUE(areSame(vector, makeBounded<bounded_vector<double, 4>>()));
    bounded_matrix<double, 3, 3> matrix(2, 1);
    load<TypeParam>(save<TypeParam>(makeBounded<bounded_matrix<double, 3, 3>>()), matrix);
    EXPECT_EQ(matrix.size1(), 3u);
    EXPECT_EQ(matrix.size2(), 3u);
    EXPECT_TRUE(areSame(matrix, makeBounded<bounded_matrix<double, 3, 3>>()));
}

TEST(LinearAlgebraSerialization, BoundedVectorsAreNamedItems)
{
    EXPECT_EQ(readElementNames(makeBounded<bounded_vector<double, 2>>()), (Names{"x", "y"}));
    EXPECT_EQ(readElementNames(makeBounded<bounded_vector<double, 3>>()), (Names{"x", "y", "z"}));
    EXPECT_EQ(readElementNames(makeBounded<bounded_vector<double, 4>>()), (Names{"x", "y", "z", "w"}));
}

TEST(LinearAlgebraSerialization, BoundedMatricesAreNamedItemsRowAfterRow)
{
    EXPECT_EQ(readElementNames(makeBounded<bounded_matrix<double, 2, 2>>()), (Names{"mXX", "mXY", "mYX", "mYY"}));
    EXPECT_EQ(readElementNames(makeBounded<bounded_matrix<double, 3, 3>>()),
              (Names{"mXX", "mXY", "mXZ", "mYX", "mYY", "mYZ", "mZX", "mZY", "mZZ"}));
    EXPECT_EQ(readElementNames(makeBounded<bounded_matrix<double, 4, 4>>()),
              (Names{"mXX", "mXY", "mXZ", "mXW", "mYX", "mYY", "mYZ", "mYW", "mZX", "mZY", "mZZ", "mZW", "mWX", "mWY",
                     "mWZ", "mWW"}));
}

TEST(LinearAlgebraSerialization, TheElementsOfAMatrixAreItemsInATextArchive)
{
    readArchive<TextForm>(save<TextForm>(makeMatrix({{1.0, 2.0}})),
                          [](BaseIArchive& archive)
                          {
                              ovUInt32 nbRows = 0;
                              ovUInt32 nbColumns = 0;
                              double first = 0.0;
                              double second = 0.0;
                              const ArchiveSectionManager section(archive, "value");
                              archive >> makeIItem("nbRows", nbRows) >> makeIItem("nbColumns", nbColumns);
                              archive >> makeIItem("value", first) >> makeIItem("value", second);
                              EXPECT_EQ(nbRows, 1u);
                              EXPECT_EQ(nbColumns, 2u);
                              EXPECT_EQ(first, 1.0);
                              EXPECT_EQ(second, 2.0);
                          });
}

TEST(LinearAlgebraSerialization, TheElementsOfAMatrixAreABlockInABinaryArchive)
{
    readArchive<BinaryForm>(save<BinaryForm>(makeMatrix({{1.0, 2.0}})),
                            [](BaseIArchive& archive)
                            {
                                ovUInt32 nbRows = 0;
                                ovUInt32 nbColumns = 0;
                                double elements[2] = {};
                                const ArchiveSectionManager section(archive, "value");
                                archive >> makeIItem("nbRows", nbRows) >> makeIItem("nbColumns", nbColumns);
                                archive.readBlock(elements, sizeof(elements));
                                EXPECT_EQ(elements[0], 1.0);
                                EXPECT_EQ(elements[1], 2.0);
                            });
}

TEST(LinearAlgebraSerialization, TheElementsOfAVectorAreABlockInABinaryArchive)
{
    readArchive<BinaryForm>(save<BinaryForm>(makeVector({1.0})),
                            [](BaseIArchive& archive)
                            {
                                ovUInt32 size = 0;
                                double element = 0.0;
                                const ArchiveSectionManager section(archive, "value");
                                archive >> makeIItem("size", size);
                                archive.readBlock(&element, sizeof(element));
                                EXPECT_EQ(size, 1u);
                                EXPECT_EQ(element, 1.0);
                            });
}

/// An archive of a matrix that claims those sizes and holds one element.
template <class Form>
std::string claimSizes(ovUInt32 nbRows, ovUInt32 nbColumns)
{
    return writeArchive<Form>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager section(archive, "value");
            archive << makeOItem("nbRows", nbRows) << makeOItem("nbColumns", nbColumns) << makeOItem("value", 1.0);
        });
}

TYPED_TEST(LinearAlgebraSerialization, SizesBeyondTheInputRaiseAndTakeNoMemory)
{
    for (const ovUInt32 size : {2u, 65536u, std::numeric_limits<ovUInt32>::max()})
    {
        const std::string bytes = claimSizes<TypeParam>(size, size);
        Matrix matrix(1, 1, 7.0);
        resetLargestAllocation();
        EXPECT_THROW(load<TypeParam>(bytes, matrix), OVRIXSerializationException);
        EXPECT_LE(getLargestAllocation(), 20000u);
        EXPECT_TRUE(areSame(matrix, makeMatrix({{7.0}})));
    }
}

RC_GTEST_PROP(LinearAlgebraSerialization, VectorsPassToTheBit, ())
{
    const std::vector<double> elements = *anyReals();
    Vector vector(elements.size());
    std::copy(elements.begin(), elements.end(), vector.begin());
    RC_ASSERT(haveSameBits(toStd(passThrough<TextForm>(vector)), elements));
    RC_ASSERT(haveSameBits(toStd(passThrough<BinaryForm>(vector)), elements));
}

RC_GTEST_PROP(LinearAlgebraSerialization, MatricesPassToTheBit, ())
{
    const auto nbRows = *rc::gen::inRange<std::size_t>(0, 12);
    const auto nbColumns = *rc::gen::inRange<std::size_t>(0, 12);
    const auto elements = *rc::gen::container<std::vector<double>>(nbRows * nbColumns, anyReal());
    Matrix matrix(nbRows, nbColumns);
    std::copy(elements.begin(), elements.end(), matrix.data().begin());
    RC_ASSERT(areSame(passThrough<TextForm>(matrix), matrix));
    RC_ASSERT(areSame(passThrough<BinaryForm>(matrix), matrix));
}

TEST(LinearAlgebraSerialization, ElementsInFrontOfAHoleFillLittleMemory)
{
    // 300,000 rows and columns, whose elements take 720 GB.
    const std::string head("{\0\5valueu\0\6nbRows\xE0\x93\4\0u\0\11nbColumns\xE0\x93\4\0", 37);
    const std::string blockHead("#\x80\xC0\xE0\x9A\xFA\x14", 7);
    const SparseFile sparse("matrix", makeBinaryHeader() + makeBinaryFrame(head + blockHead, 0, false));
    if (!sparse.exists())
        GTEST_SKIP() << "The file system has no holes";
    const std::size_t peak = startPeakMemory();
    std::ifstream file(sparse.getPath(), std::ios::binary);
    BinaryIArchive archive(file);
    Matrix matrix;
    resetLargestAllocation();
    expectRaises<OVRIXSerializationException>(
        "Frame 1 of archive has length 0, which is not in [1, 1048576], in section \"/value\"",
        [&] { archive >> makeIItem("value", matrix); });
    constexpr std::size_t mebibyte = 1 << 20;
    EXPECT_LE(getLargestAllocation(), 257 * mebibyte);
    EXPECT_LE(getPeakMemory() - peak, 100 * mebibyte);
}

TEST(LinearAlgebraSerialization, AVectorIsReadIntoItsOwnMemory)
{
    const Vector vector(1000000, 0.1);
    std::istringstream stream(save<BinaryForm>(vector));
    Vector restored;
    BinaryIArchive archive(stream);
    resetLargestAllocation();
    archive >> makeIItem("value", restored);
    EXPECT_EQ(getLargestAllocation(), vector.size() * sizeof(double));
    EXPECT_EQ(toStd(restored), toStd(vector));
}

TEST(LinearAlgebraSerialization, AMatrixFromAPipePasses)
{
    Matrix matrix(300, 400);
    double element = 0.0;
    for (double& target : matrix.data())
        target = ++element;
    PipeStream stream(save<BinaryForm>(matrix));
    Matrix restored;
    BinaryIArchive archive(stream);
    archive >> makeIItem("value", restored);
    EXPECT_TRUE(areSame(restored, matrix));
}

TYPED_TEST(LinearAlgebraSerialization, GoldenArchivesOfVectors)
{
    const Vector vector =
        makeVector({0.0, -0.0, 1.0 / 3.0, std::numeric_limits<double>::infinity(), fromBits(0x7FF8000000000ABC)});
    checkGoldenArchive<TypeParam>("Vector", vector,
                                  [&](const Vector& restored) { return haveSameBits(toStd(restored), toStd(vector)); });
}

TYPED_TEST(LinearAlgebraSerialization, GoldenArchivesOfMatrices)
{
    const Matrix matrix = makeMatrix({{1.0, 2.0, 3.0}, {4.0, 5.0, -0.1}});
    checkGoldenArchive<TypeParam>("Matrix", matrix, [&](const Matrix& restored) { return areSame(restored, matrix); });
}

template <class Form, class T>
void checkGoldenBounded(const std::string& name)
{
    const T value = makeBounded<T>();
    checkGoldenArchive<Form>(name, value, [&](const T& restored) { return areSame(restored, value); });
}

TYPED_TEST(LinearAlgebraSerialization, GoldenArchivesOfBoundedTypes)
{
    checkGoldenBounded<TypeParam, bounded_vector<double, 2>>("bounded_vector2");
    checkGoldenBounded<TypeParam, bounded_vector<double, 3>>("bounded_vector3");
    checkGoldenBounded<TypeParam, bounded_vector<double, 4>>("bounded_vector4");
    checkGoldenBounded<TypeParam, bounded_matrix<double, 2, 2>>("bounded_matrix2");
    checkGoldenBounded<TypeParam, bounded_matrix<double, 3, 3>>("bounded_matrix3");
    checkGoldenBounded<TypeParam, bounded_matrix<double, 4, 4>>("bounded_matrix4");
}

} // namespace test
} // namespace ovrix
