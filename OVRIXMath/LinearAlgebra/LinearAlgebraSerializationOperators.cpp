#include <OVRIXMath/LinearAlgebra/LinearAlgebraSerializationOperators.h>
#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/NumberSerialization.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace ovrix
{

namespace
{

using boost::numeric::ublas::bounded_matrix;
using boost::numeric::ublas::bounded_vector;

/// Names of the elements of vectors; those of a shorter vector come first.
constexpr const char* g_vectorNames[] = {"x", "y", "z", "w"};

/// Names of the elements of matrices, row after row, by the number of rows.
template <std::size_t N>
constexpr const char* g_matrixNames[N * N] = {};
template <>
constexpr const char* g_matrixNames<2>[] = {"mXX", "mXY", "mYX", "mYY"};
template <>
constexpr const char* g_matrixNames<3>[] = {"mXX", "mXY", "mXZ", "mYX", "mYY", "mYZ", "mZX", "mZY", "mZZ"};
template <>
constexpr const char* g_matrixNames<4>[] = {"mXX", "mXY", "mXZ", "mXW", "mYX", "mYY", "mYZ", "mYW",
                                            "mZX", "mZY", "mZZ", "mZW", "mWX", "mWY", "mWZ", "mWW"};

template <std::size_t N>
constexpr const char* const* getNames(const bounded_vector<double, N>&)
{
    return g_vectorNames;
}

template <std::size_t N>
constexpr const char* const* getNames(const bounded_matrix<double, N, N>&)
{
    return g_matrixNames<N>;
}

/// Checks that a container, which may hold fewer elements than it has room for, holds as many as its form has.
template <std::size_t N>
void checkSize(const BaseOArchive& archive, const bounded_vector<double, N>& vector)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(vector.size() == N, 33, std::to_string(vector.size()), std::to_string(N),
                                    archive.getSectionPath());
}

template <std::size_t N>
void checkSize(const BaseOArchive& archive, const bounded_matrix<double, N, N>& matrix)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(matrix.size1() == N && matrix.size2() == N, 33,
                                    std::to_string(matrix.size1()) + " x " + std::to_string(matrix.size2()),
                                    std::to_string(N) + " x " + std::to_string(N), archive.getSectionPath());
}

template <class T>
BaseOArchive& writeBounded(BaseOArchive& archive, const SerializationOItem<T>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    checkSize(archive, item.getValue());
    const char* const* pName = getNames(item.getValue());
    for (const double& element : item.getValue().data())
        archive << makeOItem(*pName++, element);
    return archive;
}

template <class T>
BaseIArchive& readBounded(BaseIArchive& archive, const SerializationIItem<T>& item)
{
    T value;
    {
        const ArchiveSectionManager section(archive, item.getName());
        const char* const* pName = getNames(value);
        for (double& element : value.data())
            archive >> makeIItem(*pName++, element);
    }
    item.getValue() = value;
    return archive;
}

/// Reads `count` elements into the empty storage of a vector or matrix.
template <class Storage>
void readElements(BaseIArchive& archive, std::size_t count, Storage& storage)
{
    const auto resize = [&storage](std::size_t, std::size_t capacity)
    {
        if (storage.size() == 0)
            storage.resize(capacity); // without setting elements that are about to be read
        else if (storage.size() < capacity)
            storage.resize(capacity, 0.0);
        return storage.begin();
    };
    details::readNumbers<double>(archive, count, resize);
}

} // namespace

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::Vector>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const math::Vector& vector = item.getValue();
    details::writeSize(archive, "size", vector.size());
    details::writeNumbers(archive, vector.data().begin(), vector.size());
    return archive;
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::Vector>& item)
{
    math::Vector vector;
    {
        const ArchiveSectionManager section(archive, item.getName());
        readElements(archive, details::readSize(archive, "size"), vector.data());
    }
    item.getValue().swap(vector);
    return archive;
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::Matrix>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const math::Matrix& matrix = item.getValue();
    details::writeSize(archive, "nbRows", matrix.size1());
    details::writeSize(archive, "nbColumns", matrix.size2());
    details::writeNumbers(archive, matrix.data().begin(), matrix.size1() * matrix.size2());
    return archive;
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::Matrix>& item)
{
    math::Matrix matrix;
    {
        const ArchiveSectionManager section(archive, item.getName());
        const std::size_t nbRows = details::readSize(archive, "nbRows");
        const std::size_t nbColumns = details::readSize(archive, "nbColumns");
        readElements(archive, nbRows * nbColumns, matrix.data());
        matrix.resize(nbRows, nbColumns, false); // the storage has that size already and stays
    }
    item.getValue().swap(matrix);
    return archive;
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bounded_vector<double, 2>>& item)
{
    return writeBounded(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bounded_vector<double, 2>>& item)
{
    return readBounded(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bounded_vector<double, 3>>& item)
{
    return writeBounded(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bounded_vector<double, 3>>& item)
{
    return readBounded(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bounded_vector<double, 4>>& item)
{
    return writeBounded(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bounded_vector<double, 4>>& item)
{
    return readBounded(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bounded_matrix<double, 2, 2>>& item)
{
    return writeBounded(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bounded_matrix<double, 2, 2>>& item)
{
    return readBounded(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bounded_matrix<double, 3, 3>>& item)
{
    return writeBounded(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bounded_matrix<double, 3, 3>>& item)
{
    return readBounded(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bounded_matrix<double, 4, 4>>& item)
{
    return writeBounded(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bounded_matrix<double, 4, 4>>& item)
{
    return readBounded(archive, item);
}

} // namespace ovrix
