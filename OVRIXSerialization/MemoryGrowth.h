#pragma once

#include <algorithm>
#include <cstddef>

/// @file
/// How memory grows while an archive is read.

namespace ovrix
{
namespace details
{

/// Bytes that memory is filled for at first on an input of unknown length.
constexpr std::size_t g_firstStepOfPipe = 4096;

/// Bytes that memory is filled for at first on an input of known length. It may be a file with a hole that is larger
/// than any memory and takes no place on its disk.
constexpr std::size_t g_firstStepOfFile = std::size_t(1) << 24;

/// Bytes that memory is taken for at first on an input of known length, so that nothing is copied while it is filled.
/// The system gives memory when it is filled and not when it is taken.
constexpr std::size_t g_firstRoomOfFile = std::size_t(1) << 28;

/// For how many of `rest` elements memory may grow behind `nbRead`: what was read vouches for as much again.
///
/// @param firstStep elements that nothing needs to vouch for, at least 1
inline std::size_t getNextStep(std::size_t nbRead, std::size_t rest, std::size_t firstStep)
{
    return std::min(rest, std::max(nbRead, firstStep));
}

/// For how many elements memory may be taken, `nbRead` among them, so that the next step goes there. It grows only
/// where all of it has been filled, and is not filled itself.
///
/// @param step of getNextStep()
/// @param firstRoom elements that memory is taken for at first
inline std::size_t getCapacity(std::size_t nbRead, std::size_t rest, std::size_t step, std::size_t firstRoom)
{
    const std::size_t ahead = firstRoom - std::min(firstRoom, nbRead);
    return nbRead + std::min(rest, std::max(step, ahead));
}

} // namespace details
} // namespace ovrix
