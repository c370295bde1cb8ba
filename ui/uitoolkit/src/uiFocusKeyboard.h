// UiFocusKeyboard: the widget that gets key events. Focus goes to the nearest keyboard-
// focusable ancestor of the widget asked for; focus-out and focus-in run along both chains.
#pragma once

#include "zrBase.h"

#include <vector>

namespace Zr {

template <class T>
class LkSingleton;
class UiWidget;

class UiFocusKeyboard {
public:
    // What a focus change must know about editors (value editors, text fields, text editors).
    // Their families install one each; without any, no widget counts as an editor, so focus
    // changes never fake the Return press that starts an edit.
    class EditorHook {
    public:
        virtual ~EditorHook() = default;
        // Whether `widget`, the focus that is about to be left, is an editor in the middle of
        // an edit (a value editor says so itself; a text component when the keyboard grab's
        // holder is its event handler).
        virtual bool isEditing(UiWidget& widget) const = 0;
        // Whether `widget`, the new focus, starts its edit on a Return press when focus comes
        // from an editor that was editing (an editor that carries none in its client data and
        // is not armed).
        virtual bool startsEditOnFocus(UiWidget& widget) const = 0;
    };

    static UiFocusKeyboard& getInstance();
    void setFocus(RCShdPtr<UiWidget> const& widget);
    void setFocus(UiWidget* widget);
    // As setFocus, for tabbing: the target always gets the key press that starts an edit when
    // the old focus was an editor being edited.
    void cycleFocus(UiWidget* widget);
    UiWidget* getFocus() const { return _focus; }
    // Offers the event to the focus and then to its ancestors, up to but not including the root.
    void processEvent(EvKeyboardEvent& event);
    // Forgets a widget that is going away, without events.
    void forget(UiWidget* widget);
    // Whether the last focus change left an editor that was editing.
    bool wasGrabbing() const { return _wasGrabbing; }

    // Hooks are not owned; an editor family removes its own before it goes.
    void addEditorHook(EditorHook* hook);
    void removeEditorHook(EditorHook* hook);

private:
    friend class LkSingleton<UiFocusKeyboard>;
    UiFocusKeyboard() = default;
    void changeFocus(UiWidget* widget, bool cycling);
    bool isEditing(UiWidget& widget) const;
    bool startsEditOnFocus(UiWidget& widget) const;

    UiWidget* _focus = nullptr;
    bool _wasGrabbing = false;
    std::vector<EditorHook*> _editorHooks;
};

} // namespace Zr
