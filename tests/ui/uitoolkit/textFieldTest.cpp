// Text fields: the editing keys of the hotkey table (UTF-8 included), typing, commit and cancel
// with their callbacks in order, the filters and their messages, buffer limits, dropped text,
// the double click, scrolling, focus between fields, resources and the plug-in interface.
#include "buttonTestSupport.h"
#include "piTextField.h"
#include "snItemConvert.h"
#include "uiDragAndDrop.h"
#include "uiHotkeyRegistry.h"
#include "uiIdentifierFilter.h"
#include "uiPathFilter.h"
#include "uiRationalFilter.h"
#include "uiResTable.h"
#include "uiTextField.h"
#include "uiWidgetFactory.h"
#include "wsClipboard.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <list>

namespace Zr {
namespace {

using Log = std::vector<std::string>;
using K = EvKeyCode;
constexpr unsigned Shift = EvKeyboardState::Shift, Ctrl = EvKeyboardState::Control;

// Every message shown, as its id or, for a plain text, its text.
struct Messages {
    Messages() {
        previous = MsgProtocol::setDisplayHandler([this](MsgBase const& m) {
            shown.push_back(m.getId().empty() ? m.getText() : m.getId());
        });
    }
    ~Messages() { MsgProtocol::setDisplayHandler(previous); }
    Log shown;
    MsgProtocol::DisplayHandler previous;
};

class TextField : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        ButtonFixture::SetUp();
        field = UiTextField::create(root.get(), "field");
        field->setRect({10, 150, 10, 40}, false);
        for (auto [name, add] : callbacks)
            (field.get()->*add)(
                &handlers.emplace_back([this, name = name](EvEvent&) { log.push_back(name); }));
    }
    void TearDown() override {
        UiGrab::keyboard().clear();
        field = nullptr;
        ButtonFixture::TearDown();
    }
    // A key through the hotkey registry and then the field, as the loop delivers it.
    void key(int code, unsigned modifiers = 0) {
        EvKeyPressEvent e = UiTest::keyPressOf(code, modifiers);
        UiHotkeyRegistry::getInstance().processEvent(e);
        if (!e.isProcessed())
            field->processEvent(e);
    }
    void type(std::string const& text) {
        for (char32_t c : WideStringUtil::widen(text)) {
            EvCharEvent e(c);
            field->processEvent(e);
        }
    }
    std::string text() const { return field->getString().str(); }

    using Add = void (UiTextField::*)(CbHandler<EvEvent>*);
    std::pair<char const*, Add> const callbacks[7] = {
        {"enter", &UiTextField::addKeyEnterCb},     {"changed", &UiTextField::addContentChangedCb},
        {"set", &UiTextField::addSetValueCb},       {"tab", &UiTextField::addKeyTabCb},
        {"escape", &UiTextField::addKeyEscapeCb},   {"dropped", &UiTextField::addDndConsumedCb},
        {"complete", &UiTextField::addCompletionCb}};
    std::list<CbFunction<EvEvent>> handlers;
    RCShdPtr<UiTextField> field;
    Log log;
};

struct KeyRow {
    char const* text;
    int cursor, selStart, selEnd;
    int key;
    unsigned modifiers;
    char const* expectedText;
    int expectedCursor, expectedStart, expectedEnd;
};

TEST_F(TextField, EditingKeysMoveTheCursorAndSelectionOverWholeCharacters) {
    // "h\xc3\xa9llo" is "héllo": é takes bytes 1 and 2; "日本" three bytes each.
    KeyRow const rows[] = {
        {"abc", 3, 3, 3, K::Left, 0, "abc", 2, 2, 2},
        {"abc", 3, 1, 3, K::Left, 0, "abc", 2, 2, 2},
        {"abc", 3, 3, 3, K::Left, Shift, "abc", 2, 2, 3},
        {"abc", 1, 1, 3, K::Right, Shift, "abc", 2, 2, 3},
        {"abc", 2, 2, 3, K::Left, Shift, "abc", 1, 1, 3},
        {"abc", 3, 0, 3, K::Right, 0, "abc", 3, 3, 3},
        {"one two", 7, 7, 7, K::Left, Ctrl, "one two", 4, 4, 4},
        {"one two", 0, 0, 0, K::Right, Ctrl, "one two", 4, 4, 4},
        {"one two", 7, 7, 7, K::Left, Shift | Ctrl, "one two", 4, 4, 7},
        {"abc", 2, 2, 2, K::Home, 0, "abc", 0, 0, 0},
        {"abc", 2, 2, 2, K::Home, Shift, "abc", 0, 0, 2},
        {"abc", 0, 0, 0, K::End, Shift, "abc", 3, 0, 3},
        {"abc", 1, 1, 1, K::Delete, 0, "ac", 1, 1, 1},
        {"abc", 1, 1, 1, K::BackSpace, 0, "bc", 0, 0, 0},
        {"abc", 2, 0, 2, K::BackSpace, 0, "c", 0, 0, 0},
        {"h\xc3\xa9llo", 1, 1, 1, K::Right, 0, "h\xc3\xa9llo", 3, 3, 3},
        {"h\xc3\xa9llo", 3, 3, 3, K::Left, Shift, "h\xc3\xa9llo", 1, 1, 3},
        {"h\xc3\xa9llo", 3, 3, 3, K::BackSpace, 0, "hllo", 1, 1, 1},
        {"h\xc3\xa9llo", 1, 1, 1, K::Delete, 0, "hllo", 1, 1, 1},
        {"\xe6\x97\xa5\xe6\x9c\xac", 6, 6, 6, K::Left, 0, "\xe6\x97\xa5\xe6\x9c\xac", 3, 3, 3},
        {"h\xc3\xa9 x", 0, 0, 0, K::Right, Ctrl, "h\xc3\xa9 x", 4, 4, 4},
    };
    UiFocusKeyboard::getInstance().setFocus(field.get());
    for (KeyRow const& r : rows) {
        SCOPED_TRACE(std::string(r.text) + " key " + std::to_string(r.key));
        field->setString(r.text);
        field->setHighlight(r.selStart, r.selEnd);
        field->setCursorPos(r.cursor);
        key(r.key, r.modifiers);
        EXPECT_EQ(text(), r.expectedText);
        EXPECT_EQ(field->getCursorPos(), r.expectedCursor);
        EXPECT_EQ(field->getSelectionStart(), r.expectedStart);
        EXPECT_EQ(field->getSelectionEnd(), r.expectedEnd);
    }
    // A word selection grown in one text does not reach into the next one set.
    field->setString("hello world");
    key(K::Left, Ctrl | Shift);
    field->setString("ab", 0);
    key(K::Right, Ctrl | Shift);
    EXPECT_EQ(field->getSelectionStart(), 0);
    EXPECT_EQ(field->getSelectionEnd(), 2);
    // Read-only: the delete keys change nothing; focus out takes the keys away.
    field->setString("h\xc3\xa9 x");
    field->readOnly(true);
    key(K::BackSpace);
    key(K::Delete);
    EXPECT_EQ(text(), "h\xc3\xa9 x");
    UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
    field->readOnly(false);
    key(K::Delete);
    EXPECT_EQ(text(), "h\xc3\xa9 x");
}

struct EditRow {
    char const* name;
    RCShdPtr<UiTextField::Filter> filter;
    char const* start;
    char const* typed;
    int endKey;
    char const* expectedText;
    bool stillEditing;
    Log expectedLog;
    Log expectedMessages;
};

TEST_F(TextField, TypingThenEnterCommitsAndEscapeRestoresWithCallbacksInOrder) {
    auto rate = makeShared<UiRateFilter>();
    EditRow const rows[] = {
        {"commit",
         nullptr,
         "ab",
         "c\xc3\xa9",
         K::Return,
         "c\xc3\xa9",
         false,
         {"changed", "changed", "set", "enter"},
         {}},
        {"escape",
         nullptr,
         "ab",
         "cd",
         K::Escape,
         "ab",
         false,
         {"changed", "changed", "changed", "escape"},
         {}},
        {"keypad enter",
         nullptr,
         "ab",
         "x",
         K::KP_Enter,
         "x",
         false,
         {"changed", "set", "enter"},
         {}},
        {"refused characters",
         rate,
         "25",
         "3x0",
         K::Return,
         "30 FPS",
         false,
         {"changed", "changed", "changed", "set", "enter"},
         {}},
        {"refused commit",
         rate,
         "25",
         "0",
         K::Return,
         "0",
         true,
         {"changed"},
         {"MSG_VALUE_GREATER_ZERO"}},
        {"bad syntax",
         rate,
         "25",
         "1/",
         K::Return,
         "1/",
         true,
         {"changed", "changed"},
         {"MSG_SYNTAX_ERROR"}},
        // Read-only: nothing typed goes in; Return ends the edit without a commit.
        {"read-only", nullptr, "ab", "cd", K::Return, "ab", false, {}, {}},
    };
    for (EditRow const& r : rows) {
        SCOPED_TRACE(r.name);
        field->setFilter(r.filter);
        field->setString(r.start);
        field->readOnly(std::string(r.name) == "read-only");
        log.clear();
        Messages messages;
        key(K::Return); // not editing: Return starts the edit with everything selected
        EXPECT_TRUE(field->isEditing());
        EXPECT_TRUE(field->isAllHighlighted());
        type(r.typed);
        key(r.endKey);
        EXPECT_EQ(text(), r.expectedText);
        EXPECT_EQ(field->isEditing(), r.stillEditing);
        EXPECT_EQ(log, r.expectedLog);
        EXPECT_EQ(messages.shown, r.expectedMessages);
        UiGrab::keyboard().clear();
    }
    // Tab and completion (alt) are told; characters without an edit are not taken.
    log.clear();
    key(K::Tab);
    key(K::Complete, EvKeyboardState::Alt);
    type("z");
    EXPECT_EQ(log, (Log{"tab", "complete"}));
}

TEST_F(TextField, PressStartsAnEditAtThePointerAndDoubleClickSelectsARun) {
    field->setString("ab   cd");
    RCShdPtr<WsFont> font = field->getFont();
    ASSERT_TRUE(font);
    int const x0 = field->getTextOrigin().x;
    auto xOf = [&](int byte) {
        return x0 + static_cast<int>(font->getSubStringWidth("ab   cd", 0, byte));
    };
    auto down = UiTest::makeDown(1, {xOf(3) + 1, 20});
    field->processEvent(down);
    EXPECT_TRUE(field->isEditing());
    EXPECT_EQ(field->getCursorPos(), 3);
    auto up = UiTest::makeUp(1);
    field->processEvent(up);
    down.setDoubleClick(true);
    field->processEvent(down);
    field->processEvent(up);
    EXPECT_EQ(field->getSelectionStart(), 2);
    EXPECT_EQ(field->getSelectionEnd(), 5);
    down = UiTest::makeDown(1, {xOf(1), 20});
    down.setDoubleClick(true);
    field->processEvent(down);
    field->processEvent(up);
    EXPECT_EQ(field->getSelectionStart(), 0);
    EXPECT_EQ(field->getSelectionEnd(), 2);
}

struct FilterRow {
    char const* name;
    RCShdPtr<UiTextField::Filter> filter;
    char const* text;
    bool valid;
    char const* postFiltered;
    Log messages;
};

TEST_F(TextField, FiltersAcceptRefuseAndRewriteAsTheirRulesSay) {
    std::string const dir = std::filesystem::temp_directory_path().string();
    std::string const file = dir + "/zrTextFieldTest.txt";
    std::ofstream(file) << "x";
    auto directory = makeShared<UiPathFilter>(UiPathFilter::Directory, true);
    auto anyFile = makeShared<UiPathFilter>(UiPathFilter::File, false);
    auto basic = makeShared<UiTextField::BasicFilter>("-");
    auto rational = makeShared<UiRationalFilter>();
    FilterRow const rows[] = {
        {"basic", basic, "1-2", false, "12", {}},
        {"basic utf-8", basic, "\xc3\xa9-", false, "\xc3\xa9", {}},
        {"file name", UiTextField::getFileNameFilter(), " a*b ", false, "ab", {}},
        {"identifier", makeShared<UiIdentifierFilter>(), " a:b", false, "ab", {}},
        {"rational", rational, "24000/1001", true, "24000/1001", {}},
        {"rational colon", rational, "16:9", true, "16:9", {}},
        {"rational syntax", rational, "1.2.3", false, "1.2.3", {"MSG_SYNTAX_ERROR"}},
        {"integer overflow",
         rational,
         "99999999999/1",
         false,
         "99999999999/1",
         {"MSG_INTEGER_OVERFLOW"}},
        {"float overflow",
         rational,
         "99999999999.5",
         false,
         "99999999999.5",
         {"MSG_FLOATING_OVERFLOW"}},
        {"rate zero", makeShared<UiRateFilter>(), "0", false, "0 FPS", {"MSG_VALUE_GREATER_ZERO"}},
        {"rate fraction", makeShared<UiRateFilter>(), "24000/1001", true, "24000/1001 FPS", {}},
        {"rate whole", makeShared<UiRateFilter>(), "25 FPS", true, "25 FPS", {}},
        {"ratio", makeShared<UiRatioFilter>(), "1.5", true, "3:2", {}},
        {"directory asked",
         directory,
         file.c_str(),
         false,
         file.c_str(),
         {"Path must be a directory."}},
        {"file asked", anyFile, dir.c_str(), false, dir.c_str(), {"Path must be a file."}},
        {"missing",
         directory,
         "/no/such/dir",
         false,
         "/no/such/dir",
         {"Directory does not exist."}},
        {"missing allowed", anyFile, "/no/such/file", true, "/no/such/file", {}},
    };
    for (FilterRow const& r : rows) {
        SCOPED_TRACE(r.name);
        Messages messages;
        EXPECT_EQ(r.filter->isValid(LiString(r.text)), r.valid);
        EXPECT_EQ(messages.shown, r.messages);
        EXPECT_EQ(r.filter->postFilter(LiString(r.text)).str(), r.postFiltered);
    }
    std::filesystem::remove(file);
}

TEST_F(TextField, BufferLimitsAndRefusalsLeaveTheTextWhole) {
    struct Row {
        char const* name;
        std::function<bool(UiTextField&)> op;
        bool result;
        char const* expected;
    } const rows[] = {
        {"null empties", [](UiTextField& f) { return f.setString(nullptr); }, true, ""},
        {"refused insert",
         [](UiTextField& f) {
             f.setFilter("-");
             return f.insertString("1-2");
         },
         false, "abcdef"},
        {"shorter buffer",
         [](UiTextField& f) {
             f.setBufLength(3);
             return true;
         },
         true, "abc"},
        {"cut on a boundary",
         [](UiTextField& f) {
             f.setString("a\xc3\xa9");
             f.setBufLength(2);
             return true;
         },
         true, "a"},
        {"too long insert",
         [](UiTextField& f) {
             f.setBufLength(7);
             return f.insertString("xy");
         },
         false, "abcdef"},
        {"largest capacity",
         [](UiTextField& f) {
             f.setBufLength(std::numeric_limits<int>::max());
             return f.insertString("x");
         },
         true, "abcdefx"},
        {"bad utf-8 repaired", [](UiTextField& f) { return f.setString("a\xff"); }, true,
         "a\xef\xbf\xbd"},
        {"refused set",
         [](UiTextField& f) {
             f.setFilter(makeShared<UiRationalFilter>());
             return f.setString("x");
         },
         false, "abcdef"},
    };
    for (Row const& r : rows) {
        SCOPED_TRACE(r.name);
        field->setFilter(RCShdPtr<UiTextField::Filter>());
        field->setBufLength(255);
        field->setString("abcdef");
        Messages quiet;
        EXPECT_EQ(r.op(*field), r.result);
        EXPECT_EQ(text(), r.expected);
    }
}

TEST_F(TextField, ClipboardAndDroppedTextGoThroughTheField) {
    field->setString("hello");
    field->setHighlight(0, 4);
    field->cut();
    EXPECT_EQ(WsClipboard::getInstance().getText(), "hell");
    field->paste();
    field->paste();
    EXPECT_EQ(text(), "hellhello");
    log.clear();
    auto carrierOf = [](std::vector<RCShdPtr<SnItem>> items) {
        RCShdPtr<SnSelection> selection = SnSelection::create();
        for (auto const& item : items)
            selection->addItem(item);
        return DrCarrier::create(selection);
    };
    auto text1 = SnItemConvert<std::string>::createItem("dropped");
    EXPECT_FALSE(
        UiDragAndDrop::consumeSelection(field, carrierOf({SnItemConvert<int>::createItem(1)})));
    EXPECT_TRUE(UiDragAndDrop::consumeSelection(
        field, carrierOf({SnItemConvert<int>::createItem(1), text1})));
    EXPECT_EQ(text(), "dropped");
    EXPECT_EQ(log, (Log{"changed", "dropped"}));
    field->setFilter("o");
    EXPECT_FALSE(UiDragAndDrop::consumeSelection(field, carrierOf({text1})));
    field->enable(false);
    field->setFilter(RCShdPtr<UiTextField::Filter>());
    EXPECT_FALSE(UiDragAndDrop::consumeSelection(field, carrierOf({text1})));
    EXPECT_EQ(log, (Log{"changed", "dropped"}));
}

TEST_F(TextField, LongTextScrollsByWholeCharactersToKeepTheCursorInView) {
    std::string const long_(60, 'w');
    field->setString(long_.c_str());
    GePoint2<int> const end = field->getTextOrigin();
    EXPECT_GT(field->getFirstVisible(), 0);
    RCShdPtr<WsFont> font = field->getFont();
    int const rightEdge = end.x + static_cast<int>(font->getStringWidth(long_));
    EXPECT_LE(rightEdge, field->getCanvas().x2);
    EXPECT_GT(rightEdge, field->getCanvas().x2 - static_cast<int>(font->getStringWidth("ww")) - 3);
    // The next long text scrolls to its end from the start, not from where the last one stood.
    field->setString((long_ + "x").c_str());
    EXPECT_GT(field->getFirstVisible(), 0);
    // Text put in place of it all shows from its start.
    field->highlightAll();
    field->insertString("ab\xef\xbf\xbd");
    EXPECT_EQ(field->getFirstVisible(), 0);
    field->setString((long_ + "x").c_str());
    // A text set before the field has its size shows from its start once it has one.
    RCShdPtr<UiTextField> late = UiTextField::create(root.get(), "late");
    late->setString("short");
    late->setRect({10, 150, 50, 78}, false);
    EXPECT_EQ(late->getFirstVisible(), 0);
    UiFocusKeyboard::getInstance().setFocus(field.get());
    key(K::Home);
    EXPECT_EQ(field->getFirstVisible(), 0);
    EXPECT_EQ(field->getTextOrigin().x, field->getCanvas().x1 + 3);
}

// Each edit re-measures only what it touched; the table must stay what measuring the whole text
// gives, over kerning pairs, characters beyond ASCII, and edits at the start, middle and end.
TEST_F(TextField, EditsKeepTheGlyphTableOfTheWholeText) {
    struct Edit {
        int from, to;
        char const* inserted; // or, when null, the key
        int key;
    };
    Edit const edits[] = {{1, 1, "W", 0},
                          {0, 0, "V", 0},
                          {10, 10, "o\xc3\xa9", 0},
                          {3, 3, nullptr, K::BackSpace},
                          {0, 0, nullptr, K::Delete},
                          {2, 6, "\xe6\x97\xa5T", 0},
                          {4, 4, nullptr, K::Delete},
                          {12, 12, nullptr, K::BackSpace},
                          {0, 13, "AV", 0},
                          {1, 1, "", 0}};
    RCShdPtr<UiTextField> whole = UiTextField::create(root.get(), "whole");
    field->setString("AVAT\xc3\x96R To");
    UiFocusKeyboard::getInstance().setFocus(field.get());
    for (Edit const& e : edits) {
        SCOPED_TRACE(text() + " at " + std::to_string(e.from));
        field->setHighlight(e.from, e.to);
        field->setCursorPos(e.to);
        if (e.inserted)
            field->insertString(e.inserted);
        else
            key(e.key);
        whole->setString(text().c_str());
        for (int i = 0; i <= static_cast<int>(text().size()); ++i)
            ASSERT_EQ(field->getCharacterX(i), whole->getCharacterX(i)) << i;
    }
    EXPECT_EQ(text(), "AV");
}

TEST_F(TextField, FocusMovingFromAnEditingFieldStartsTheNextEdit) {
    RCShdPtr<UiTextField> other = UiTextField::create(root.get(), "other");
    other->setString("next");
    UiFocusKeyboard::getInstance().setFocus(field.get());
    key(K::Return);
    ASSERT_TRUE(field->isEditing());
    UiFocusKeyboard::getInstance().setFocus(other.get());
    EXPECT_FALSE(field->isEditing());
    EXPECT_TRUE(other->isEditing());
    EXPECT_TRUE(other->isAllHighlighted());
}

TEST_F(TextField, ResourcesFromATableAndABadOneReported) {
    ASSERT_TRUE(UiWidgetFactory::isRegistered("TextField"));
    UiResTable table;
    table.readTable(LiString("<ResourceTable><Widget Name=\"f\">"
                             "<LabelString><Text>hi</Text></LabelString>"
                             "<Editable><Text>no</Text></Editable>"
                             "<HighlightColor><Color>Red</Color></HighlightColor>"
                             "</Widget></ResourceTable>"),
                    UiResource::LevelApplication);
    UiTest::Reports reports;
    RCShdPtr<UiTextField> f = UiTextField::create(root.get(), "f", &table);
    EXPECT_EQ(f->getString().str(), "hi");
    EXPECT_FALSE(f->isReadOnly());
    EXPECT_EQ(f->getColor("HighlightColor"), UiTest::color("Red"));
    EXPECT_EQ(reports.ids(), Log{"MSG_RESOURCE_RES_ERROR"});
    EXPECT_NE(reports.log().find("Error in resource 'Editable' for widget 'f': expected one Int"),
              std::string::npos);
    RCShdPtr<PiTextField> iface = dynamicCast<PiTextField>(f->retrieveInterface());
    ASSERT_TRUE(iface);
    EXPECT_TRUE(iface->setString("plug-in", false));
    EXPECT_EQ(iface->getString(), "plug-in");
    iface->setReadOnly(true);
    EXPECT_TRUE(f->isReadOnly());
}

} // namespace
} // namespace Zr
