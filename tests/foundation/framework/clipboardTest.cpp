// Drag carriers, the clipboard and the defaults of drag sources and sinks: content, source
// action, change notifications and refused input.
#include "drClipboard.h"
#include "drSrcSink.h"
#include "snItemConvert.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

RCShdPtr<DrCarrier> carrierOf(std::string const& text) {
    RCShdPtr<SnSelection> selection = SnSelection::create();
    selection->addItem(SnItemConvert<std::string>::createItem(text));
    return DrCarrier::create(selection);
}

class Clipboard : public ::testing::Test {
protected:
    void SetUp() override {
        clipboard.clear();
        clipboard.addChangeCb(&counter);
    }
    void TearDown() override {
        clipboard.removeChangeCb(&counter);
        clipboard.clear();
    }
    DrClipboard& clipboard = DrClipboard::getInstance();
    int changes = 0;
    CbFunction<CbEmptyType> counter{[this] { ++changes; }};
};

TEST_F(Clipboard, KeepsTheCarrierAndSourceActionAndTellsOncePerSet) {
    EXPECT_EQ(clipboard.getSrcAction(), DrClipboard::Copy);
    RCShdPtr<DrCarrier> cut = carrierOf("cut");
    clipboard.setContent(cut, 1);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(clipboard.getContent(), cut);
    EXPECT_EQ(clipboard.getSrcAction(), DrClipboard::Cut);
    clipboard.setContent(cut, 1); // setting the same carrier again is still a set
    EXPECT_EQ(changes, 2);
    // An unknown source action is refused and the content kept.
    EXPECT_THROW(clipboard.setContent(carrierOf("other"), 2), ExAssertionFailed);
    EXPECT_THROW(clipboard.setContent(carrierOf("other"), -1), ExAssertionFailed);
    EXPECT_EQ(clipboard.getContent(), cut);
    EXPECT_EQ(clipboard.getSrcAction(), 1);
    EXPECT_EQ(changes, 2);
}

TEST_F(Clipboard, ClearingTellsOnlyWhenSomethingWasThere) {
    clipboard.clear();
    EXPECT_EQ(changes, 0);
    clipboard.setContent(carrierOf("x"), 1);
    clipboard.clear();
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(clipboard.getContent().isNull());
    EXPECT_EQ(clipboard.getSrcAction(), 0);
    // A null carrier empties it too, and forgets the cut.
    clipboard.setContent(carrierOf("y"), 1);
    clipboard.setContent(nullptr, 1);
    EXPECT_TRUE(clipboard.getContent().isNull());
    EXPECT_EQ(clipboard.getSrcAction(), 0);
    // Removed observers hear nothing.
    clipboard.removeChangeCb(&counter);
    clipboard.setContent(carrierOf("z"), 0);
    EXPECT_EQ(changes, 4);
}

TEST(DragCarrier, CarriesItsSelectionAndLocation) {
    RCShdPtr<SnSelection> selection = SnSelection::create();
    RCShdPtr<DrCarrier> carrier = DrCarrier::create(selection);
    EXPECT_FALSE(carrier->hasData());
    EXPECT_EQ(carrier->getLocation(), GePoint2<float>(0.0f, 0.0f));

    selection->addItem(SnItemConvert<int>::createItem(1));
    EXPECT_TRUE(carrier->hasData()); // the carrier shares the selection it was given
    carrier->setLocation({0.25f, 0.75f});
    EXPECT_EQ(carrier->getLocation(), GePoint2<float>(0.25f, 0.75f));

    EXPECT_EQ(TestSupport::reasonOf<ExAssertionFailed>([] { DrCarrier::create(nullptr); }),
              "!selection.isNull()");
}

TEST(DragCarrier, DefaultSourceSinkGivesAndTakesNothing) {
    auto sink = makeShared<DrSrcSink>();
    RCShdPtr<DrCarrier> carrier = DrCarrier::create(SnSelection::create());
    EXPECT_FALSE(sink->willPopulateSelection());
    sink->populateSelection(*carrier);
    EXPECT_FALSE(carrier->hasData());
    EXPECT_FALSE(sink->willConsumeSelection(*carrier));
    EXPECT_FALSE(sink->consumeSelection(*carrier));
    sink->dropCompleted(*carrier);
    sink->operationCancelled(*carrier);
}

} // namespace
} // namespace Zr
