// Package start-up through InInitGuard: dependence order, reverse exit, nesting, cycles and
// unwinding after a failed start-up.
#include "inPackageInit.h"
#include "inInitGuard.h"

#include "support/exceptionReason.h"
#include "support/testSupport.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Zr;

namespace {

// Registers test packages that log their steps, and removes them afterwards.
struct PackageFixture : ::testing::Test {
    void SetUp() override {
        // Only the outermost guard starts packages: these tests need to be it.
        if (InInitGuard::isActive())
            GTEST_SKIP() << "packages are already started by an enclosing InInitGuard";
    }
    void TearDown() override {
        for (auto const& name : _names)
            InPackageInit::unregisterPackage(name);
    }
    InPackageInit make(std::string const& name) {
        _names.push_back(name);
        return InPackageInit(
            name, [this, name] { _log += "+" + name; }, [this, name] { _log += "-" + name; });
    }
    std::vector<std::string> _names;
    std::string _log;
};

} // namespace

TEST_F(PackageFixture, StartsInDependenceOrderAndStopsInReverse) {
    make("pkgC").addDependency("pkgB").registerPackage();
    make("pkgA").registerPackage();
    make("pkgB").addDependency("pkgA").registerPackage();
    make("pkgD").registerPackage();
    {
        InInitGuard guard;
        EXPECT_EQ("+pkgA+pkgB+pkgC+pkgD", _log);
        EXPECT_TRUE(InPackageInit::isStarted("pkgC"));
        { InInitGuard nested; }
        EXPECT_EQ("+pkgA+pkgB+pkgC+pkgD", _log); // the nested guard started and stopped nothing
    }
    EXPECT_EQ("+pkgA+pkgB+pkgC+pkgD-pkgD-pkgC-pkgB-pkgA", _log);
    EXPECT_FALSE(InPackageInit::isStarted("pkgA"));
    EXPECT_FALSE(InInitGuard::isActive());
}

TEST_F(PackageFixture, TiesKeepRegistrationOrderAndDuplicatesAreRefused) {
    make("pkgZ").registerPackage();
    make("pkgY").addDependency("pkgX").registerPackage();
    make("pkgX").registerPackage();
    make("pkgW").registerPackage();
    std::vector<std::string> order = InPackageInit::getStartOrder();
    std::vector<std::string> mine;
    for (auto const& n : order)
        if (n.size() == 4 && n.rfind("pkg", 0) == 0)
            mine.push_back(n);
    EXPECT_EQ((std::vector<std::string>{"pkgZ", "pkgX", "pkgY", "pkgW"}), mine);
    EXPECT_THROW(InPackageInit("pkgZ", nullptr, nullptr).registerPackage(),
                 InPackageEx::ExDuplicate);
}

TEST_F(PackageFixture, UnknownDependencyAndCycleAreNamed) {
    make("pkgU").addDependency("pkgMissing").registerPackage();
    EXPECT_EQ("Package \"pkgU\" depends on the unknown package \"pkgMissing\"",
              TestSupport::reasonOf<InPackageEx::ExDependency>([] { InInitGuard guard; }));
    InPackageInit::unregisterPackage("pkgU");

    make("pkgFree").registerPackage();
    make("pkgP").addDependency("pkgR").registerPackage();
    make("pkgQ").addDependency("pkgP").registerPackage();
    make("pkgR").addDependency("pkgQ").registerPackage();
    EXPECT_EQ("Cyclic package dependency: pkgP -> pkgR -> pkgQ -> pkgP",
              TestSupport::reasonOf<InPackageEx::ExDependency>([] { InInitGuard guard; }));
    EXPECT_EQ("", _log); // nothing started when the order cannot be built
    EXPECT_FALSE(InInitGuard::isActive());
}

TEST_F(PackageFixture, FailedStartUpStopsWhatStartedAndPropagates) {
    make("pkgOk1").registerPackage();
    make("pkgOk2").addDependency("pkgOk1").registerPackage();
    _names.push_back("pkgBad");
    InPackageInit(
        "pkgBad", [] { throw std::runtime_error("no display"); }, [this] { _log += "-pkgBad"; })
        .addDependency("pkgOk2")
        .registerPackage();
    make("pkgLater").addDependency("pkgBad").registerPackage();
    EXPECT_THROW(InInitGuard guard, std::runtime_error);
    EXPECT_EQ("+pkgOk1+pkgOk2-pkgOk2-pkgOk1", _log);
    EXPECT_FALSE(InInitGuard::isActive());
}

TEST_F(PackageFixture, FailingExitIsReportedAndOthersStillStop) {
    make("pkgE1").registerPackage();
    _names.push_back("pkgE2");
    InPackageInit(
        "pkgE2", [] {}, [] { throw std::runtime_error("disk gone"); })
        .addDependency("pkgE1")
        .registerPackage();
    EXPECT_EQ("Exit of package \"pkgE2\" failed: disk gone\n",
              TestSupport::printed([] { InInitGuard guard; }));
    EXPECT_EQ("+pkgE1-pkgE1", _log);
}
