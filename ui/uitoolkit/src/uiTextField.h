// UiTextField: the one-line text editor. A buffer of bounded size with a table of glyph positions,
// a cursor and a selection, horizontal scrolling by whole characters, and a replaceable Filter
// that decides what may be typed and what may be committed. Text is UTF-8: cursor, selection and
// cuts always fall on code point boundaries.
#pragma once

#include "uiWidget.h"

#include "wsFont.h"

#include <algorithm>
#include <string>
#include <vector>

namespace Zr {

class UiTextFieldImp;

class UiTextField : public UiWidget {
public:
    // Decides what may be typed (a character) and what may be committed (a string); pre- and
    // post-filters rewrite the text when an edit begins and when it is committed.
    class Filter : public RCObject {
    public:
        ~Filter() override = default;
        // True when every character passes isValid(char).
        virtual bool isValid(LiString const& text) const;
        // Everything passes. A character beyond ASCII is offered byte by byte and passes when
        // each of its bytes does.
        virtual bool isValid(char c) const;
        // The text as it is.
        virtual LiString preFilter(LiString const& text);
        // The text without the characters that fail isValid(char).
        virtual LiString postFilter(LiString const& text);
        // Whether the UTF-8 sequence of one character passes: each of its bytes must.
        bool isValidCharacter(std::string_view utf8) const;
    };

    // Refuses the characters of its string (the string lists what is refused, not what is
    // allowed).
    class BasicFilter : public Filter {
    public:
        explicit BasicFilter(std::string refused) : _refused(std::move(refused)) {}
        bool isValid(LiString const& text) const override { return Filter::isValid(text); }
        bool isValid(char c) const override;
        std::string const& getRefused() const { return _refused; }

    private:
        std::string _refused;
    };

    // Where `setString` puts the cursor: 0 the start, any other value the end.
    using CursorPosition = int;

    static RCShdPtr<UiTextField> create(UiContainer* parent, LiString const& name,
                                        UiResTable const* table = nullptr);

    // A filter that accepts everything, and one that refuses what file names may not hold;
    // both shared.
    static RCShdPtr<Filter> const& getDefaultFilter();
    static RCShdPtr<Filter> const& getFileNameFilter();

    // --- text ------------------------------------------------------------------------------
    // Takes `text` (null is ""), pre-filtered and tested by the filter: a text the filter
    // refuses leaves the field as it is and returns false. Text that is not valid UTF-8 is
    // repaired (U+FFFD per bad spot); text longer than the buffer is cut on a character
    // boundary. Selection and scrolling are reset. Then the content-changed and set-value
    // callbacks, as asked.
    virtual bool setString(char const* text, CursorPosition cursor = 1,
                           bool callContentChanged = false, bool callSetValue = false);
    // The same without the filter.
    virtual void setStringAsIs(char const* text, CursorPosition cursor = 1,
                               bool callContentChanged = false, bool callSetValue = false);
    LiString getString() const { return LiString(_buffer); }
    // Inserts at the cursor in place of the selection. False, and nothing changed, when the
    // filter refuses a character or the buffer is too small.
    virtual bool insertString(char const* text);
    // Removes the selection, or else the character at the cursor.
    virtual void deleteChar();
    void cut() override;
    void copy() override;
    void paste() override;
    bool isValid(LiString const& text) const;

    // --- cursor and selection (byte offsets on character boundaries) -------------------------
    void setCursorPos(int position);
    int getCursorPos() const { return _cursor; }
    void highlightAll();
    bool isAllHighlighted() const;
    // Selects [start, end) (either order; clamped, moved back to character boundaries).
    void setHighlight(int start, int end);
    int getSelectionStart() const { return _selStart; }
    int getSelectionEnd() const { return _selEnd; }
    int getFirstVisible() const { return _firstVisible; }
    // The x of the left edge of the character at byte `offset` from the start of the text, in
    // whole pixels (the glyph table); the size of the text gives its width.
    int getCharacterX(int offset) const {
        int const size = static_cast<int>(_buffer.size());
        return _charX[static_cast<std::size_t>(std::clamp(offset, 0, size))];
    }

    // --- look ------------------------------------------------------------------------------
    void setFont(LiString const& handle);
    void setFont(RCShdPtr<WsFont> const& font);
    RCShdPtr<WsFont> const& getFont() const { return _font; }
    // 0 bottom, 1 centre, 3 top, with a vertical offset in pixels.
    void setAlignmentV(int alignment, int offset);
    void setBorderWidth(int width);
    // Where the text starts: x of character 0 and the baseline, in the parent's canvas.
    GePoint2<int> getTextOrigin() const { return {_textX, _baseline}; }
    void setColor(LiString const& name, CoRgbColor const& color) override;
    CoRgbColor getColor(LiString const& name) const override;

    // --- others ----------------------------------------------------------------------------
    // The capacity in bytes; the text is cut to it on a character boundary.
    void setBufLength(int length);
    int getBufLength() const;
    void setFilter(RCShdPtr<Filter> const& filter);
    // A BasicFilter refusing the characters of `refused`.
    void setFilter(char const* refused);
    RCShdPtr<Filter> const& getFilter() const;
    void readOnly(bool on);
    bool isReadOnly() const { return _readOnly; }
    // Whether the keyboard grab is the field's: an edit is in progress.
    bool isEditing() const;

    // Key enter runs after a commit, content changed after each change of the text, set value
    // after a commit and from setString when asked; key tab, completion and key escape on
    // those keys; drop consumed after dropped text was taken.
    void addKeyEnterCb(CbHandler<EvEvent>* h);
    void removeKeyEnterCb(CbHandler<EvEvent>* h);
    void addContentChangedCb(CbHandler<EvEvent>* h);
    void removeContentChangedCb(CbHandler<EvEvent>* h);
    void addSetValueCb(CbHandler<EvEvent>* h);
    void removeSetValueCb(CbHandler<EvEvent>* h);
    void addKeyTabCb(CbHandler<EvEvent>* h);
    void removeKeyTabCb(CbHandler<EvEvent>* h);
    void addCompletionCb(CbHandler<EvEvent>* h);
    void removeCompletionCb(CbHandler<EvEvent>* h);
    void addKeyEscapeCb(CbHandler<EvEvent>* h);
    void removeKeyEscapeCb(CbHandler<EvEvent>* h);
    void addDndConsumedCb(CbHandler<EvEvent>* h);
    void removeDndConsumedCb(CbHandler<EvEvent>* h);
    // Runs the drop-consumed callbacks (the field's drop target does, once it took a drop).
    void fireDropConsumed();

    void adjustCoords() override;
    RCShdPtr<PiWidget> retrieveInterface() override;
    RttiType<WidgetRttiType> const& getNodeType() const override;

protected:
    UiTextField(UiContainer* parent, LiString const& name);
    ~UiTextField() override;

    void setDefaultResources(UiResSet& set) override;
    // LabelString, LabelAlign, LabelFont and Editable act at once; the rest goes to the
    // widget. A resource of one of these names but of the wrong kind is reported and ignored.
    void setResource(RCShdPtr<UiResource> const& resource) override;
    // The background follows the mode: editable, lighter while editing; read-only, plain.
    void stateChanged() override;
    bool hasStateChangedHook() const override { return true; }

private:
    friend class UiTextFieldImp;
    void onArm(EvEvent& event);
    void onDisarm(EvEvent& event);
    void onMmove(EvEvent& event);
    void onKeyPress(EvEvent& event);
    void onInputChar(EvEvent& event);
    void onKbdFocusIn(EvEvent& event);
    void onKbdFocusOut(EvEvent& event);
    void onHotkey(EvEvent& event);
    void userDraw(EvEvent& event);

    // Keyboard editing begins: the text is kept for Escape, pre-filtered, and the keyboard
    // grab taken.
    void beginEdit();
    // Enter: post-filter and test; on success the edit ends and the callbacks run.
    void commit();
    void escape();
    // Replaces [from, to) by `text`; rebuilds the table, scrolls, redraws, fires content
    // changed.
    void replaceRange(int from, int to, std::string const& text);
    // Puts `text` in place of the selection, or at the cursor when there is none.
    void replaceSelection(std::string const& text);
    void assignText(std::string text, CursorPosition cursor, bool callContentChanged,
                    bool callSetValue);
    void rebuildGlyphTable();
    // After [from, from + removed) became `inserted` bytes: re-measures the changed characters
    // and their neighbours, and moves the rest by the change in width.
    void updateGlyphTable(int from, int removed, int inserted);
    // Measures bytes [start, end) from the pen position `origin` into the table; fill takes
    // the positions already measured from `start`.
    void measure(std::size_t start, std::size_t end, float origin);
    void fill(std::size_t start, std::size_t end, float origin);
    void scrollToCursor();
    int indexAt(int x) const;
    // Whether `inserted` bytes in place of the selection stay within the capacity.
    bool fits(std::size_t inserted) const;
    void moveCursor(int to, bool extend);
    void selectWordAt(int position);
    void fire(int which, EvEvent& event);
    void fire(int which);

    UPtr<UiTextFieldImp> _imp;
    RCShdPtr<WsFont> _font;
    std::string _buffer;
    std::vector<int> _charX;
    LiString _savedString;
    bool _anchorFresh = true;
    int _selectionAnchor = 0;
    int _baseline = 0;
    int _textX = 0;
    int _firstVisible = 0;
    bool _readOnly = false;
    int _selStart = 0;
    int _selEnd = 0;
    int _cursor = 0;
    CoRgbColor _cursorColor;
    CoRgbColor _highlightColor;
    CoRgbColor _highlightedTextColor;
    CoRgbColor _onColor;
    bool _highlightedTextColorSet = false;
};

// Refuses the characters that file names may not hold; the post-filter also drops the blanks
// around a name.
class FileNameFilter : public UiTextField::BasicFilter {
public:
    FileNameFilter();
    LiString postFilter(LiString const& text) override;
};

} // namespace Zr
