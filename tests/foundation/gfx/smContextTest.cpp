// The OpenGL state cache: only changes reach the backend, invalidate forgets, texture units
// are selected and given back, and contexts follow the window made current.
#include "smContext.h"
#include "smGlRecorder.h"
#include "smStateManager.h"
#include "wsHeadlessWindow.h"
#include "wsWinMgr.h"

#include <gtest/gtest.h>

using namespace Zr;

namespace {

class SmContextTest : public ::testing::Test {
protected:
    SmGlRecorder gl;
    SmGlBackendGuard guard{gl};
    UPtr<SmContext> context = SmStateManager::getInstance().createContext();

    static SmStateObject blendState() {
        SmStateObject s;
        s.enable(Gl::BLEND).disable(Gl::DEPTH_TEST);
        s.blendFunc(Gl::SRC_ALPHA, Gl::ONE_MINUS_SRC_ALPHA).blendEquation(Gl::FUNC_ADD);
        s.shadeModel(Gl::FLAT).lineStipple(2, 0xAAAA).hint(Gl::LINE_SMOOTH_HINT, Gl::NICEST);
        return s;
    }
};

} // namespace

TEST_F(SmContextTest, SendsOnlyWhatDiffersFromTheLastState) {
    context->applyStateObject(blendState());
    EXPECT_EQ(
        (std::vector<std::string>{"enable(0x0BE2)", "disable(0x0B71)", "blendFunc(0x0302, 0x0303)",
                                  "blendEquation(0x8006)", "hint(0x0C52, 0x1102)",
                                  "lineStipple(2, 0xAAAA)", "shadeModel(0x1D00)"}),
        gl.getLog());

    gl.clearLog();
    context->applyStateObject(blendState());
    EXPECT_EQ(0, gl.getTotalCount());

    SmStateObject opaque;
    opaque.disable(Gl::BLEND).disable(Gl::DEPTH_TEST).shadeModel(Gl::FLAT);
    context->applyStateObject(opaque);
    EXPECT_EQ((std::vector<std::string>{"disable(0x0BE2)"}), gl.getLog());
    EXPECT_EQ(std::optional<bool>(false), context->getCachedCapability(Gl::BLEND));
}

TEST_F(SmContextTest, InvalidateSendsEverythingAgain) {
    context->applyStateObject(blendState());
    int first = gl.getTotalCount();
    gl.clearLog();
    context->invalidate();
    EXPECT_EQ(std::nullopt, context->getCachedCapability(Gl::BLEND));
    context->applyStateObject(blendState());
    EXPECT_EQ(first, gl.getTotalCount());
    EXPECT_EQ(1, gl.getCount("shadeModel"));
}

TEST_F(SmContextTest, EachContextHasItsOwnCache) {
    UPtr<SmContext> other = SmStateManager::getInstance().createContext();
    context->applyStateObject(blendState());
    gl.clearLog();
    other->applyStateObject(blendState());
    EXPECT_EQ(2, gl.getCount("enable") + gl.getCount("disable"));
}

TEST_F(SmContextTest, ShadeModelGoesThroughTheCache) {
    EXPECT_EQ(Gl::SMOOTH, context->getShadeModel());
    context->setShadeModel(Gl::FLAT);
    context->setShadeModel(Gl::FLAT);
    EXPECT_EQ(1, gl.getCount("shadeModel"));
    EXPECT_EQ(Gl::FLAT, context->getShadeModel());
    context->invalidate();
    EXPECT_EQ(Gl::FLAT, context->getShadeModel()); // still the last one set
    context->setShadeModel(Gl::FLAT);
    EXPECT_EQ(2, gl.getCount("shadeModel"));
}

TEST_F(SmContextTest, OtherTextureUnitsAreSelectedAndUnitZeroGivenBack) {
    SmStateObject s;
    s.getTexUnitStateObject(0).enable(Gl::TEXTURE_2D);
    s.getTexUnitStateObject(1).enable(Gl::TEXTURE_2D);
    context->applyStateObject(s);
    EXPECT_EQ((std::vector<std::string>{"enable(0x0DE1)", "activeTexture(0x84C1)", "enable(0x0DE1)",
                                        "activeTexture(0x84C0)"}),
              gl.getLog());
    gl.clearLog();
    context->applyStateObject(s);
    EXPECT_EQ(0, gl.getTotalCount());

    // Unit 0's texture targets and the plain capabilities are one state.
    SmStateObject plain;
    plain.enable(Gl::TEXTURE_2D);
    context->applyStateObject(plain);
    EXPECT_EQ(0, gl.getTotalCount());
    EXPECT_EQ(std::optional<bool>(true), context->getCachedCapability(Gl::TEXTURE_2D, 1));
}

TEST_F(SmContextTest, InheritKeepsTheObjectsOwnChoices) {
    SmStateObject base;
    base.enable(Gl::BLEND).enable(Gl::SCISSOR_TEST).shadeModel(Gl::SMOOTH).lineWidth(2.f);
    base.getTexUnitStateObject(0).enable(Gl::TEXTURE_2D);
    SmStateObject derived;
    derived.disable(Gl::BLEND).shadeModel(Gl::FLAT);
    derived.inherit(base);
    EXPECT_EQ(std::optional<bool>(false), derived.getCapability(Gl::BLEND));
    EXPECT_EQ(std::optional<bool>(true), derived.getCapability(Gl::SCISSOR_TEST));
    EXPECT_EQ(std::optional<unsigned>(Gl::FLAT), derived.getShadeModel());
    EXPECT_EQ(std::optional<float>(2.f), derived.getLineWidth());
    EXPECT_FALSE(derived.getTexUnitStateObject(0).isEmpty());

    SmStateObject empty;
    EXPECT_TRUE(empty.isEmpty());
    context->applyStateObject(empty);
    EXPECT_EQ(0, gl.getTotalCount());
    EXPECT_THROW(empty.getTexUnitStateObject(-1), ExAssertionFailed);
}

TEST_F(SmContextTest, CurrentContextFollowsMakeCurrentAndFallsBackToTheDefault) {
    SmContext* def = &SmStateManager::getInstance().getDefaultContext();
    EXPECT_EQ(def, SmContext::getCurrentContext());
    {
        auto window = WsWinMgr::getInstance().createWindow(
            "w", "w", WsWindowStyleUtils::getNormalWindowStyle({0, 100, 0, 100}));
        window->makeCurrent();
        EXPECT_EQ(&window->getContext(), SmContext::getCurrentContext());
        EXPECT_TRUE(window->getContext().isCurrent());
        context->makeCurrent();
        EXPECT_EQ(context.get(), SmContext::getCurrentContext());
        window->makeCurrent();
    }
    // The window and its context are gone: drawing goes on in the default context.
    EXPECT_EQ(def, SmContext::getCurrentContext());
}
