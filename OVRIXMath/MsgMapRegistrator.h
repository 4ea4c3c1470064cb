#pragma once

namespace ovrix
{
namespace math
{

/// Registers the messages of a domain with the catalogue of this library.
///
/// The file that holds a domain's texts does so while the library is being loaded, so nobody needs to call this.
///
/// @tparam E enumeration of the domain, such as `eEstimationMessage::domain`
/// @tparam Table its texts, `details::MsgMapRegistratorDerived<E, void>`
template <class E, class Table>
struct MsgMapRegistrator
{
    /// Registers the domain at the first call; later calls add nothing.
    ///
    /// @return `true`
    static bool registerMessageMap();
};

namespace details
{

/// Texts of the domain E; specialised in the file that holds them.
template <class E, class>
struct MsgMapRegistratorDerived;

} // namespace details

/// Registers a domain for a caller that wants it explicitly; see MsgMapRegistrator.
template <class E, class = void>
struct MessageMapRegistrator
{
    /// @return `true`
    static bool process()
    {
        return MsgMapRegistrator<E, details::MsgMapRegistratorDerived<E, void>>::registerMessageMap();
    }
};

} // namespace math
} // namespace ovrix
