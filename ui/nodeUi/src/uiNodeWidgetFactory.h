// UiNodeWidgetFactory: turns a node into its panels. The node's controller supplies an XML
// description; the factory reads it once per tool (or controller type), makes the widgets
// through the ordinary widget factories and returns the finished panels, one per tab. While it
// builds, it publishes the node and time path being built, so that the node-bound widget
// factories find the input an element names.
#pragma once

#include "iterator.h"
#include "liString.h"
#include "uiWidget.h"

#include <type_traits>

namespace Zr {

class PiInput;
class PiNode;
class PiTimePath;
class XmlDocument;

class UiNodeWidgetFactory {
public:
    // One panel: the text of its tab, the generic interface it stands for ("Default" unless the
    // description says otherwise; empty for an auxiliary panel) and its root widget.
    class Item {
    public:
        Item(LiString title, LiString genericUiName, RCShdPtr<UiWidget> widget);
        LiString const& getTitle() const { return _title; }
        LiString const& getGenericUiName() const { return _genericUiName; }
        RCShdPtr<UiWidget> const& getWidget() const { return _widget; }

    private:
        LiString _title;
        LiString _genericUiName;
        RCShdPtr<UiWidget> _widget;
    };

    UiNodeWidgetFactory() = delete;

    // Reads ZR_DEBUG_NODE_UI; destroys both caches' documents.
    static void initialize();
    static void finalize();

    // The node's panels, with writable or read-only inputs: one item per <Item> of an <Items>
    // description, or the one panel of any other. `xml` is an optional description lent by
    // the caller: used at once, neither cached nor destroyed. A node whose controller is gone
    // or has no description gives an empty result; parts of a description that can't be built
    // are reported once and left out.
    static Iterator<Item> create(RCShdPtr<PiNode> const& node,
                                 RCShdPtr<PiTimePath const> const& timePath,
                                 XmlDocument const* xml = nullptr);
    static Iterator<Item> create(RCShdPtr<PiNode const> const& node,
                                 RCShdPtr<PiTimePath const> const& timePath,
                                 XmlDocument const* xml = nullptr);
    // A node of a derived kind takes the writable or the read-only form as its constness says.
    template <class N, class = std::enable_if_t<!std::is_same_v<std::remove_const_t<N>, PiNode>>>
    static Iterator<Item> create(RCShdPtr<N> const& node,
                                 RCShdPtr<PiTimePath const> const& timePath,
                                 XmlDocument const* xml = nullptr) {
        using Node = std::conditional_t<std::is_const_v<N>, PiNode const, PiNode>;
        return create(RCShdPtr<Node>(node), timePath, xml);
    }
    // One extra panel from the caller's document, whose root must not be <Items>; no
    // per-panel data of the controller, no creation bracket.
    static Iterator<Item> createAuxiliaryUi(RCShdPtr<PiNode> const& node,
                                            RCShdPtr<PiTimePath const> const& timePath,
                                            XmlDocument const& xml);
    static Iterator<Item> createAuxiliaryUi(RCShdPtr<PiNode const> const& node,
                                            RCShdPtr<PiTimePath const> const& timePath,
                                            XmlDocument const& xml);

    // The title of a node's first panel.
    static LiString createTitle(RCShdPtr<PiNode const> const& node);
    // The tooltip identifier of a widget bound to the input: the input's full name.
    static LiString createTooltipId(RCShdPtr<PiInput const> const& input);
    // Finds or reads the node's description without making widgets; true if there is one. A
    // description that may not be cached (a node's own) is gone again when this returns:
    // `xml` is then not to be used.
    static bool getToolXml(RCShdPtr<PiNode const> const& node, XmlDocument const*& xml);

    // The node and time path being built; valid while a creation runs. The read-only form has
    // no writable node.
    static bool isReadOnly();
    static RCShdPtr<PiNode> const& getCurrentNode();
    static RCShdPtr<PiNode const> const& getCurrentNodeRO();
    static RCShdPtr<PiTimePath const> const& getCurrentTimePath();
};

} // namespace Zr
