// The underline of bound value editors in a real window: a hollow bar for an animated input with
// no key now, a solid one on a key, and the band of a marked input above it, in the colours of
// the colour table. Skipped without a display or XTest.
#include "foundation/framework/inputValueTestGraph.h"
#include "xinputWindowFixture.h"

#include "piKeyframingUtil.h"
#include "uiColorRegistry.h"
#include "uiInputValueEditor.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Zr;

namespace {

class InputUnderlineScreen : public XInputTest::XInputWindowFixture {
protected:
    GeRectangle<int> windowRect() const override { return {100, 400, 100, 200}; }
    char const* windowTitle() const override { return "input underline test"; }

    static std::uint32_t rgba(char const* name) {
        CoRgbColorTyped<float> const c = UiColorRegistry::getInstance().getColor(LiString(name));
        auto byte = [](float v) { return std::uint32_t(std::lround(v * 255.f)); };
        return byte(c.data()[0]) << 24 | byte(c.data()[1]) << 16 | byte(c.data()[2]) << 8 | 0xffu;
    }
};

TEST_F(InputUnderlineScreen, AnimatedKeyAndMarkedInputsAreUnderlined) {
    struct Row {
        char const* what;
        void (*prepare)(test::InputTestGraph&);
        bool middleGreen; // the bar's middle row: solid on a key, hollow otherwise
        bool marked;
    } const rows[] = {
        {"animated, no key now", [](test::InputTestGraph& g) { g.input("radius")->setKey(5, 9); },
         false, false},
        {"on a key", [](test::InputTestGraph& g) { g.input("radius")->setKey(0, 9); }, true, false},
        {"marked and on a key",
         [](test::InputTestGraph& g) {
             g.input("radius")->setKey(0, 9);
             g.graph->getKeyframingUtil()->markAttribute(g.input("radius"), g.timePath);
         },
         true, true},
    };
    std::uint32_t const green = rgba("Keyframe"), yellow = rgba("MarkedForAnimation");
    std::vector<test::InputTestGraph> graphs(std::size(rows));
    std::vector<RCShdPtr<UiValueEditor>> editors;
    UiContainer* root = _top->getRootContainer().get();
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        auto editor = UiValueEditor::create(root, "e" + std::to_string(i));
        int const y = 10 + 30 * int(i);
        editor->setRect({20, 160, y, y + 21});
        UiInputValueEditor::setInput(*editor, graphs[i].input("radius"), graphs[i].timePath);
        rows[i].prepare(graphs[i]);
        editors.push_back(editor);
    }
    pumpFor(150);
    if (char const* shot = std::getenv("ZR_INPUT_UNDERLINE_PNG"))
        WsScreenshot::writePng(*_top->getOSWindow(), OsFilePath(shot));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        SCOPED_TRACE(rows[i].what);
        GeRectangle<int> const c = editors[i]->getCanvas();
        int const x = (c.x1 + c.x2) / 2;
        EXPECT_EQ(pixel(x, c.y1), green);
        EXPECT_EQ(pixel(x, c.y1 + 2), green);
        EXPECT_EQ(pixel(x, c.y1 + 1) == green, rows[i].middleGreen);
        EXPECT_EQ(pixel(x, c.y1 + 3) == yellow, rows[i].marked);
    }
}

} // namespace
