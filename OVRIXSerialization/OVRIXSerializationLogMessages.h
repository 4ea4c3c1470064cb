#pragma once

namespace ovrix
{

/// Messages of OVRIXSerialization; the texts stand in the source file.
struct eOVRIXSerializationMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

} // namespace ovrix
