// Fuzz target: a node's panel description given as text, as its controller would give it. The
// panels are made three ways: read and cached, from the cache, and from the same text lent as a
// document; a root other than <Items> is also made as an auxiliary panel. Only a constraint
// naming a sibling that isn't there may come out of a creation; every way gives the same number
// of panels, each a parentless widget whose tree hangs together; and after each creation the
// node being built is the one before (none), and the controller has seen as many ends of panel
// creation as starts.
#include "fuzzSupport.h"

#include "nodeUiCreationGuard.h"
#include "uiContainer.h"
#include "uiFrame.h"
#include "uiNodeWidget.h"
#include "uiNodeWidgetFactory.h"
#include "uiTitledContainer.h"
#include "uiWidgetFactory.h"

#include "piDefaultNodeController.h"
#include "piGraph.h"
#include "piTimePath.h"
#include "piTool.h"
#include "xmlDocument.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace Zr;

namespace {

[[noreturn]] void fail(char const* what, std::string const& detail) {
    std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
    std::abort();
}

class FuzzController : public PiDefaultNodeController {
public:
    using PiDefaultNodeController::PiDefaultNodeController;
    std::string text;
    int open = 0;

protected:
    std::string getDefaultXmlDescription() const override { return text; }
    void startUiCreation() override { ++open; }
    void endUiCreation() override { --open; }
};

// A node with a number, a toggle and a colour input, described by the fuzzed text.
class FuzzNode : public PiNode {
public:
    explicit FuzzNode(std::string text) : PiNode("Fuzz1") {
        controller = new FuzzController(*this);
        controller->text = std::move(text);
        setController(RCStrongPtr<PiNodeController>(controller));
        for (auto [name, type] :
             {std::pair{"radius", PiInput::Type::Double}, std::pair{"flag", PiInput::Type::Bool},
              std::pair{"gain", PiInput::Type::Structured}}) {
            PiTool::InputDeclaration d;
            d.name = name;
            d.type = type;
            if (type == PiInput::Type::Structured)
                d.parts = {"Red", "Green", "Blue"};
            addInput(PiTool::createInput(d));
        }
    }
    FuzzController* controller;
};

void checkTree(UiWidget& widget) {
    if (auto* container = dynamic_cast<UiContainer*>(&widget))
        for (RCShdPtr<UiWidget> const& child : container->getChildrenList()) {
            if (child->getParent() != container)
                fail("child does not point at its parent", child->getName().str());
            checkTree(*child);
        }
}

// The number of panels a creation gives, or -1 when it stopped at a constraint.
template <class Make>
int panels(FuzzNode const& node, Make const& make) {
    int count = -1;
    try {
        Iterator<UiNodeWidgetFactory::Item> items = make();
        count = items.getCardinality();
        for (; !items.atEnd(); ++items) {
            UiWidget* widget = items->getWidget().get();
            if (!widget || widget->getParent())
                fail("panel without a widget, or with a parent", items->getTitle().str());
            checkTree(*widget);
        }
    } catch (UiWidgetSiblingConstraintEx const&) {
    }
    if (!UiNodeWidgetFactory::getCurrentNodeRO().isNull() ||
        !UiNodeWidgetFactory::getCurrentTimePath().isNull())
        fail("current node not restored", "");
    if (node.controller->open != 0)
        fail("creation bracket not closed", std::to_string(node.controller->open));
    return count;
}

RCShdPtr<PiGraph>& graph() {
    static RCShdPtr<PiGraph> g = makeShared<PiGraph>();
    return g;
}

} // namespace

// Fontconfig keeps what it reads for the process's life; LeakSanitizer would report it at exit.
extern "C" char const* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::initialize();
    UiFrameRegistry::registerDefaultFrames();
    UiWidgetFactory::registerToolkitFactories();
    UiTitledContainer::initialize();
    UiNodeWidget::initialize();
    UiNodeWidgetFactory::initialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    // Nodes of one controller type share a cached description: start from an empty cache.
    UiNodeWidgetFactory::finalize();
    auto node = makeShared<FuzzNode>(text);
    RCShdPtr<PiTimePath const> const timePath = PiTimePath::create(graph()->getTimeClient());
    RCShdPtr<PiNode> const writable(node);

    int const read = panels(*node, [&] { return UiNodeWidgetFactory::create(writable, timePath); });
    int const cached =
        panels(*node, [&] { return UiNodeWidgetFactory::create(writable, timePath); });
    if (read != cached)
        fail("cached description gives other panels",
             std::to_string(read) + " against " + std::to_string(cached));

    std::unique_ptr<XmlDocument> lent;
    try {
        lent = std::make_unique<XmlDocument>(text);
    } catch (XmlEx::ExSyntaxError const&) {
        return 0;
    }
    int const fromLent = panels(*node, [&] {
        return UiNodeWidgetFactory::create(RCShdPtr<PiNode const>(node), timePath, lent.get());
    });
    if (fromLent != read)
        fail("lent description gives other panels",
             std::to_string(fromLent) + " against " + std::to_string(read));
    if (lent->getRoot().getNodeName() != "Items")
        panels(*node,
               [&] { return UiNodeWidgetFactory::createAuxiliaryUi(writable, timePath, *lent); });
    return 0;
}
