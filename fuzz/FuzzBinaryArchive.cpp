#include <OVRIXSerialization/BinaryIArchive.h>

#include <ReadInEveryWay.h>
#include <cstddef>
#include <cstdint>

/// The input is a binary archive. Its checksums keep most changes from the code behind them, which
/// FuzzBinaryContent.cpp is for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    ovrix::fuzz::readInEveryWay<ovrix::BinaryIArchive>(std::string(reinterpret_cast<const char*>(pData), size));
    return 0;
}
