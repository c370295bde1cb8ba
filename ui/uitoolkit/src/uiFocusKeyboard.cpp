// UiFocusKeyboard: moving the keyboard focus with focus-out and focus-in notices along the two
// chains of ancestors, and the bubbling of key events from the focus upward.
#include "uiFocusKeyboard.h"

#include "lkSingleton.h"
#include "uiContainer.h"

#include <algorithm>

namespace Zr {

namespace {
// The widget, then each ancestor that has a parent: the root of a tree never takes part.
std::vector<UiWidget*> focusChain(UiWidget* widget) {
    std::vector<UiWidget*> chain;
    for (UiWidget* w = widget; w && w->getParent(); w = w->getParent())
        chain.push_back(w);
    return chain;
}
} // namespace

UiFocusKeyboard& UiFocusKeyboard::getInstance() {
    return LkSingleton<UiFocusKeyboard>::getInstance();
}

void UiFocusKeyboard::setFocus(RCShdPtr<UiWidget> const& widget) {
    changeFocus(widget.get(), false);
}

void UiFocusKeyboard::setFocus(UiWidget* widget) {
    changeFocus(widget, false);
}

void UiFocusKeyboard::cycleFocus(UiWidget* widget) {
    changeFocus(widget, true);
}

void UiFocusKeyboard::changeFocus(UiWidget* widget, bool cycling) {
    _wasGrabbing = false;
    if (widget && !widget->isFocusable())
        return;
    if (widget != _focus && _focus)
        _wasGrabbing = isEditing(*_focus);

    // The nearest keyboard-focusable ancestor-or-self below the root.
    UiWidget* target = nullptr;
    for (UiWidget* w = widget; w; w = w->getParent()) {
        if (w->getParent() && w->isKeyboardFocusable()) {
            target = w;
            break;
        }
    }
    if (!target && widget)
        return;
    if (target == _focus)
        return;

    UiWidget* old = _focus;
    std::vector<UiWidget*> newChain = focusChain(target);
    std::vector<UiWidget*> oldChain = focusChain(old);
    // The common ancestors keep their state, except the old or new focus itself, whose kind of
    // focus changes between holding it and containing it.
    while (!newChain.empty() && !oldChain.empty() && newChain.back() == oldChain.back() &&
           newChain.back() != target && oldChain.back() != old) {
        newChain.pop_back();
        oldChain.pop_back();
    }

    for (UiWidget* w : oldChain) {
        EvKbdFocusOutEvent out;
        out.setDeviceType(2);
        w->processEvent(out);
    }
    _focus = target;
    for (UiWidget* w : newChain) {
        EvKbdFocusInEvent in;
        in.setDeviceType(2);
        w->processEvent(in);
    }

    if (_wasGrabbing && _focus && (cycling || startsEditOnFocus(*_focus))) {
        // Focus moved on from an editor in the middle of an edit: the new one starts editing.
        EvKeyPressEvent press;
        press.setTriggerKey(11);
        _focus->keyPress(press);
    }
}

void UiFocusKeyboard::processEvent(EvKeyboardEvent& event) {
    for (UiWidget* w = _focus; w && w->getParent(); w = w->getParent()) {
        event.setOrigin(w->getProcessOrigin());
        w->processEvent(event);
        if (event.isProcessed())
            return;
    }
}

void UiFocusKeyboard::forget(UiWidget* widget) {
    if (_focus == widget)
        _focus = nullptr;
}

void UiFocusKeyboard::addEditorHook(EditorHook* hook) {
    if (hook && std::find(_editorHooks.begin(), _editorHooks.end(), hook) == _editorHooks.end())
        _editorHooks.push_back(hook);
}

void UiFocusKeyboard::removeEditorHook(EditorHook* hook) {
    _editorHooks.erase(std::remove(_editorHooks.begin(), _editorHooks.end(), hook),
                       _editorHooks.end());
}

bool UiFocusKeyboard::isEditing(UiWidget& widget) const {
    return std::any_of(_editorHooks.begin(), _editorHooks.end(),
                       [&widget](EditorHook* h) { return h->isEditing(widget); });
}

bool UiFocusKeyboard::startsEditOnFocus(UiWidget& widget) const {
    return std::any_of(_editorHooks.begin(), _editorHooks.end(),
                       [&widget](EditorHook* h) { return h->startsEditOnFocus(widget); });
}

} // namespace Zr
