// UiResource: one named, typed value of a widget's configuration (a colour, a rectangle, a
// constraint...), read from a resource table or made in code, and shared by RCShdPtr.
#pragma once

#include "zrBase.h"

#include "uiResourceEx.h"

#include <cstdint>
#include <iosfwd>
#include <string>

namespace Zr {

class XmlElement;
class XmlWriter;

class UiResource : public RCObject {
public:
    // Who set a resource; a lower level never replaces a higher one in a UiResSet.
    enum Level : std::int32_t {
        LevelDefault = 0,    // made in code, such as a widget's defaults
        LevelSystem = 1,     // the application's system table
        LevelApplication = 2 // an application's own table file
    };

    ~UiResource() override = default;

    // The type's tag ("Int", "Color", ...), as UiResRegistry knows it.
    virtual char const* getType() const = 0;
    // Fills the payload from the element named after the resource (not from the type element
    // inside it).
    virtual void read(XmlElement const& element) = 0;
    // Fills the payload from the text form.
    virtual void read(std::istream& is) = 0;
    // Writes the type element(s) into the element the caller opened; the table writer passes
    // true.
    virtual void write(XmlWriter& writer, bool flag) const = 0;
    // Writes the text form.
    virtual void write(std::ostream& os, bool flag) const = 0;
    // A deep copy of name, level and payload.
    virtual RCShdPtr<UiResource> clone() const = 0;

    std::string getName() const { return _name.str(); }
    LiString const& getNameRef() const { return _name; }
    void setName(LiString const& name) { _name = name; }
    Level getLevel() const { return _level; }
    void setLevel(Level level) { _level = level; }

protected:
    explicit UiResource(LiString const& name = {}) : _name(name) {}
    UiResource(UiResource const&) = default;
    UiResource& operator=(UiResource const&) = default;

private:
    LiString _name;
    Level _level = LevelDefault;
};

// The text form: >> reads the payload, << writes it with the flag false.
std::istream& operator>>(std::istream& is, UiResource& resource);
std::ostream& operator<<(std::ostream& os, UiResource const& resource);

// clone() of a resource class whose copy constructor copies the whole payload.
#define ZR_UI_RESOURCE_CLONE(Name)                                                                 \
    ::Zr::RCShdPtr<::Zr::UiResource> clone() const override {                                      \
        return ::Zr::RCShdPtr<::Zr::UiResource>(new Name(*this));                                  \
    }

} // namespace Zr
