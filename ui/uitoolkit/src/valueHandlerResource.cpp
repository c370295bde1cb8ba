// ValueHandlerResource: reading a value handler through its factory.
#include "valueHandlerResource.h"

#include "xmlElement.h"
#include "xmlWriter.h"

namespace Zr {

ValueHandlerResource::ValueHandlerResource(LiString const& typeName,
                                           UiRange::ValueHandlerFactory* factory)
    : UiResource("Prototype"), _typeName(typeName), _factory(factory) {}

void ValueHandlerResource::read(XmlElement const& element) {
    if (!_factory)
        RCExUtil::throwExNullPtr("UiRange::ValueHandlerFactory");
    XmlElement const description = element.getElementByTagName(_typeName.c_str());
    if (description.isNull())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    // Only a complete read replaces the handler.
    _handler = _factory->create(description);
}

void ValueHandlerResource::read(std::istream&) {
    ZR_ABORT("ValueHandlerResource has no text form");
}

void ValueHandlerResource::write(XmlWriter& writer, bool) const {
    writer.openTag(_typeName.str());
    writer.closeTag();
}

void ValueHandlerResource::write(std::ostream&, bool) const {
    ZR_ABORT("ValueHandlerResource has no text form");
}

} // namespace Zr
