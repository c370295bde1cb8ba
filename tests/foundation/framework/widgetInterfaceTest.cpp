// Tests of the registry of the widget factories that plug-ins supply: lookup by exact name, the
// assertions of a second registration and of bad calls, and the ownership of the factories.
#include "piExternalWidgetFactory.h"

#include "exBase.h"

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

TEST(WidgetInterfaceRegistry, RegisterFindUnregisterAndBadCalls) {
    int alive = 0;
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("curves"), nullptr);
    auto owned = std::make_unique<CountedFactory>(&alive);
    PiExternalWidgetFactory* factory = owned.get();
    PiExternalWidgetFactory::registerFactory("curves", std::move(owned));
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("curves"), factory);
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("Curves"), nullptr);
    EXPECT_EQ(PiExternalWidgetFactory::getFactory(""), nullptr);
    // A second registration fails and keeps the first.
    EXPECT_THROW(PiExternalWidgetFactory::registerFactory("curves",
                                                          std::make_unique<CountedFactory>(&alive)),
                 ExAssertionFailed);
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("curves"), factory);
    EXPECT_EQ(alive, 1);
    PiExternalWidgetFactory::unregisterFactory("curves");
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("curves"), nullptr);
    EXPECT_EQ(alive, 0);

    EXPECT_THROW(PiExternalWidgetFactory::unregisterFactory("never"), ExAssertionFailed);
    EXPECT_THROW(PiExternalWidgetFactory::registerFactory("null", nullptr), ExAssertionFailed);
    EXPECT_EQ(PiExternalWidgetFactory::getFactory("null"), nullptr);
}

} // namespace
} // namespace Zr
