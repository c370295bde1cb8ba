// Fuzz target: widget definitions given as text, built under a parent that already has a child.
// Only the documented failures may come out of a build, a failed build must leave the parent with
// exactly the child it had, and a built tree must hang together (each child points at its parent).
#include "fuzzSupport.h"

#include "uiContainer.h"
#include "uiFrame.h"
#include "uiWidget.h"
#include "uiWidgetFactory.h"

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

// Checks the parent links of a built tree and counts its widgets.
int checkTree(UiWidget& widget) {
    int count = 1;
    if (auto* container = dynamic_cast<UiContainer*>(&widget)) {
        for (RCShdPtr<UiWidget> const& child : container->getChildrenList()) {
            if (child->getParent() != container)
                fail("child does not point at its parent", child->getName().str());
            count += checkTree(*child);
        }
    }
    return count;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::initialize();
    UiFrameRegistry::registerDefaultFrames();
    UiWidgetFactory::registerToolkitFactories();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    RCShdPtr<UiContainer> parent = UiContainer::create(nullptr, "parent");
    RCShdPtr<UiWidget> const sibling = UiWidget::create(parent.get(), "sibling");

    RCShdPtr<UiWidget> built;
    bool failed = true;
    try {
        built = UiWidgetFactory::createWidgetFromText(parent, text, "fuzz.xml");
        failed = false;
    } catch (UiWidgetDefinitionEx const& ex) {
        if (ex.getReason().rfind("<Widget> element missing", 0) != 0 &&
            ex.getReason().rfind("Trying to create widget of unknown type: ", 0) != 0)
            fail("unexpected definition error", ex.getReason());
    } catch (XmlEx::ExSyntaxError const&) {
    } catch (UiWidgetSiblingConstraintEx const&) {
    } catch (ExAssertionFailed const& ex) {
        // A group type without a factory is the one assertion a definition can reach.
        if (ex.getReason() != "it != uiWidgetGroupFactories.end()")
            fail("unexpected assertion", ex.getReason());
    }

    auto const& children = parent->getChildrenList();
    std::size_t const expected = failed ? 1 : 2;
    if (children.size() != expected || children.front() != sibling)
        fail("parent changed", std::to_string(children.size()) + " children");
    if (!failed) {
        if (!built || built->getParent() != parent.get() || children.back() != built)
            fail("built widget not in its parent", built ? built->getName().str() : "null");
        checkTree(*built);
    }
    parent->removeChildren();
    return 0;
}
