#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

namespace ovrix
{

BaseArchive::BaseArchive(bool bText) : _bText(bText) {}

BaseArchive::~BaseArchive() = default;

bool BaseArchive::isText() const
{
    return _bText;
}

bool BaseArchive::isClassVersionRegistred(std::string_view className) const
{
    return _classVersions.find(className) != _classVersions.end();
}

void BaseArchive::registerClassVersion(std::string_view className, ovUInt32 version)
{
    _classVersions.insert_or_assign(std::string(className), version);
}

ovUInt32 BaseArchive::getRegisterClassVersion(std::string_view className) const
{
    const auto found = _classVersions.find(className);
    OVRIXSERIALIZATION_RAISE_UNLESS(found != _classVersions.end(), 17, std::string(className));
    return found->second;
}

void BaseArchive::openSection(std::string_view name)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(getSectionDepth() < s_maxSectionDepth, 16, s_maxSectionDepth, getSectionPath());
    processOpenSection(name);
    _parentPathSizes.push_back(_sectionPath.size());
    _sectionPath += '/';
    details::appendQuote(_sectionPath, name);
}

void BaseArchive::closeSection()
{
    OVRIXSERIALIZATION_RAISE_UNLESS(getSectionDepth() > 0, 28);
    processCloseSection();
    _sectionPath.resize(_parentPathSizes.back());
    _parentPathSizes.pop_back();
}

std::size_t BaseArchive::getSectionDepth() const
{
    return _parentPathSizes.size();
}

std::string BaseArchive::getSectionPath() const
{
    return getSectionDepth() == 0 ? "/" : _sectionPath;
}

} // namespace ovrix
