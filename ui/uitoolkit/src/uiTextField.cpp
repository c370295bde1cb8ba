// UiTextField: text, cursor and selection, the glyph table and scrolling, pointer, key,
// character and hotkey handling, commit and cancel, the clipboard, resources and drawing.
#include "uiTextField.h"

#include "textFieldAdapter.h"
#include "textFieldSink.h"
#include "uiColorRegistry.h"
#include "uiDragAndDrop.h"
#include "uiFocusKeyboard.h"
#include "uiGrab.h"
#include "uiHotkeyRegistry.h"
#include "uiLogGroups.h"
#include "uiResAlign.h"
#include "uiResColor.h"
#include "uiResFont.h"
#include "uiResFrame.h"
#include "uiResInt.h"
#include "uiResSet.h"
#include "uiResText.h"
#include "uiWidgetEvent.h"
#include "uiWidgetRttiType.h"

#include "evKeyCode.h"
#include "lgLog.h"
#include "msgProtocol.h"
#include "osFile.h"
#include "smContext.h"
#include "smGl.h"
#include "wsClipboard.h"
#include "wsFontRegistry.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>

namespace Zr {

namespace {

// The dispatchers, in the order of their numbers.
enum Dispatcher { KeyEnter, ContentChanged, SetValue, KeyTab, Completion, KeyEscape, DropConsumed };

bool isContinuation(unsigned char c) {
    return (c & 0xC0) == 0x80;
}

// Word characters for word moves and double clicks: ASCII letters and digits, and every
// character beyond ASCII (letters of other scripts are what they mostly are).
bool isWordByte(unsigned char c) {
    return std::isalnum(c) || c >= 0x80;
}

// The longest prefix of `text` of at most `bytes` bytes that ends on a character boundary.
std::size_t cutOnBoundary(std::string const& text, std::size_t bytes) {
    if (bytes >= text.size())
        return text.size();
    while (bytes > 0 && isContinuation(static_cast<unsigned char>(text[bytes])))
        --bytes;
    return bytes;
}

// The nearest whole pixel, halves away from zero as lround, without its call for the usual
// positive position.
int toPixel(float x) {
    return x >= 0.f ? static_cast<int>(x + 0.5f) : static_cast<int>(std::lround(x));
}

// The hotkey entries of the field, looked up once the registry has its bindings.
struct FieldHotkeys {
    enum Action {
        Left,
        LeftHighlight,
        Right,
        RightHighlight,
        LeftWord,
        LeftWordHighlight,
        RightWord,
        RightWordHighlight,
        Begin,
        BeginHighlight,
        End,
        EndHighlight,
        DeleteAfter,
        DeleteBefore,
        Cut,
        Copy,
        Paste,
        Count
    };
    int entries[Count] = {};

    static FieldHotkeys const& get() {
        static FieldHotkeys const hotkeys = [] {
            static char const* const names[] = {"Left",
                                                "Left Highlight",
                                                "Right",
                                                "Right Highlight",
                                                "Left Word",
                                                "Left Word Highlight",
                                                "Right Word",
                                                "Right Word Highlight",
                                                "Begin",
                                                "Begin Highlight",
                                                "End",
                                                "End Highlight",
                                                "Delete Text After",
                                                "Delete Text Before"};
            FieldHotkeys h;
            UiHotkeyRegistry const& registry = UiHotkeyRegistry::getInstance();
            for (int i = 0; i < Cut; ++i)
                h.entries[i] = registry.getEntry(Domain, names[i]);
            h.entries[Cut] = UiGlobalHotkeys::Cut;
            h.entries[Copy] = UiGlobalHotkeys::Copy;
            h.entries[Paste] = UiGlobalHotkeys::Paste;
            return h;
        }();
        return hotkeys;
    }
    static constexpr char const* Domain = "/Local/UI Components/Text Components/Text Field";
};

// Asks the text field family whether a widget is a field being edited, for focus changes.
class TextFieldEditorHook : public UiFocusKeyboard::EditorHook {
public:
    bool isEditing(UiWidget& widget) const override {
        auto* field = dynamic_cast<UiTextField*>(&widget);
        return field && field->isEditing();
    }
    bool startsEditOnFocus(UiWidget& widget) const override {
        return dynamic_cast<UiTextField*>(&widget) != nullptr;
    }
};

// A resource of one of the field's names given with the wrong kind or count: the user hears of
// the table, the log says what was wrong; the resource is ignored and the rest applies.
void reportBadResource(UiWidget const& field, UiResource const& resource, char const* expected) {
    std::string const table = field.getResTableName(UiWidget::FullName);
    MsgWarning warning(MsgSubscription("MSG_RESOURCE_RES_ERROR"));
    warning.arg(MsgProtocol::substitute(table.empty() ? field.getName().str() : table));
    MsgProtocol::display(warning);
    std::string const text = "Error in resource '" + resource.getNameRef().str() +
                             "' for widget '" + field.getName().str() + "': expected " + expected +
                             ", got " + resource.getType();
    if (LgMinorGroup* group = UiLogGroups::uiResources())
        LgLog::writeLine(*group, text);
    else
        ExStdout::printAtomically(text);
}

} // namespace

// The dispatchers and the handlers bound to the field.
class UiTextFieldImp {
public:
    explicit UiTextFieldImp(UiTextField* owner)
        : arm(owner, &UiTextField::onArm), disarm(owner, &UiTextField::onDisarm),
          mmove(owner, &UiTextField::onMmove), keyPress(owner, &UiTextField::onKeyPress),
          inputChar(owner, &UiTextField::onInputChar),
          kbdFocusIn(owner, &UiTextField::onKbdFocusIn),
          kbdFocusOut(owner, &UiTextField::onKbdFocusOut), hotkey(owner, &UiTextField::onHotkey),
          userDraw(owner, &UiTextField::userDraw) {}

    RCShdPtr<UiTextField::Filter> filter;
    int leftEdge = 0;
    int rightEdge = 0;
    int bufferSize = 256;
    int alignment = 1;
    int alignmentOffset = 0;
    int borderWidth = 3;
    int marginH = 0;
    int oldX1 = 0;
    bool hotkeysRegistered = false;
    // The unrounded pen position of every byte and of the end, as the font measures it; the
    // glyph table holds these rounded. A change re-measures only the characters it touches.
    std::vector<float> pen;
    // Scratch for the font's positions, kept for its capacity.
    std::vector<float> positions;
    CbDispatcher<EvEvent> dispatchers[7];
    CbMethod<UiTextField, EvEvent> arm;
    CbMethod<UiTextField, EvEvent> disarm;
    CbMethod<UiTextField, EvEvent> mmove;
    CbMethod<UiTextField, EvEvent> keyPress;
    CbMethod<UiTextField, EvEvent> inputChar;
    CbMethod<UiTextField, EvEvent> kbdFocusIn;
    CbMethod<UiTextField, EvEvent> kbdFocusOut;
    CbMethod<UiTextField, EvEvent> hotkey;
    CbMethod<UiTextField, EvEvent> userDraw;
};

// --- filters ---------------------------------------------------------------------------------

bool UiTextField::Filter::isValid(LiString const& text) const {
    return std::all_of(text.str().begin(), text.str().end(), [this](char c) { return isValid(c); });
}

bool UiTextField::Filter::isValid(char) const {
    return true;
}

LiString UiTextField::Filter::preFilter(LiString const& text) {
    return text;
}

LiString UiTextField::Filter::postFilter(LiString const& text) {
    std::string out;
    std::string const& in = text.str();
    // Whole characters go or stay, so that a refused byte never leaves half a sequence.
    for (std::size_t i = 0; i < in.size();) {
        std::size_t n = 1;
        while (i + n < in.size() && isContinuation(static_cast<unsigned char>(in[i + n])))
            ++n;
        if (isValidCharacter(std::string_view(in).substr(i, n)))
            out.append(in, i, n);
        i += n;
    }
    return LiString(out);
}

bool UiTextField::Filter::isValidCharacter(std::string_view utf8) const {
    return std::all_of(utf8.begin(), utf8.end(), [this](char c) { return isValid(c); });
}

bool UiTextField::BasicFilter::isValid(char c) const {
    return _refused.find(c) == std::string::npos;
}

RCShdPtr<UiTextField::Filter> const& UiTextField::getDefaultFilter() {
    static RCShdPtr<Filter> const filter(new Filter);
    return filter;
}

RCShdPtr<UiTextField::Filter> const& UiTextField::getFileNameFilter() {
    static RCShdPtr<Filter> const filter(new FileNameFilter);
    return filter;
}

FileNameFilter::FileNameFilter() : BasicFilter(OsFileUtils::getFileInvalidChars()) {}

LiString FileNameFilter::postFilter(LiString const& text) {
    // Blanks around a name are never meant, and some systems refuse a trailing one.
    std::string const kept = BasicFilter::postFilter(text).str();
    std::size_t const first = kept.find_first_not_of(' ');
    if (first == std::string::npos)
        return LiString("");
    return LiString(kept.substr(first, kept.find_last_not_of(' ') - first + 1));
}

// --- life ------------------------------------------------------------------------------------

RCShdPtr<UiTextField> UiTextField::create(UiContainer* parent, LiString const& name,
                                          UiResTable const* table) {
    static TextFieldEditorHook hook;
    static bool const hookAdded = [] {
        UiFocusKeyboard::getInstance().addEditorHook(&hook);
        return true;
    }();
    (void)hookAdded;
    RCShdPtr<UiTextField> widget(new UiTextField(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiTextField::UiTextField(UiContainer* parent, LiString const& name)
    : UiWidget(parent, name), _imp(std::make_unique<UiTextFieldImp>(this)), _charX{0} {
    addArmCb(&_imp->arm);
    addDisarmCb(&_imp->disarm);
    addMmoveCb(&_imp->mmove);
    addKeyPressCb(&_imp->keyPress);
    addInputCharCb(&_imp->inputChar);
    addKbdFocusInCb(&_imp->kbdFocusIn);
    addKbdFocusOutCb(&_imp->kbdFocusOut);
    addUserDrawCb(&_imp->userDraw);
    RCShdPtr<UiDragAndDrop> dnd = UiDragAndDrop::create();
    dnd->setDndSrcSink(RCShdPtr<DrSrcSink>(new TextFieldSink(this)));
    dnd->setDropEnabled(true);
    setDndObject(dnd);
}

UiTextField::~UiTextField() {
    // The grabs and the hotkeys must not point at a field that is gone.
    UiGrab::keyboard().release(getEventHandler());
    UiHotkeyRegistry::getInstance().removeHotkeyHandler(&_imp->hotkey);
}

// --- text ------------------------------------------------------------------------------------

bool UiTextField::isValid(LiString const& text) const {
    return !_imp->filter || _imp->filter->isValid(text);
}

bool UiTextField::setString(char const* text, CursorPosition cursor, bool callContentChanged,
                            bool callSetValue) {
    LiString candidate(text ? text : "");
    if (_imp->filter) {
        candidate = _imp->filter->preFilter(candidate);
        if (!_imp->filter->isValid(candidate))
            return false;
    }
    assignText(candidate.str(), cursor, callContentChanged, callSetValue);
    return true;
}

void UiTextField::setStringAsIs(char const* text, CursorPosition cursor, bool callContentChanged,
                                bool callSetValue) {
    assignText(text ? text : "", cursor, callContentChanged, callSetValue);
}

void UiTextField::assignText(std::string text, CursorPosition cursor, bool callContentChanged,
                             bool callSetValue) {
    text = UiResText::toValidUtf8(text);
    text.resize(cutOnBoundary(text, static_cast<std::size_t>(_imp->bufferSize - 1)));
    _buffer = std::move(text);
    // Outside an edit, the text set is what Escape comes back to.
    if (!isEditing())
        _savedString = LiString(_buffer);
    _selStart = _selEnd = 0;
    _firstVisible = 0;
    // A word selection grown before stood in the old text: the next one starts afresh.
    _anchorFresh = true;
    rebuildGlyphTable();
    _cursor = cursor == 0 ? 0 : static_cast<int>(_buffer.size());
    adjustCoords();
    markForUpdate();
    if (callContentChanged)
        fire(ContentChanged);
    if (callSetValue)
        fire(SetValue);
}

void UiTextField::replaceRange(int from, int to, std::string const& text) {
    _buffer.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), text);
    _cursor = from + static_cast<int>(text.size());
    _selStart = _selEnd = _cursor;
    _anchorFresh = true;
    // A change that starts before the first visible character moved it: the scroll rule goes
    // on from the start of the change.
    _firstVisible = std::min(_firstVisible, from);
    updateGlyphTable(from, to - from, static_cast<int>(text.size()));
    scrollToCursor();
    markForUpdate();
    fire(ContentChanged);
}

bool UiTextField::insertString(char const* text) {
    std::string const s = UiResText::toValidUtf8(text ? text : "");
    if (_imp->filter && !_imp->filter->isValid(LiString(s)))
        return false;
    if (!fits(s.size()))
        return false;
    replaceSelection(s);
    return true;
}

void UiTextField::replaceSelection(std::string const& text) {
    if (_selStart == _selEnd)
        replaceRange(_cursor, _cursor, text);
    else
        replaceRange(std::min(_selStart, _selEnd), std::max(_selStart, _selEnd), text);
}

bool UiTextField::fits(std::size_t inserted) const {
    // In 64 bits: a pasted text longer than an int can hold must not wrap round.
    auto const selected = static_cast<long long>(std::abs(_selEnd - _selStart));
    return static_cast<long long>(_buffer.size()) - selected + static_cast<long long>(inserted) <
           _imp->bufferSize;
}

void UiTextField::deleteChar() {
    if (_selStart != _selEnd) {
        replaceRange(std::min(_selStart, _selEnd), std::max(_selStart, _selEnd), {});
        return;
    }
    if (_cursor >= static_cast<int>(_buffer.size()))
        return;
    int end = _cursor + 1;
    while (end < static_cast<int>(_buffer.size()) &&
           isContinuation(static_cast<unsigned char>(_buffer[static_cast<std::size_t>(end)])))
        ++end;
    replaceRange(_cursor, end, {});
}

void UiTextField::copy() {
    if (_selStart == _selEnd)
        return;
    int const from = std::min(_selStart, _selEnd);
    WsClipboard::getInstance().setText(_buffer.substr(
        static_cast<std::size_t>(from), static_cast<std::size_t>(std::abs(_selEnd - _selStart))));
}

void UiTextField::cut() {
    if (_readOnly || _selStart == _selEnd)
        return;
    copy();
    deleteChar();
}

void UiTextField::paste() {
    if (_readOnly)
        return;
    // One line: a pasted line break would end up as an invisible character.
    std::string text = WsClipboard::getInstance().getText();
    text = text.substr(0, text.find_first_of("\r\n"));
    insertString(text.c_str());
}

// --- cursor and selection ----------------------------------------------------------------------

void UiTextField::setCursorPos(int position) {
    int const size = static_cast<int>(_buffer.size());
    position = static_cast<int>(
        cutOnBoundary(_buffer, static_cast<std::size_t>(std::clamp(position, 0, size))));
    _cursor = position;
    _anchorFresh = true;
    scrollToCursor();
    markForUpdate();
}

void UiTextField::highlightAll() {
    setHighlight(0, static_cast<int>(_buffer.size()));
}

bool UiTextField::isAllHighlighted() const {
    return std::min(_selStart, _selEnd) == 0 &&
           std::max(_selStart, _selEnd) == static_cast<int>(_buffer.size());
}

void UiTextField::setHighlight(int start, int end) {
    auto clampToBoundary = [this](int p) {
        int const size = static_cast<int>(_buffer.size());
        return static_cast<int>(
            cutOnBoundary(_buffer, static_cast<std::size_t>(std::clamp(p, 0, size))));
    };
    _selStart = clampToBoundary(std::min(start, end));
    _selEnd = clampToBoundary(std::max(start, end));
    _anchorFresh = true;
    markForUpdate();
}

bool UiTextField::isEditing() const {
    return UiGrab::keyboard().getCurrent() == getEventHandler();
}

// Moves the cursor to `to`; with `extend` the selection grows or shrinks at the end where the
// cursor stood (starting at the cursor when there was none), otherwise it is cleared.
void UiTextField::moveCursor(int to, bool extend) {
    if (!extend) {
        _selStart = _selEnd = to;
    } else {
        if (_selStart == _selEnd)
            _selStart = _selEnd = _cursor;
        if (_cursor == _selStart)
            _selStart = to;
        else
            _selEnd = to;
        if (_selStart > _selEnd)
            std::swap(_selStart, _selEnd);
    }
    _cursor = to;
    scrollToCursor();
    markForUpdate();
}

void UiTextField::selectWordAt(int position) {
    std::string const& t = _buffer;
    int const size = static_cast<int>(t.size());
    if (size == 0)
        return;
    auto at = [&t](int i) { return static_cast<unsigned char>(t[static_cast<std::size_t>(i)]); };
    position = std::min(position, size - 1);
    while (position > 0 && isContinuation(at(position)))
        --position;
    int from = position, to = position;
    if (isWordByte(at(position))) {
        while (from > 0 && isWordByte(at(from - 1)))
            --from;
        while (to < size && isWordByte(at(to)))
            ++to;
    } else {
        // A run of one repeated character (ASCII here: anything beyond counts as a word).
        unsigned char const c = at(position);
        while (from > 0 && at(from - 1) == c)
            --from;
        while (to < size && at(to) == c)
            ++to;
    }
    _selStart = from;
    _selEnd = to;
    _cursor = to;
    scrollToCursor();
    markForUpdate();
}

// --- glyph table and scrolling ---------------------------------------------------------------

void UiTextField::rebuildGlyphTable() {
    _charX.assign(_buffer.size() + 1, 0);
    _imp->pen.assign(_buffer.size() + 1, 0.f);
    if (_font)
        measure(0, _buffer.size(), 0.f);
}

void UiTextField::measure(std::size_t start, std::size_t end, float origin) {
    _font->getCharacterPositions(std::string_view(_buffer).substr(start, end - start),
                                 _imp->positions);
    fill(start, end, origin);
}

void UiTextField::fill(std::size_t start, std::size_t end, float origin) {
    std::vector<float> const& positions = _imp->positions;
    std::vector<float>& pen = _imp->pen;
    // One position per character; the bytes inside a character share its position, so that any
    // offset reads a sensible x.
    std::size_t character = 0;
    for (std::size_t i = start; i < end; ++i) {
        if (i > start && !isContinuation(static_cast<unsigned char>(_buffer[i])))
            ++character;
        pen[i] = origin + positions[std::min(character, positions.size() - 1)];
        _charX[i] = toPixel(pen[i]);
    }
    if (end == _buffer.size()) {
        pen[end] = origin + positions.back();
        _charX[end] = toPixel(pen[end]);
    }
}

void UiTextField::updateGlyphTable(int from, int removed, int inserted) {
    std::vector<float>& pen = _imp->pen;
    std::size_t const size = _buffer.size();
    if (!_font || pen.size() + static_cast<std::size_t>(inserted) !=
                      size + 1 + static_cast<std::size_t>(removed)) {
        rebuildGlyphTable();
        return;
    }
    auto const at = static_cast<std::ptrdiff_t>(from);
    pen.erase(pen.begin() + at, pen.begin() + at + removed);
    pen.insert(pen.begin() + at, static_cast<std::size_t>(inserted), 0.f);
    _charX.erase(_charX.begin() + at, _charX.begin() + at + removed);
    _charX.insert(_charX.begin() + at, static_cast<std::size_t>(inserted), 0);
    auto byte = [this](std::size_t i) { return static_cast<unsigned char>(_buffer[i]); };
    // From the character before the change (its kerning with the first new one counts) to the
    // character after it (the kerning of the last new one with it).
    std::size_t start = static_cast<std::size_t>(from);
    if (start > 0) {
        --start;
        while (start > 0 && isContinuation(byte(start)))
            --start;
    }
    std::size_t const end = static_cast<std::size_t>(from + inserted);
    float const origin = start == 0 ? 0.f : pen[start];
    if (end == size) {
        measure(start, size, origin);
        return;
    }
    std::size_t stop = end + 1;
    while (stop < size && isContinuation(byte(stop)))
        ++stop;
    _font->getCharacterPositions(std::string_view(_buffer).substr(start, stop - start),
                                 _imp->positions);
    // The rest keeps its spacing and moves by as much as the character after the change did.
    float const delta = origin + _imp->positions[_imp->positions.size() - 2] - pen[end];
    fill(start, end, origin);
    for (std::size_t i = end; i <= size; ++i) {
        pen[i] += delta;
        _charX[i] = toPixel(pen[i]);
    }
}

void UiTextField::scrollToCursor() {
    int const left = _imp->leftEdge, right = _imp->rightEdge;
    auto at = [this](int i) { return _charX[static_cast<std::size_t>(i)]; };
    // Where the cursor stands with the text placed from the first visible character: the text
    // set, the table or the edges may have changed since the text was last placed.
    int const x = left - at(_firstVisible) + at(_cursor);
    if (x > right) {
        while (_firstVisible < _cursor && left - at(_firstVisible) + at(_cursor) > right) {
            ++_firstVisible;
            while (_firstVisible < _cursor &&
                   isContinuation(static_cast<unsigned char>(
                       _buffer[static_cast<std::size_t>(_firstVisible)])))
                ++_firstVisible;
        }
    } else if (x < left) {
        _firstVisible = _cursor;
    }
    _firstVisible = std::min(_firstVisible, _cursor);
    _textX = left - at(_firstVisible);
}

void UiTextField::adjustCoords() {
    GeRectangle<int> const canvas = getCanvas();
    int const inset = _imp->borderWidth + _imp->marginH;
    if (canvas.width() <= 2 * inset)
        return;
    UiWidget::adjustCoords();
    auto at = [this](int i) { return _charX[static_cast<std::size_t>(i)]; };
    int const grownLeft = _imp->oldX1 - canvas.x1;
    _imp->oldX1 = canvas.x1;
    _imp->leftEdge = canvas.x1 + inset;
    _imp->rightEdge = canvas.x2 - inset;
    int const room = _imp->rightEdge - _imp->leftEdge;
    auto stepDown = [this]() {
        --_firstVisible;
        while (_firstVisible > 0 && isContinuation(static_cast<unsigned char>(
                                        _buffer[static_cast<std::size_t>(_firstVisible)])))
            --_firstVisible;
    };
    // Grown to the left: show as many more characters at the start as the new room holds.
    while (grownLeft > 0 && _firstVisible > 0 && at(_firstVisible) - at(0) > 0) {
        int const before = _firstVisible;
        stepDown();
        if (at(before) - at(_firstVisible) > grownLeft) {
            _firstVisible = before;
            break;
        }
    }
    // While the end of the text stands inside the room, keep it at the right edge.
    int const end = static_cast<int>(_buffer.size());
    while (_firstVisible > 0) {
        int const before = _firstVisible;
        stepDown();
        if (at(end) - at(_firstVisible) > room) {
            _firstVisible = before;
            break;
        }
    }
    if (_font) {
        int const h = _font->getHeight();
        int bottom;
        if (_imp->alignment == 3)
            bottom = canvas.y2 - h - _imp->alignmentOffset;
        else if (_imp->alignment == 1)
            bottom = canvas.y1 + (canvas.height() - h) / 2 + _imp->alignmentOffset;
        else
            bottom = canvas.y1 + _imp->alignmentOffset;
        _baseline = bottom + _font->getDescent();
    }
    scrollToCursor();
}

int UiTextField::indexAt(int x) const {
    // The last character whose left edge plus half its width lies left of x.
    int index = 0;
    int const size = static_cast<int>(_buffer.size());
    for (int i = 0; i < size;) {
        int next = i + 1;
        while (next < size &&
               isContinuation(static_cast<unsigned char>(_buffer[static_cast<std::size_t>(next)])))
            ++next;
        int const left = _textX + _charX[static_cast<std::size_t>(i)];
        int const half =
            (_charX[static_cast<std::size_t>(next)] - _charX[static_cast<std::size_t>(i)]) / 2;
        if (left + half > x)
            break;
        index = next;
        i = next;
    }
    return index;
}

// --- look ------------------------------------------------------------------------------------

void UiTextField::setFont(LiString const& handle) {
    setFont(WsFontRegistry::getInstance().getFont(handle));
}

void UiTextField::setFont(RCShdPtr<WsFont> const& font) {
    _font = font;
    rebuildGlyphTable();
    adjustCoords();
    markForUpdate();
}

void UiTextField::setAlignmentV(int alignment, int offset) {
    _imp->alignment = alignment;
    _imp->alignmentOffset = offset;
    adjustCoords();
    markForUpdate();
}

void UiTextField::setBorderWidth(int width) {
    _imp->borderWidth = std::max(0, width);
    adjustCoords();
    markForUpdate();
}

void UiTextField::setColor(LiString const& name, CoRgbColor const& color) {
    if (name == "CursorColor") {
        _cursorColor = color;
    } else if (name == "HighlightColor") {
        _highlightColor = color;
    } else if (name == "HighlightedTextColor") {
        _highlightedTextColor = color;
        _highlightedTextColorSet = true;
    } else if (name == "OnColor") {
        _onColor = color;
    } else {
        UiWidget::setColor(name, color);
    }
    stateChanged();
}

CoRgbColor UiTextField::getColor(LiString const& name) const {
    if (name == "CursorColor")
        return _cursorColor;
    if (name == "HighlightColor")
        return _highlightColor;
    if (name == "HighlightedTextColor")
        return _highlightedTextColorSet ? _highlightedTextColor : _foreground;
    if (name == "OnColor")
        return _onColor;
    return UiWidget::getColor(name);
}

void UiTextField::stateChanged() {
    // Editable: the text background, lighter while an edit runs; read-only: the plain
    // background of the window.
    if (_readOnly)
        _currentBackground = UiColorRegistry::getInstance().getColor("Background");
    else
        _currentBackground = isEditing() ? _onColor : _background;
    markForUpdate();
}

// --- others ----------------------------------------------------------------------------------

void UiTextField::setBufLength(int length) {
    // The capacity plus one must stay an int.
    length = std::clamp(length, 0, std::numeric_limits<int>::max() - 1);
    if (length + 1 == _imp->bufferSize)
        return;
    _imp->bufferSize = length + 1;
    _buffer.resize(cutOnBoundary(_buffer, static_cast<std::size_t>(length)));
    _cursor = std::min(_cursor, static_cast<int>(_buffer.size()));
    _selStart = std::min(_selStart, _cursor);
    _selEnd = std::min(_selEnd, static_cast<int>(_buffer.size()));
    _firstVisible = std::min(_firstVisible, _cursor);
    _anchorFresh = true;
    rebuildGlyphTable();
    scrollToCursor();
    markForUpdate();
}

int UiTextField::getBufLength() const {
    return _imp->bufferSize - 1;
}

void UiTextField::setFilter(RCShdPtr<Filter> const& filter) {
    _imp->filter = filter;
}

void UiTextField::setFilter(char const* refused) {
    setFilter(RCShdPtr<Filter>(new BasicFilter(refused ? refused : "")));
}

RCShdPtr<UiTextField::Filter> const& UiTextField::getFilter() const {
    return _imp->filter;
}

void UiTextField::readOnly(bool on) {
    _readOnly = on;
    stateChanged();
}

// --- callbacks -------------------------------------------------------------------------------

void UiTextField::fire(int which, EvEvent& event) {
    _imp->dispatchers[which].call(event);
}

void UiTextField::fire(int which) {
    if (which == ContentChanged || which == SetValue) {
        UiValueChanged event(makeSender());
        fire(which, event);
    } else {
        EvDefaultEvent event;
        fire(which, event);
    }
}

#define ZR_TEXT_FIELD_CALLBACK(Name, Which)                                                        \
    void UiTextField::add##Name##Cb(CbHandler<EvEvent>* h) {                                       \
        _imp->dispatchers[Which].addHandler(h);                                                    \
    }                                                                                              \
    void UiTextField::remove##Name##Cb(CbHandler<EvEvent>* h) {                                    \
        _imp->dispatchers[Which].removeHandler(h);                                                 \
    }
ZR_TEXT_FIELD_CALLBACK(KeyEnter, KeyEnter)
ZR_TEXT_FIELD_CALLBACK(ContentChanged, ContentChanged)
ZR_TEXT_FIELD_CALLBACK(SetValue, SetValue)
ZR_TEXT_FIELD_CALLBACK(KeyTab, KeyTab)
ZR_TEXT_FIELD_CALLBACK(Completion, Completion)
ZR_TEXT_FIELD_CALLBACK(KeyEscape, KeyEscape)
ZR_TEXT_FIELD_CALLBACK(DndConsumed, DropConsumed)
#undef ZR_TEXT_FIELD_CALLBACK

void UiTextField::fireDropConsumed() {
    fire(DropConsumed);
}

RCShdPtr<PiWidget> UiTextField::retrieveInterface() {
    return RCShdPtr<PiWidget>(new TextFieldAdapter(RCShdPtr<UiTextField>(this)));
}

// --- resources -------------------------------------------------------------------------------

void UiTextField::setDefaultResources(UiResSet& set) {
    UiWidget::setDefaultResources(set);
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    auto color = [&set, &colors](char const* resource, char const* name) {
        set.set(RCShdPtr<UiResource>(new UiResColor(resource, colors.getColor(name))));
    };
    set.set(RCShdPtr<UiResource>(new UiResText("LabelString", "")));
    set.set(RCShdPtr<UiResource>(new UiResAlign("LabelAlign", "Left Center 0 0")));
    color(BackgroundColor.c_str(), "TextBackground");
    color("OnColor", "TextBackgroundOn");
    color("HighlightColor", "Grey200");
    color("CursorColor", "Black");
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "In")));
    set.set(RCShdPtr<UiResource>(new UiResFont(
        "LabelFont", WsFontRegistry::getInstance().getDefaultFontHandle().str().c_str())));
    set.set(RCShdPtr<UiResource>(new UiResInt("Editable", "1")));
}

void UiTextField::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    LiString const& name = resource->getNameRef();
    if (name == "LabelString") {
        auto const* text = dynamic_cast<UiResText const*>(resource.get());
        if (!text)
            reportBadResource(*this, *resource, "Text");
        else
            setString(text->getNbStrings() > 0 ? text->getString(0) : "", 1, false, false);
    } else if (name == "LabelAlign") {
        auto const* align = dynamic_cast<UiResAlign const*>(resource.get());
        if (!align) {
            reportBadResource(*this, *resource, "Align");
            return;
        }
        int const v = align->getAlignmentV();
        _imp->marginH = align->getMarginH();
        setAlignmentV(v == UiResAlign::Top      ? 3
                      : v == UiResAlign::Bottom ? 0
                                                : 1,
                      align->getMarginV());
    } else if (name == "LabelFont") {
        auto const* font = dynamic_cast<UiResFont const*>(resource.get());
        if (!font)
            reportBadResource(*this, *resource, "FontHandle");
        else
            setFont(font->getFontHandle());
    } else if (name == "Editable") {
        auto const* editable = dynamic_cast<UiResInt const*>(resource.get());
        if (!editable || editable->getNbValues() != 1)
            reportBadResource(*this, *resource, "one Int");
        else
            readOnly(editable->getValue(0) == 0);
    } else {
        UiWidget::setResource(resource);
    }
}

// --- pointer ---------------------------------------------------------------------------------

void UiTextField::beginEdit() {
    _savedString = LiString(_buffer);
    if (_imp->filter) {
        LiString const shown = _imp->filter->preFilter(LiString(_buffer));
        if (shown.str() != _buffer) {
            int const cursor = _cursor;
            assignText(shown.str(), 1, false, false);
            setCursorPos(cursor);
        }
    }
    UiGrab::keyboard().grab(getEventHandler());
}

void UiTextField::onArm(EvEvent& event) {
    auto const* press = evCast<EvPointerButtonDownEvent>(event);
    if (!press)
        return;
    UiGrab::pointer().grab(getEventHandler());
    if (!isEditing())
        beginEdit();
    _cursor = indexAt(press->getCoord().x);
    _anchorFresh = true;
    if (press->isDoubleClick())
        selectWordAt(_cursor);
    else
        moveCursor(_cursor, false);
}

void UiTextField::onMmove(EvEvent& event) {
    auto const* move = evCast<EvPointerMoveEvent>(event);
    if (!move || UiGrab::pointer().getCurrent() != getEventHandler())
        return;
    int const x = move->getCoord().x;
    int to = indexAt(x);
    // Past an edge the cursor steps one character beyond what shows, so that holding the
    // pointer there scrolls by whole characters.
    if (x < _imp->leftEdge && _firstVisible > 0)
        to = static_cast<int>(cutOnBoundary(_buffer, static_cast<std::size_t>(_firstVisible - 1)));
    if (to == _cursor)
        return;
    if (_selStart == _selEnd)
        _selStart = _cursor;
    _cursor = _selEnd = to;
    scrollToCursor();
    markForUpdate();
}

void UiTextField::onDisarm(EvEvent&) {
    UiGrab::pointer().release(getEventHandler());
    markForUpdate();
    if (_selStart > _selEnd)
        std::swap(_selStart, _selEnd);
}

// --- keys ------------------------------------------------------------------------------------

void UiTextField::commit() {
    LiString text(_buffer);
    if (_imp->filter)
        text = _imp->filter->postFilter(text);
    if (!isValid(text))
        return; // still editing: the user corrects the text or presses Escape
    UiGrab::keyboard().release(getEventHandler());
    bool const changed = text.str() != _buffer;
    assignText(text.str(), 1, changed, true);
    fire(KeyEnter);
}

void UiTextField::escape() {
    UiGrab::keyboard().release(getEventHandler());
    if (!_readOnly) {
        assignText(_savedString.str(), 0, false, false);
        fire(ContentChanged);
    }
    fire(KeyEscape);
}

void UiTextField::onKeyPress(EvEvent& event) {
    auto* key = evCast<EvKeyPressEvent>(event);
    if (!key || key->isProcessed())
        return;
    int const code = key->getTriggerKey();
    if (code == EvKeyCode::Return || code == EvKeyCode::KP_Enter) {
        if (isEditing()) {
            key->setProcessed();
            if (_readOnly)
                UiGrab::keyboard().release(getEventHandler());
            else
                commit();
        } else if (code == EvKeyCode::Return) {
            key->setProcessed();
            _selStart = 0;
            _selEnd = _cursor = static_cast<int>(_buffer.size());
            scrollToCursor();
            beginEdit();
        }
    } else if (code == EvKeyCode::Tab) {
        key->setProcessed();
        fire(KeyTab);
    } else if (code == EvKeyCode::Complete &&
               key->getKeyboardState().isEnabled(EvKeyboardState::Alt)) {
        key->setProcessed();
        fire(Completion);
    } else if (code == EvKeyCode::Escape) {
        key->setProcessed();
        escape();
    }
}

void UiTextField::onInputChar(EvEvent& event) {
    auto* ch = evCast<EvCharEvent>(event);
    if (!ch || ch->isProcessed() || !isEditing())
        return;
    // Taken here whatever becomes of it: the event also reaches the field as the keyboard focus.
    ch->setProcessed();
    std::string const utf8 = ch->getUtf8();
    if (ch->getChar() < 1 || !_font || _readOnly)
        return;
    if (_imp->filter && !_imp->filter->isValidCharacter(utf8))
        return;
    if (!fits(utf8.size()))
        return;
    replaceSelection(utf8);
}

// --- focus and hotkeys -------------------------------------------------------------------------

void UiTextField::onKbdFocusIn(EvEvent&) {
    if (_imp->hotkeysRegistered || getKeyboardFocusType() != HasKeyboardFocus)
        return;
    _imp->hotkeysRegistered = true;
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    for (int entry : FieldHotkeys::get().entries)
        if (entry != 0)
            registry.addHotkeyHandler(entry, &_imp->hotkey);
}

void UiTextField::onKbdFocusOut(EvEvent&) {
    UiGrab::keyboard().release(getEventHandler());
    if (!_imp->hotkeysRegistered)
        return;
    _imp->hotkeysRegistered = false;
    UiHotkeyRegistry::getInstance().removeHotkeyHandler(&_imp->hotkey);
}

void UiTextField::onHotkey(EvEvent& event) {
    auto* hk = evCast<EvHotkeyEvent>(event);
    if (!hk || hk->isProcessed())
        return;
    using H = FieldHotkeys;
    H const& keys = H::get();
    int action = -1;
    for (int i = 0; i < H::Count; ++i)
        if (keys.entries[i] != 0 && keys.entries[i] == hk->getEntry())
            action = i;
    if (action < 0)
        return;
    hk->setProcessed();
    int const size = static_cast<int>(_buffer.size());
    auto byte = [this](int i) {
        return static_cast<unsigned char>(_buffer[static_cast<std::size_t>(i)]);
    };
    auto prev = [&](int i) {
        if (i <= 0)
            return 0;
        --i;
        while (i > 0 && isContinuation(byte(i)))
            --i;
        return i;
    };
    auto next = [&](int i) {
        if (i >= size)
            return size;
        ++i;
        while (i < size && isContinuation(byte(i)))
            ++i;
        return i;
    };
    auto prevWord = [&](int i) {
        while (i > 0 && !isWordByte(byte(i - 1)))
            --i;
        while (i > 0 && isWordByte(byte(i - 1)))
            --i;
        return i;
    };
    auto nextWord = [&](int i) {
        while (i < size && isWordByte(byte(i)))
            ++i;
        while (i < size && !isWordByte(byte(i)))
            ++i;
        return i;
    };
    // Word moves with selection keep their anchor until another kind of action comes.
    auto wordMove = [&](int to, bool extend) {
        if (!extend) {
            _anchorFresh = true;
            moveCursor(to, false);
            return;
        }
        if (_anchorFresh) {
            _selectionAnchor = _cursor;
            _anchorFresh = false;
        }
        _cursor = to;
        _selStart = std::min(_selectionAnchor, to);
        _selEnd = std::max(_selectionAnchor, to);
        scrollToCursor();
        markForUpdate();
    };
    if (action != H::LeftWordHighlight && action != H::RightWordHighlight)
        _anchorFresh = true;
    switch (action) {
    case H::Left:
        moveCursor(prev(_cursor), false);
        break;
    case H::LeftHighlight:
        moveCursor(prev(_cursor), true);
        break;
    case H::Right:
        moveCursor(next(_cursor), false);
        break;
    case H::RightHighlight:
        moveCursor(next(_cursor), true);
        break;
    case H::LeftWord:
        wordMove(prevWord(_cursor), false);
        break;
    case H::LeftWordHighlight:
        wordMove(prevWord(_cursor), true);
        break;
    case H::RightWord:
        wordMove(nextWord(_cursor), false);
        break;
    case H::RightWordHighlight:
        wordMove(nextWord(_cursor), true);
        break;
    case H::Begin:
        moveCursor(0, false);
        break;
    case H::BeginHighlight:
        moveCursor(0, true);
        break;
    case H::End:
        moveCursor(size, false);
        break;
    case H::EndHighlight:
        moveCursor(size, true);
        break;
    case H::DeleteAfter:
        if (!_readOnly)
            deleteChar();
        break;
    case H::DeleteBefore:
        if (_readOnly)
            break;
        if (_selStart == _selEnd && _cursor > 0)
            replaceRange(prev(_cursor), _cursor, {});
        else
            deleteChar();
        break;
    case H::Cut:
        cut();
        break;
    case H::Copy:
        copy();
        break;
    case H::Paste:
        paste();
        break;
    default:
        break;
    }
}

// --- drawing ---------------------------------------------------------------------------------

void UiTextField::userDraw(EvEvent& event) {
    if (!_font)
        return;
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(getDrawState(DrawStateByOpacity));
    GeRectangle<int> const canvas = getCanvas();
    // Scrolled text must not spill over the frame: the scissor shrinks to the text area for
    // the text and comes back for the frame drawn after.
    auto const* draw = dynamic_cast<EvDrawEvent const*>(&event);
    if (draw) {
        GePoint2<int> const o = draw->getOrigin();
        GeRectangle<int> area{_imp->leftEdge - 1 + o.x, _imp->rightEdge + 1 + o.x, canvas.y1 + o.y,
                              canvas.y2 + o.y};
        area.intersect(draw->getDrawRegion());
        SmGl::scissor(area.x1, area.y1, std::max(0, area.width()), std::max(0, area.height()));
    }
    CoRgbColor const text = isEnabled() ? _foreground : _inactiveForeground;
    float const x = static_cast<float>(_textX), y = static_cast<float>(_baseline);
    int const from = std::min(_selStart, _selEnd), to = std::max(_selStart, _selEnd);
    if (from != to) {
        SmGl::color3fv(_highlightColor.data());
        int const x1 = std::max(canvas.x1, _textX + _charX[static_cast<std::size_t>(from)]);
        int const x2 = std::min(canvas.x2, _textX + _charX[static_cast<std::size_t>(to)]);
        SmGl::recti(x1, canvas.y1 + 1, x2, canvas.y2 - 1);
        SmGl::color3fv(text.data());
        _font->drawSubString(_buffer, 0, static_cast<std::size_t>(from), x, y, 1.f, 0);
        SmGl::color3fv(getColor("HighlightedTextColor").data());
        _font->drawSubString(_buffer, static_cast<std::size_t>(from),
                             static_cast<std::size_t>(to - from), x, y, 1.f, 0);
        SmGl::color3fv(text.data());
        _font->drawSubString(_buffer, static_cast<std::size_t>(to), std::string::npos, x, y, 1.f,
                             0);
    } else {
        SmGl::color3fv(text.data());
        _font->drawString(_buffer, x, y);
    }
    if (isEditing() && !_readOnly) {
        int const cx = _textX + _charX[static_cast<std::size_t>(_cursor)];
        SmGl::color3fv(_cursorColor.data());
        SmGl::begin(Gl::LINES);
        SmGl::vertex2f(static_cast<float>(cx) + 0.5f, static_cast<float>(canvas.y1 + 1));
        SmGl::vertex2f(static_cast<float>(cx) + 0.5f, static_cast<float>(canvas.y2 - 1));
        SmGl::end();
    }
    if (draw) {
        GeRectangle<int> const& r = draw->getDrawRegion();
        SmGl::scissor(r.x1, r.y1, r.width(), r.height());
    }
}

RttiType<WidgetRttiType> const& UiTextField::getNodeType() const {
    return UiWidgetTypes::TextField::getType();
}

} // namespace Zr
