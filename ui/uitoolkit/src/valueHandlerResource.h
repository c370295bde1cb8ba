// ValueHandlerResource: a resource holding a range's value handler, read from a resource table
// by the factory registered under its type name ("LinearValueHandler").
#pragma once

#include "uiRange.h"
#include "uiResource.h"

namespace Zr {

// XML: <DisplayValueHandler><LinearValueHandler A="2" B="1"/></DisplayValueHandler>. There is
// no text form: reading or printing one aborts.
class ValueHandlerResource : public UiResource {
public:
    // The prototype of a type, called "Prototype" until a table names it; the factory stays
    // with UiRange's registry.
    ValueHandlerResource(LiString const& typeName, UiRange::ValueHandlerFactory* factory);
    ValueHandlerResource(ValueHandlerResource const&) = default;
    ~ValueHandlerResource() override = default;

    char const* getType() const override { return _typeName.c_str(); }
    // Asks the factory for a handler made from the child element named after the type; a
    // missing child raises ExIncompleteResource, bad values what the factory raises.
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    // Writes the empty type element: a handler does not say how it was made.
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(ValueHandlerResource)

    RCShdPtr<UiRange::ValueHandler> const& getHandler() const { return _handler; }
    void setHandler(RCShdPtr<UiRange::ValueHandler> const& handler) { _handler = handler; }

private:
    LiString _typeName;
    UiRange::ValueHandlerFactory* _factory;
    RCShdPtr<UiRange::ValueHandler> _handler;
};

} // namespace Zr
