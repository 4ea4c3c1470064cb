#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXUtil/ReserveOneMore.h>

namespace ovrix
{

namespace
{

/// Opens a section for which there is no room in the list of them. The room comes first, so that a section that is
/// opened is recorded as well. It stands apart to keep the way of all other sections short.
[[gnu::cold, gnu::noinline]] void openWithRoom(BaseArchive& archive, std::vector<std::string_view>& openSections,
                                               std::string_view name)
{
    details::reserveOneMore(openSections);
    archive.openSection(name);
}

} // namespace

BaseArchive::BaseArchive(bool bText) : _bText(bText) {}

BaseArchive::~BaseArchive() = default;

bool BaseArchive::isText() const
{
    return _bText;
}

void BaseArchive::registerClassVersion(std::string_view className, ovUInt32 version)
{
    const std::size_t number = _classNames.find(className);
    if (number != 0)
    {
        _classVersions[number - 1] = version;
        return;
    }
    details::reserveOneMore(_classVersions);
    _classNames.add(className);
    _classVersions.push_back(version);
}

ovUInt32 BaseArchive::getRegisterClassVersion(std::string_view className) const
{
    const ovUInt32* const pVersion = findClassVersion(className);
    OVRIXSERIALIZATION_RAISE_UNLESS(pVersion != nullptr, 17, std::string(className));
    return *pVersion;
}

void BaseArchive::openSection(std::string_view name)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(getSectionDepth() < s_maxSectionDepth, 16, s_maxSectionDepth, getSectionPath());
    if (_openSections.size() == _openSections.capacity())
        return openWithRoom(*this, _openSections, name);
    _openSections.push_back(processOpenSection(name));
}

void BaseArchive::closeSection()
{
    OVRIXSERIALIZATION_RAISE_UNLESS(getSectionDepth() > 0, 28);
    processCloseSection();
    _openSections.pop_back();
}

std::size_t BaseArchive::getSectionDepth() const
{
    return _openSections.size();
}

std::string BaseArchive::getSectionPath() const
{
    std::string path;
    for (const std::string_view name : _openSections)
    {
        path += '/';
        details::appendQuote(path, name);
    }
    return path.empty() ? "/" : path;
}

} // namespace ovrix
