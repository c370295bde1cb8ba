// UiTitledContainer: the "TitledContainer" widget type, a container headed by a label named
// "TitleLabel" whose text comes from the definition's <Title>. Its <Input> or <Node> element
// names what a right click on the title acts on, kept as a RightClickItemData.
#pragma once

#include "uiContainerFactory.h"

#include "containers.h"
#include "rcBase.h"

#include <string>

namespace Zr {

class PiInput;
class PiTimePath;
class SnItem;
class UiContainer;

// What a right click on a titled container's label acts on: one selection item, an input or
// the node, at a time path. The menu that offers the actions on it is not made yet: the data
// is kept and a right click does nothing.
class RightClickItemData : public RCObject {
public:
    RightClickItemData(RCShdPtr<SnItem> const& item, RCShdPtr<PiTimePath const> timePath);
    List<RCShdPtr<SnItem>> const& getItems() const { return _items; }
    RCShdPtr<PiTimePath const> const& getTimePath() const { return _timePath; }

private:
    List<RCShdPtr<SnItem>> _items;
    RCShdPtr<PiTimePath const> _timePath;
};

class UiTitledContainer {
public:
    UiTitledContainer() = delete;

    // Registers and unregisters the "TitledContainer" widget type.
    static void initialize();
    static void finalize();

    // "TitleLabel".
    static char const* getTitleLabelName();
    // Replaces the container's RightClickItemData with one for `input`; a null input removes
    // it.
    static void setInput(UiContainer& container, RCShdPtr<PiInput> const& input,
                         RCShdPtr<PiTimePath const> const& timePath);
    // Sets the title label's text; a container without it fails the assertion
    // "!label.isNull()".
    static void setTitle(UiContainer& container, std::string const& text);
};

// Makes the container and its title label first, so that the children's constraints may name
// the label; then the groups, the title and the right-click data.
class TitledContainerFactory : public UiContainerFactory {
protected:
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const* element) override;
    RCShdPtr<UiContainer> createContainer(RCShdPtr<UiContainer> const& parent, char const* name,
                                          UiResTable const* table) override;
};

} // namespace Zr
