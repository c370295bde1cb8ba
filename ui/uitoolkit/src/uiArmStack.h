// UiArmStack: the process-wide stack that pairs each button press with the widget it armed, so
// that the release disarms the right widget even when it lands elsewhere. A null widget entry
// is a blocker (see UiWidget::pushArm) or the place of a widget that went away.
#pragma once

#include <cstddef>
#include <vector>

namespace Zr {

class UiWidget;

class UiArmStack {
public:
    struct Entry {
        UiWidget* _widget = nullptr;
        unsigned _triggerButton = 0; // 1 left, 2 middle, 4 right
    };

    static bool empty() { return entries().empty(); }
    static std::size_t size() { return entries().size(); }
    static Entry const& top() { return entries().back(); }
    static Entry const& at(std::size_t i) { return entries()[i]; }
    // Index of the first entry of `widget`, or size() if it has none.
    static std::size_t find(UiWidget const* widget);
    static bool contains(UiWidget const* widget) { return find(widget) != size(); }
    // Grows the storage by half when full.
    static void push(UiWidget* widget, unsigned triggerButton);
    static void pop();
    // Turns every entry of `widget` into a null entry, for a widget that goes away.
    static void forget(UiWidget const* widget);
    static std::vector<Entry> const& getEntries() { return entries(); }
    // Asserts "ArmStack::empty()": at package exit no widget may still be armed.
    static void checkEmpty();
    // Drops every entry without disarming; for tests that must start from a clean stack.
    static void clear() { entries().clear(); }

private:
    static std::vector<Entry>& entries();
};

} // namespace Zr
