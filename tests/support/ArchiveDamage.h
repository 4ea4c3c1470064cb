#pragma once

#include <OVRIXSerialization/OVRIXSerializationException.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <support/AllocationCount.h>

namespace ovrix
{
namespace test
{

/// What came of reading damaged archives.
struct DamageReport
{
    /// How many raised an OVRIXSerializationException.
    std::size_t nbRaised = 0;

    /// How many were read to the end.
    std::size_t nbRead = 0;
};

/// Reads one damaged archive; anything but success and OVRIXSerializationException is a failure of the test, and so is
/// memory that the few bytes of the archive do not account for.
template <class Read>
void readDamaged(const std::string& bytes, const Read& read, DamageReport& report)
{
    resetLargestAllocation();
    try
    {
        read(bytes);
        ++report.nbRead;
    }
    catch (const OVRIXSerializationException&)
    {
        ++report.nbRaised;
    }
    catch (const std::exception& exception)
    {
        ADD_FAILURE() << "Another exception: " << exception.what();
    }
    constexpr std::size_t bufferSize = 1 << 20; // of streams, frames and the tree of a text
    EXPECT_LE(getLargestAllocation(), 16 * bytes.size() + bufferSize);
}

/// Reads the archive cut short at every place.
template <class Read>
DamageReport readTruncations(const std::string& bytes, const Read& read)
{
    DamageReport report;
    for (std::size_t size = 0; size < bytes.size(); ++size)
        readDamaged(bytes.substr(0, size), read, report);
    return report;
}

/// Reads the archive with every single bit of it turned over.
template <class Read>
DamageReport readBitFlips(const std::string& bytes, const Read& read)
{
    DamageReport report;
    for (std::size_t bit = 0; bit < 8 * bytes.size(); ++bit)
    {
        std::string damaged = bytes;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
        readDamaged(damaged, read, report);
    }
    return report;
}

} // namespace test
} // namespace ovrix
