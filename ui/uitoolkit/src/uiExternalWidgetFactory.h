// UiExternalWidgetFactory: the factory of "ExternalWidget" definitions, which take their widget
// from a plug-in's PiExternalWidgetFactory.
#pragma once

#include "uiWidgetFactory.h"

namespace Zr {

// A definition reads
//   <ExternalWidget plugin="curves">
//     <Widget Name="curve"> resources </Widget>
//   </ExternalWidget>
// The plug-in's factory supplies a definition of its own; its resources are the widget's
// defaults, and the resources the caller's table has for the widget's name replace them. After
// the widget is built the plug-in's factory gets its interface and may return client data that
// lives as long as the widget. No attribute, or a factory that isn't registered or has no
// definition, gives a null widget: the caller must accept that.
class UiExternalWidgetFactory : public UiWidgetFactory {
public:
    // The attribute that names the plug-in's factory.
    static char const* const PluginAttribute; // "plugin"

    // Registers the factory under "ExternalWidget" unless that name is registered already.
    static void registerFactory();
    // Removes the registration if there is one.
    static void unregisterFactory();

protected:
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const* element) override;
};

} // namespace Zr
