// Tests of the plug-in widget interfaces' framework side: the registry of plug-in widget
// factories and the numbering of the event types that plug-ins pass.
#include "piExternalWidgetFactory.h"
#include "piWidget.h"

#include "exBase.h"
#include "xmlDocument.h"
#include "xmlElement.h"

#include <gtest/gtest.h>

#include <memory>

namespace Zr {
namespace {

class CountedFactory : public PiExternalWidgetFactory {
public:
    explicit CountedFactory(int* alive) : _alive(alive) { ++*_alive; }
    ~CountedFactory() override { --*_alive; }
    XmlDocument const* getXmlDocument() override { return nullptr; }

private:
    int* _alive;
};

TEST(WidgetInterfaceRegistry, RegisterFindAndUnregister) {
    int alive = 0;
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("curves"), nullptr);
    auto owned = std::make_unique<CountedFactory>(&alive);
    PiExternalWidgetFactory* factory = owned.get();
    PiExternalWidgetFactory::registerFactory("curves", std::move(owned));
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("curves"), factory);
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("Curves"), nullptr);
    EXPECT_EQ(PiExternalWidgetFactory::getFactory(""), nullptr);
    PiExternalWidgetFactory::unregisterFactory("curves");
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("curves"), nullptr);
    EXPECT_EQ(alive, 0);
}

TEST(WidgetInterfaceRegistry, SecondRegistrationFailsAndKeepsTheFirst) {
    int alive = 0;
    auto owned = std::make_unique<CountedFactory>(&alive);
    PiExternalWidgetFactory* first = owned.get();
    PiExternalWidgetFactory::registerFactory("twice", std::move(owned));
    EXPECT_THROW(
        PiExternalWidgetFactory::registerFactory("twice", std::make_unique<CountedFactory>(&alive)),
        ExAssertionFailed);
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("twice"), first);
    EXPECT_EQ(alive, 1);
    PiExternalWidgetFactory::unregisterFactory("twice");
    EXPECT_EQ(alive, 0);
}

TEST(WidgetInterfaceRegistry, BadCallsFailAssertions) {
    EXPECT_THROW(PiExternalWidgetFactory::unregisterFactory("never"), ExAssertionFailed);
    EXPECT_THROW(PiExternalWidgetFactory::registerFactory("null", nullptr), ExAssertionFailed);
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("null"), nullptr);
}

TEST(WidgetInterfaceRegistry, BaseMakesNoClientData) {
    int alive = 0;
    CountedFactory factory(&alive);
    XmlDocument document(std::string("<ExternalWidget plugin=\"x\"/>"));
    EXPECT_FALSE(factory.createClientData(nullptr, document.getRoot()));
}

TEST(WidgetInterfaceEvents, NumbersFollowTheWidgetCallbackOrder) {
    // Plug-ins built against one version pass these numbers: they must not move.
    EXPECT_EQ(PiWidget::Destroy, 0);
    EXPECT_EQ(PiWidget::Lock, 3);
    EXPECT_EQ(PiWidget::Arm, 5);
    EXPECT_EQ(PiWidget::UnMap, 8);
    EXPECT_EQ(PiWidget::KbdFocusOut, 12);
    EXPECT_EQ(PiWidget::Reposition, 15);
    EXPECT_EQ(PiWidget::KeyPress, 18);
    EXPECT_EQ(PiWidget::Activate, 21);
    EXPECT_EQ(PiWidget::Hotkey, 22);
}

} // namespace
} // namespace Zr
