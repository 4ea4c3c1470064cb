#include <OVRIXSerialization/BinaryForm.h>

#include <xxhash.h>

namespace ovrix
{

std::uint64_t details::computeFrameChecksum(const void* pContent, std::uint32_t frameNumber, std::uint32_t length)
{
    const std::uint64_t seed = std::uint64_t(frameNumber) << 32 | length;
    return XXH3_64bits_withSeed(pContent, length & ~g_lastFrameFlag, seed);
}

} // namespace ovrix
