// Ranges and sliders: the change test and divisor guard; setters, limits and clamping with the
// callbacks and updates each one causes; value handlers from code, plug-ins and resource tables;
// the motion handlers; and a slider dragged through the event loop.
#include "buttonTestSupport.h"
#include "loopTestSupport.h"
#include "rangeAdapter.h"
#include "uiLinearValueHandler.h"
#include "uiMotionHandler.h"
#include "uiProgressBar.h"
#include "uiResRegistry.h"
#include "uiResTable.h"
#include "uiTrackSlider.h"
#include "uiWidgetEvent.h"
#include "valueHandlerResource.h"

#include "numUtil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

namespace Zr {
namespace {

using Log = std::vector<std::string>;

std::string num(double v) {
    std::ostringstream os;
    os << v;
    return os.str();
}

// A range that logs its updates and every callback, in the order they come.
class LoggingRange : public UiRange {
public:
    static RCShdPtr<LoggingRange> make(UiContainer* parent, Log* log) {
        RCShdPtr<LoggingRange> r(new LoggingRange(parent, log));
        r->resInit(nullptr);
        r->postInit();
        return r;
    }

protected:
    LoggingRange(UiContainer* parent, Log* log) : UiRange(parent, "range"), _log(log) {
        addDragCb(logged("drag"));
        addValueChangedCb(logged("changed"));
        addBeginExternalEditCb(logged("begin"));
        addEndExternalEditCb(logged("end"));
        addPreEditCb(logged("pre"));
        addPostEditCb(logged("post"));
    }
    void updateValue() override { _log->push_back("updateValue"); }
    void updateRange() override { _log->push_back("updateRange"); }

private:
    CbHandler<EvEvent>* logged(std::string what) {
        _handlers.push_back(std::make_unique<CbFunction<EvEvent>>([this, what](EvEvent& e) {
            auto* changed = dynamic_cast<UiValueChanged*>(&e);
            _log->push_back(changed ? what + " " + num(changed->getValue()) : what);
        }));
        return _handlers.back().get();
    }
    Log* _log;
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> _handlers;
};

TEST(RangeNumbers, AlmostEqualAndGuardFollowTheirDefinitions) {
    double const eps = std::numeric_limits<double>::epsilon();
    double const inf = std::numeric_limits<double>::infinity();
    double const tiny = std::numeric_limits<double>::min();
    struct Row {
        double a, b;
        bool equal;
    } const rows[] = {{1.0, 1.0 + eps, true}, {1.0 + 4 * eps, 1.0, false}, {inf, inf, true},
                      {inf, 1e308, false},    {0.0, 1e-320, false},        {-2.0, -2.0, true}};
    for (Row const& row : rows) {
        SCOPED_TRACE(num(row.a) + " vs " + num(row.b));
        EXPECT_EQ(almostEqual(row.a, row.b), row.equal);
        EXPECT_EQ(almostEqual(row.b, row.a), row.equal);
    }
    double const guarded[][2] = {{0.0, tiny}, {-1e-310, -tiny}, {-3.0, -3.0}, {5.0, 5.0}};
    for (auto const& [x, expected] : guarded)
        EXPECT_EQ(guard(x), expected) << x;
}

class RangeFixture : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        ButtonFixture::SetUp();
        range = LoggingRange::make(root.get(), &log);
        log.clear();
    }
    Log log;
    RCShdPtr<LoggingRange> range;
};

// Each row starts from a fresh range 0..1 at 0, clamped.
TEST_F(RangeFixture, SettersStoreClampAndReportOnlyRealChanges) {
    EvDefaultEvent ev;
    struct Row {
        char const* what;
        std::function<void(LoggingRange&)> act;
        double value, min, max;
        Log log;
    } const rows[] = {
        {"set", [](auto& r) { r.setValue(0.5, true); }, 0.5, 0, 1, {"updateValue", "changed 0.5"}},
        {"silent set", [](auto& r) { r.setValue(0.5, false); }, 0.5, 0, 1, {"updateValue"}},
        {"clamped", [](auto& r) { r.setValue(3, true); }, 1, 0, 1, {"updateValue", "changed 1"}},
        {"unchanged", [](auto& r) { r.setValue(-5, true); }, 0, 0, 1, {}},
        {"no clamp", [](auto& r) { r.setValueNoClamp(7, false); }, 7, 0, 1, {"updateValue"}},
        {"reversed range",
         [](auto& r) { r.setRange(5, 1, false); },
         1,
         1,
         5,
         {"updateValue", "updateRange"}},
        {"same range", [](auto& r) { r.setRange(std::nextafter(1.0, 2.0), 0, true); }, 0, 0, 1, {}},
        {"min drags max",
         [](auto& r) { r.setMinValue(10, false); },
         10,
         10,
         10,
         {"updateValue", "updateRange"}},
        {"max drags min",
         [](auto& r) { r.setMaxValue(-3, true); },
         -3,
         -3,
         -3,
         {"updateValue", "changed -3", "updateRange"}},
        {"relative",
         [](auto& r) {
             r.setRange(0, 10, false);
             r.setRelativeValue(0.25, true);
         },
         2.5,
         0,
         10,
         {"updateRange", "updateValue", "changed 2.5"}},
        {"int",
         [](auto& r) {
             r.setRange(-10, 10, false);
             r.setIntValue(-7, false);
         },
         -7,
         -10,
         10,
         {"updateRange", "updateValue"}},
        {"clamp on",
         [](auto& r) {
             r.setValueClamped(false);
             r.setValueNoClamp(4, false);
             r.setValueClamped(true);
         },
         1,
         0,
         1,
         {"updateValue", "updateValue", "changed 1"}},
        {"clamp on, inside", [](auto& r) { r.setValueClamped(true); }, 0, 0, 1, {"changed 0"}},
        {"drag",
         [&ev](auto& r) { r.dragValue(0.25, ev); },
         0.25,
         0,
         1,
         {"updateValue", "changed 0.25", "drag"}},
        {"drag, unchanged", [&ev](auto& r) { r.dragValue(0, ev); }, 0, 0, 1, {"drag"}},
        {"drag, locked",
         [&ev](auto& r) {
             r.lock();
             r.dragValue(0.5, ev);
         },
         0,
         0,
         1,
         {}},
        {"edits",
         [](auto& r) {
             r.callPreEditCb();
             r.callPostEditCb();
             r.beginExternalEdit();
             r.endExternalEdit();
         },
         0,
         0,
         1,
         {"pre", "post", "begin", "end"}},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.what);
        log.clear();
        range = LoggingRange::make(root.get(), &log);
        log.clear();
        row.act(*range);
        EXPECT_EQ(range->getValue(), row.value);
        EXPECT_EQ(range->getMinValue(), row.min);
        EXPECT_EQ(range->getMaxValue(), row.max);
        EXPECT_EQ(log, row.log);
        EXPECT_TRUE(std::isfinite(range->getRelativeValue()));
    }
}

TEST_F(RangeFixture, HandlersConvertBothWaysAndKeepDisplayLimitsOrdered) {
    range->setRange(0, 10, false);
    range->setValue(4, false);
    log.clear();
    range->setValueHandler(RCShdPtr<UiRange::ValueHandler>(new UiLinearValueHandler(-2, 1)));
    EXPECT_EQ(log, (Log{"updateValue", "updateRange"}));
    EXPECT_EQ(range->getDisplayValue(), -7);
    EXPECT_EQ(range->getMinDisplayValue(), -19);
    EXPECT_EQ(range->getMaxDisplayValue(), 1);
    range->setRange(2, 6, false);
    EXPECT_LT(range->getMinDisplayValue(), range->getMaxDisplayValue());
    EXPECT_EQ(range->setDisplayValue(-5, false), 3);
    EvDefaultEvent ev;
    EXPECT_EQ(range->dragDisplayValue(-9, ev), -9);
    EXPECT_EQ(range->getValue(), 5);

    // A plug-in's handler through the interface; a null one inside an adapter fails on use.
    struct Percent : PiRange::ValueHandler {
        double toDisplay(double v) const override { return v * 100; }
        double fromDisplay(double d) const override { return d / 100; }
    };
    RCShdPtr<PiRange> iface = dynamicCast<PiRange>(range->retrieveInterface());
    ASSERT_TRUE(iface);
    iface->setValueHandler(RCShdPtr<PiRange::ValueHandler>(new Percent));
    EXPECT_EQ(iface->setDisplayValue(300, false), 3);
    EXPECT_EQ(iface->getDisplayValue(), 300);
    ValueHandlerAdapter empty{RCShdPtr<PiRange::ValueHandler>()};
    EXPECT_THROW(empty.toDisplay(1), ExNullPtr);
}

TEST_F(RangeFixture, TablesGiveHandlersAndBadOnesAreReportedAlone) {
    UiTest::Reports reports;
    UiResTable table;
    table.readTable(LiString(R"(<ResourceTable>
      <Widget Name="good"><DisplayValueHandler><LinearValueHandler A="100" B="5"/>
        </DisplayValueHandler></Widget>
      <Widget Name="bad"><DisplayValueHandler><LinearValueHandler A="abc"/>
        </DisplayValueHandler><Orientation><Text>vertical</Text></Orientation></Widget>
    </ResourceTable>)"),
                    UiResource::LevelApplication);
    auto good = UiTrackSlider::create(root.get(), "good", &table);
    EXPECT_EQ(good->setValue(0.5, false), 0.5);
    EXPECT_EQ(good->getDisplayValue(), 55);
    auto bad = UiTrackSlider::create(root.get(), "bad", &table);
    bad->setValue(0.5, false);
    EXPECT_EQ(bad->getDisplayValue(), 0.5);
    EXPECT_EQ(bad->getOrientation(), VERTICAL_SLIDER); // the other resource stays
    EXPECT_EQ(reports.ids(), Log{"MSG_RESOURCE_RES_ERROR"});
    EXPECT_NE(reports.log().find("Bad number \"abc\" for attribute A of LinearValueHandler"),
              std::string::npos)
        << reports.log();

    RCShdPtr<UiResource> resource = UiResRegistry::getInstance().getResource("LinearValueHandler");
    std::ostringstream os;
    EXPECT_THROW(os << *resource, ExProgramAborted);
}

TEST(RangeMotion, LinearStepsSnapToZeroAndModifiersScaleTheTravel) {
    UiLinearMotionHandler linear;
    EvPointerMoveEvent move;
    EXPECT_EQ(linear.computeNewValue(move, 1e-15, 0, 1, nullptr), 0.0);
    EXPECT_EQ(linear.computeNewValue(move, 1, -0.5, 4, nullptr), -1);
    move.setWCoord({30, 0});
    double const factors[][2] = {{0, 1}, {1, 1}, {2, 10}, {3, 100}, {6, 10}, {4, 0.1}, {5, 0.01}};
    for (auto const& [modifiers, factor] : factors) {
        move.setKeyboardState(EvKeyboardState(static_cast<unsigned>(modifiers)));
        EXPECT_DOUBLE_EQ(linear.computeMagnitudeOfMotion(move, {20, 7}, nullptr, 0), 10 * factor)
            << modifiers;
    }
}

// The pointer circles around (0, 0) in 20-degree steps; each row is the next angle and the
// sense the value moves in: three turning steps one way set the sense, the fourth step back
// flips it, and a jump across the centre reverses it. Crossing 180 degrees changes nothing.
TEST(RangeMotion, CirclingCountsTurnsAcrossTheSeamAndFlipsAfterThreeTheOtherWay) {
    UiCircularMotionHandler circular;
    EvPointerMoveEvent move;
    int const rows[][2] = {{140, 0},  {160, 1},  {180, 1},  {200, -1}, {220, -1},
                           {200, -1}, {180, -1}, {160, -1}, {140, 1},  {120, 1},
                           {300, 0},  {280, -1}, {100, 0}};
    for (auto const& [degrees, sense] : rows) {
        SCOPED_TRACE(degrees);
        double const a = degrees * std::numbers::pi / 180;
        move.setWCoord({static_cast<int>(std::lround(1000 * std::cos(a))),
                        static_cast<int>(std::lround(1000 * std::sin(a)))});
        double const magnitude = circular.computeMagnitudeOfMotion(move, {0, 0}, nullptr, 0);
        EXPECT_NEAR(magnitude, 1000, 1);
        EXPECT_EQ(circular.computeNewValue(move, 0, 1, 1, nullptr), sense);
    }
}

// A slider in a real top level, pressed, dragged past its end and released through the loop.
class SliderLoop : public LoopTest::WindowFixture {};

TEST_F(SliderLoop, DragThroughTheLoopSetsTheValueReportsItAndClampsAtTheEnds) {
    auto slider = UiTrackSlider::create(root(), "s");
    // The travel is 15..117, or 16..116 inside a line frame: 66 is its middle either way.
    slider->setRect({10, 123, 10, 31}, false);
    UiApplication::getInstance().setMoveCompression(false);
    Log log;
    CbFunction<EvEvent> changed([&](EvEvent& e) {
        log.push_back("changed " + num(static_cast<UiValueChanged&>(e).getValue()));
    });
    CbFunction<EvEvent> onPre([&](EvEvent&) { log.push_back("pre"); });
    CbFunction<EvEvent> onPost([&](EvEvent&) { log.push_back("post"); });
    slider->addValueChangedCb(&changed);
    slider->addPreEditCb(&onPre);
    slider->addPostEditCb(&onPost);
    constexpr unsigned Left = EvPointerState::Left;
    post(LoopTest::makeDown(id, {66, 20}, Left, Left));
    post(LoopTest::makeMove(id, {66, 22}, 1.0f, Left)); // same place along: silent
    post(LoopTest::makeMove(id, {400, 20}, 1.0f, Left));
    run();
    EXPECT_EQ(slider->getValue(), 1.0);
    EXPECT_EQ(slider->getHandle().position, slider->getCanvas().x2 - 6); // the travel's end
    // Further on past the end the value stays: nothing is reported and nothing marked.
    slider->clearMarks();
    post(LoopTest::makeMove(id, {500, 20}, 1.0f, Left));
    run();
    EXPECT_TRUE(slider->getMarkedRects().empty());
    post(LoopTest::makeUp(id, {-50, 20}, Left, 0));
    run();
    EXPECT_EQ(slider->getValue(), 0.0);
    EXPECT_EQ(log, (Log{"pre", "changed 0.5", "changed 1", "changed 0", "post"}));
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_FALSE(slider->getMarkedRects().empty());
}

TEST(RangeParts, OrientationNamesAndCellsFollowTheirRules) {
    EXPECT_EQ(sliderOrientFromString("HORIZONTAL_SLIDER"), HORIZONTAL_SLIDER);
    EXPECT_EQ(sliderOrientFromString("diagonal"), VERTICAL_SLIDER);
    using Cells = std::vector<std::pair<int, int>>;
    EXPECT_EQ(cellDivide({0, 21}, 1, 5), (Cells{{5, 16}}));
    EXPECT_EQ(cellDivide({0, 20}, 2, 2), (Cells{{2, 9}, {11, 18}}));
    EXPECT_EQ(cellDivide({0, 4}, 1, 5), (Cells{{5, 5}}));
    EXPECT_TRUE(cellDivide({0, 20}, 0, 2).empty());
}

} // namespace
} // namespace Zr
