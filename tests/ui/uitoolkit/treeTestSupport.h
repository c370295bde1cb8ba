// Widget trees for tests without a display: a mapped root container, a window that maps without
// a windowing-layer window, and a probe widget that records what its parent asks of it.
#pragma once

#include "uiTestSupport.h"

#include "uiContainer.h"
#include "uiWindow.h"

#include <string>
#include <vector>

namespace Zr::TreeTest {

// A root container that is displayed and mapped, so its children map with it.
using MappedRoot = UiTest::TestRoot;

// A window mapped on its own, without a window of the windowing layer: enough for damage,
// which needs a window to notify.
class MappedWindow : public UiWindow {
public:
    static RCShdPtr<MappedWindow> make(GeRectangle<int> const& rect) {
        RCShdPtr<MappedWindow> window(new MappedWindow());
        window->resInit(nullptr);
        window->postInit();
        window->setRect(rect, false);
        window->setDisplayed(true);
        window->UiContainer::setMap(true, false);
        window->clearMarks();
        return window;
    }

protected:
    MappedWindow() : UiWindow(nullptr, "window", WsWindowStyle(), 0) {}
    bool setMap(bool map, bool checkParent) override {
        return UiContainer::setMap(map, checkParent);
    }
};

// A plain widget that notes each parentResize in a shared log.
class ProbeWidget : public UiWidget {
public:
    static RCShdPtr<ProbeWidget> make(UiContainer* parent, LiString const& name,
                                      GeRectangle<int> const& rect,
                                      std::vector<std::string>* log = nullptr) {
        RCShdPtr<ProbeWidget> w(new ProbeWidget(parent, name));
        w->resInit(nullptr);
        w->postInit();
        w->setRect(rect, false);
        w->_log = log;
        return w;
    }
    void parentResize(int w, int h) override {
        if (_log)
            _log->push_back(getName().str() + " parentResize " + std::to_string(w) + "x" +
                            std::to_string(h));
        UiWidget::parentResize(w, h);
    }

protected:
    ProbeWidget(UiContainer* parent, LiString const& name) : UiWidget(parent, name) {}

private:
    std::vector<std::string>* _log = nullptr;
};

// A container placed at `rect` in its parent.
inline RCShdPtr<UiContainer> makeContainer(UiContainer* parent, LiString const& name,
                                           GeRectangle<int> const& rect) {
    RCShdPtr<UiContainer> c = UiContainer::create(parent, name);
    c->setRect(rect, false);
    return c;
}

inline RCShdPtr<UiWidget> makeWidget(UiContainer* parent, LiString const& name,
                                     GeRectangle<int> const& rect) {
    RCShdPtr<UiWidget> w = UiWidget::create(parent, name);
    w->setRect(rect, false);
    return w;
}

// The names of a list of widgets, for readable expectations.
inline std::vector<std::string> namesOf(std::vector<RCShdPtr<UiWidget>> const& widgets) {
    std::vector<std::string> names;
    for (auto const& w : widgets)
        names.push_back(w->getName().str());
    return names;
}

inline std::vector<std::string> namesOf(UiContainer::ChildList const& widgets) {
    return namesOf(std::vector<RCShdPtr<UiWidget>>(widgets.begin(), widgets.end()));
}

} // namespace Zr::TreeTest
