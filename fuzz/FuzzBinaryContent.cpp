#include <OVRIXSerialization/BinaryIArchive.h>

#include <ReadInEveryWay.h>
#include <cstddef>
#include <cstdint>
#include <support/BinaryArchiveBytes.h>

/// The input is what a binary archive holds in its frames. It is put into one frame, and into two.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using ovrix::fuzz::readInEveryWay;
    constexpr std::size_t maxSize = 1 << 20;
    if (size > maxSize)
        return -1;
    const std::string content(reinterpret_cast<const char*>(pData), size);
    readInEveryWay<ovrix::BinaryIArchive>(ovrix::test::makeBinaryArchive({content}));
    if (size > 1)
        readInEveryWay<ovrix::BinaryIArchive>(
            ovrix::test::makeBinaryArchive({content.substr(0, size / 2), content.substr(size / 2)}));
    return 0;
}
