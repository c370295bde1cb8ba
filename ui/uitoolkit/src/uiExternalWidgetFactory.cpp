// UiExternalWidgetFactory: builds a plug-in's widget from the definition its factory supplies,
// with the caller's resources over the definition's, and attaches the plug-in's client data.
#include "uiExternalWidgetFactory.h"

#include "uiResTable.h"
#include "uiWidget.h"

#include "piExternalWidgetFactory.h"
#include "piWidget.h"
#include "xmlDocument.h"
#include "xmlElement.h"

namespace Zr {

namespace {

char const* const FactoryName = "ExternalWidget";

} // namespace

char const* const UiExternalWidgetFactory::PluginAttribute = "plugin";

void UiExternalWidgetFactory::registerFactory() {
    if (!isRegistered(FactoryName))
        UiWidgetFactory::registerFactory(FactoryName, std::make_unique<UiExternalWidgetFactory>());
}

void UiExternalWidgetFactory::unregisterFactory() {
    if (isRegistered(FactoryName))
        UiWidgetFactory::unregisterFactory(FactoryName);
}

RCShdPtr<UiWidget> UiExternalWidgetFactory::create(RCShdPtr<UiContainer> const& parent,
                                                   char const* name, UiResTable const* table,
                                                   XmlElement const* element) {
    if (!element)
        return nullptr;
    std::string const pluginName = element->getAttribute(PluginAttribute);
    if (pluginName.empty())
        return nullptr;
    PiExternalWidgetFactory* plugin = PiExternalWidgetFactory::getFactory(pluginName);
    if (!plugin)
        return nullptr;
    XmlDocument const* document = plugin->getXmlDocument();
    if (!document)
        return nullptr;
    XmlElement const definition = document->getRoot();
    if (!definition)
        return nullptr;
    XmlElement const record = definition.getElementByTagName("Widget");
    if (!record)
        return nullptr;

    // The definition's resources are the widget's defaults, read at the lowest level so that
    // the caller's replace them whatever table they came from; bad ones are reported and
    // skipped.
    std::string where = describeLocation(record);
    if (where.empty())
        where = pluginName;
    UiResTable pluginTable;
    LiString const pluginRecordName =
        pluginTable.readWidgetCatchErrors(record, UiResource::LevelDefault, where.c_str());

    // The caller's resources for this widget replace the definition's of the same name.
    LiString const widgetName(name ? name : "");
    UiResSet resources;
    if (UiResSet const* defaults = pluginTable.getResourceSet(pluginRecordName))
        resources.mergeReplace(*defaults);
    if (table)
        if (UiResSet const* own = table->getResourceSet(widgetName))
            resources.mergeReplace(*own);
    UiResTable merged;
    if (table)
        merged.setResTableName(table->getResTableName());
    merged.addResourceSet(widgetName, &resources);

    RCShdPtr<UiWidget> widget =
        createWidget(parent, LiString(definition.getNodeName()), widgetName, &merged, &definition);
    if (!widget)
        return nullptr;

    RCShdPtr<RCObject> clientData = plugin->createClientData(widget->retrieveInterface(), *element);
    if (clientData)
        widget->addClientData(clientData);
    return widget;
}

} // namespace Zr
