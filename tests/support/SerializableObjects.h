#pragma once

#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXSerialization/SerializableObject.h>
#include <OVRIXUtil/DynamicRegistrator.h>

#include <string>
#include <vector>

namespace ovrix
{
namespace test
{

/// An abstract class with an item of its own.
class Shape : public CopiedClass<Shape, BaseSerializationObject>
{
public:
    std::string _name;

protected:
    Shape() = default;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Shape";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_name", self._name);
    }

    void copyMembers(const Shape& other)
    {
        _name = other._name;
    }
};

/// A concrete class whose items depend on each other.
class Circle : public CopyableObject<Circle, Shape>
{
public:
    Circle() = default;

    Circle(const std::string& name, double radius) : _radius(radius)
    {
        _name = name;
    }

    bool _bFilled = false;
    ovUInt32 _colour = 0;
    double _radius = 0.0;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Circle";
    static constexpr ovUInt32 s_classVersion = 2;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_bFilled", self._bFilled);
        if (self._bFilled)
            items("_colour", self._colour);
        items("_radius", self._radius);
    }

    void copyMembers(const Circle& other)
    {
        _bFilled = other._bFilled;
        _colour = other._colour;
        _radius = other._radius;
    }
};

/// What Circle may be in a later release: of the same name and a newer version.
class LaterCircle : public CopyableObject<LaterCircle, Shape>
{
private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Circle";
    static constexpr ovUInt32 s_classVersion = 3;

    template <class Items, class Self>
    static void describeItems(Items&, Self&)
    {
    }

    void copyMembers(const LaterCircle&) {}
};

/// What Circle was in an earlier release.
class EarlierCircle : public CopyableObject<EarlierCircle, Shape>
{
private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Circle";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self&)
    {
        items("_bFilled", g_bFilled);
        items("_radius", g_radius);
    }

    void copyMembers(const EarlierCircle&) {}

    static inline bool g_bFilled = false;
    static inline double g_radius = 2.5;
};

/// A class that holds objects of other classes, by value and by pointer.
class Group : public CopyableObject<Group, Shape>
{
public:
    std::vector<boost::shared_ptr<Shape>> _members;
    Circle _border;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Group";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_members", self._members);
        items("_border", self._border);
    }

    void copyMembers(const Group& other)
    {
        _members = other._members;
        _border = other._border;
    }
};

/// A class without copy support.
class Session : public UncopyableObject<Session, BaseSerializationObject>
{
public:
    int _id = 0;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Session";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_id", self._id);
    }
};

/// A class that is not registered.
class Secret : public CopyableObject<Secret, BaseSerializationObject>
{
private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Secret";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items&, Self&)
    {
    }

    void copyMembers(const Secret&) {}
};

/// A class whose objects refuse to be written, or to be read.
class Refusal : public CopyableObject<Refusal, BaseSerializationObject>
{
public:
    BoolResult write(BaseOArchive&) const override
    {
        return _bWritable ? BoolResult(true) : BoolResult(false, "Not to be written");
    }

    BoolResult read(BaseIArchive&) override
    {
        return BoolResult(false, "Not to be read");
    }

    bool _bWritable = true;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Refusal";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items&, Self&)
    {
    }

    void copyMembers(const Refusal&) {}
};

inline const DynamicRegistrator<Circle> g_circleRegistrator;
inline const DynamicRegistrator<Group> g_groupRegistrator;
inline const DynamicRegistrator<Session> g_sessionRegistrator;
inline const DynamicRegistrator<Refusal> g_refusalRegistrator;

} // namespace test
} // namespace ovrix
