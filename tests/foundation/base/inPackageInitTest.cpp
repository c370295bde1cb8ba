// Package start-up through InInitGuard: dependence order, reverse exit, nesting, cycles and
// unwinding after a failed start-up.
#include "inPackageInit.h"
#include "inInitGuard.h"

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
        EXPECT_TRUE(InInitGuard::isActive());
        { InInitGuard nested; }
        EXPECT_EQ("+pkgA+pkgB+pkgC+pkgD", _log); // the nested guard started and stopped nothing
    }
    EXPECT_EQ("+pkgA+pkgB+pkgC+pkgD-pkgD-pkgC-pkgB-pkgA", _log);
    EXPECT_FALSE(InPackageInit::isStarted("pkgA"));
    EXPECT_FALSE(InInitGuard::isActive());
}

TEST_F(PackageFixture, TiesKeepRegistrationOrder) {
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
}

TEST_F(PackageFixture, UnknownDependencyAndCycleAreNamed) {
    make("pkgU").addDependency("pkgMissing").registerPackage();
    try {
        InInitGuard guard;
        FAIL() << "no exception";
    } catch (InPackageEx::ExDependency const& e) {
        EXPECT_EQ("Package \"pkgU\" depends on the unknown package \"pkgMissing\"", e.getReason());
    }
    InPackageInit::unregisterPackage("pkgU");

    make("pkgFree").registerPackage();
    make("pkgP").addDependency("pkgR").registerPackage();
    make("pkgQ").addDependency("pkgP").registerPackage();
    make("pkgR").addDependency("pkgQ").registerPackage();
    try {
        InInitGuard guard;
        FAIL() << "no exception";
    } catch (InPackageEx::ExDependency const& e) {
        EXPECT_EQ("Cyclic package dependency: pkgP -> pkgR -> pkgQ -> pkgP", e.getReason());
    }
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
    EXPECT_FALSE(InPackageInit::isStarted("pkgOk1"));
    EXPECT_FALSE(InInitGuard::isActive());
}

TEST_F(PackageFixture, FailingExitIsReportedAndOthersStillStop) {
    make("pkgE1").registerPackage();
    _names.push_back("pkgE2");
    InPackageInit(
        "pkgE2", [] {}, [] { throw std::runtime_error("disk gone"); })
        .addDependency("pkgE1")
        .registerPackage();
    ::testing::internal::CaptureStdout();
    { InInitGuard guard; }
    EXPECT_EQ("Exit of package \"pkgE2\" failed: disk gone\n",
              ::testing::internal::GetCapturedStdout());
    EXPECT_EQ("+pkgE1-pkgE1", _log);
}

TEST_F(PackageFixture, DuplicateNameIsRefused) {
    make("pkgDup").registerPackage();
    EXPECT_THROW(InPackageInit("pkgDup", nullptr, nullptr).registerPackage(),
                 InPackageEx::ExDuplicate);
    EXPECT_TRUE(InPackageInit::isRegistered("pkgDup"));
}

TEST(InInitTest, TypeRecordsAreNamedAfterTheirTags) {
    EXPECT_STREQ("uitoolkit", InInit<ZrInit::uitoolkit>::getType().getName());
    EXPECT_EQ(&InInit<ZrInit::ui>::getType(), &InInit<ZrInit::ui>::getType());
}
