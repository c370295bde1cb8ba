// PiExternalWidgetFactory: the plug-in side of widgets that plug-ins supply. A plug-in registers
// one under a name; a definition of type "ExternalWidget" names it, and the toolkit builds the
// widget from the factory's definition and hands the factory the new widget's interface.
#pragma once

#include "rcBase.h"

#include <string>

namespace Zr {

class PiWidget;
class XmlDocument;
class XmlElement;

class PiExternalWidgetFactory {
public:
    virtual ~PiExternalWidgetFactory();

    // Each name once: a second registration of a name fails an assertion, as does the removal
    // of a name that isn't registered.
    static void registerFactory(std::string const& name, OPtr<PiExternalWidgetFactory> factory);
    static void unregisterFactory(std::string const& name);
    // Null when no factory of that name is registered.
    static PiExternalWidgetFactory* getFactory(std::string const& name);

    // The definition of the widget: a document whose root is a widget definition, such as
    //   <PushButton><Widget Name="go"> resources </Widget></PushButton>
    // Null when the factory has none; the document stays the factory's.
    virtual XmlDocument const* getXmlDocument() = 0;

    // Called once the widget is built, with its interface and the definition element that
    // named this factory. A non-null result becomes the widget's client data and lives as long
    // as the widget. The client data may keep the interface of a container (a container's
    // interface does not keep the container alive); an interface of any other widget kept in
    // it would keep that widget alive for ever, so use it during the call only.
    // The base returns null.
    virtual RCShdPtr<RCObject> createClientData(RCShdPtr<PiWidget> const& widget,
                                                XmlElement const& element);

protected:
    PiExternalWidgetFactory() = default;
};

} // namespace Zr
