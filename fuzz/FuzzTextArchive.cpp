#include <OVRIXSerialization/TextIArchive.h>

#include <ReadInEveryWay.h>
#include <cstddef>
#include <cstdint>

/// The input is a text archive.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    ovrix::fuzz::readInEveryWay<ovrix::TextIArchive>(std::string(reinterpret_cast<const char*>(pData), size));
    return 0;
}
