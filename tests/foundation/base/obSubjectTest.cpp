// Observers: attach and detach notices, notification order with snapshot semantics, and which
// side dies first.
#include "obSubject.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Zr {
namespace {

struct ColorHint : ObHint {
    explicit ColorHint(std::string n) : name(std::move(n)) {}
    std::string name;
};

struct Palette : ObSubject<Palette> {
    int generation = 0;
};

struct Recorder : ObObserver<Palette> {
    Recorder(std::string n, std::vector<std::string>& log) : name(std::move(n)), log(log) {}
    void update(Palette& p, ObHints const& hints) override {
        ColorHint* hint = hints.findHint<ColorHint>();
        log.push_back(name + " update " + std::to_string(p.generation) + " " +
                      (hint ? hint->name : "-"));
        if (onUpdate)
            onUpdate();
    }
    void attachedTo(ObSubjectAny&) override { log.push_back(name + " attached"); }
    void detachedFrom(ObSubjectAny&) override { log.push_back(name + " detached"); }
    std::string name;
    std::vector<std::string>& log;
    std::function<void()> onUpdate;
};

TEST(ObSubjectTest, NotifiesAttachedObserversInOrderWithHints) {
    std::vector<std::string> log;
    Palette palette;
    Recorder a("a", log), b("b", log);
    palette.attach(&a);
    palette.attach(&b);
    palette.attach(&a); // twice: ignored
    palette.attach(nullptr);
    EXPECT_EQ(palette.getNbObservers(), 2);
    palette.generation = 3;
    ObHints hints(RCShdPtr<ObHint>(new ColorHint("red")));
    hints.addHint(RCShdPtr<ObHint>());
    EXPECT_EQ(hints.getNbHints(), 1);
    palette.notify(hints);
    palette.detach(&a);
    palette.detach(&a); // not attached: ignored
    palette.notify();
    EXPECT_EQ(log, (std::vector<std::string>{"a attached", "b attached", "a update 3 red",
                                             "b update 3 red", "a detached", "b update 3 -"}));
}

TEST(ObSubjectTest, ChangesDuringNotifyFollowSnapshotRules) {
    std::vector<std::string> log;
    Palette palette;
    Recorder a("a", log), b("b", log), c("c", log);
    palette.attach(&a);
    palette.attach(&b);
    a.onUpdate = [&] {
        palette.detach(&b);
        palette.attach(&c);
    };
    palette.notify();
    EXPECT_EQ(log, (std::vector<std::string>{"a attached", "b attached", "a update 0 -",
                                             "b detached", "c attached"}));
    EXPECT_TRUE(palette.isAttached(&c));
}

TEST(ObSubjectTest, WhicheverDiesFirstLeavesTheOtherClean) {
    std::vector<std::string> log;
    Recorder survivor("s", log);
    {
        Palette palette;
        {
            Recorder shortLived("x", log);
            palette.attach(&shortLived);
            palette.attach(&survivor);
        }
        EXPECT_EQ(palette.getNbObservers(), 1);
        palette.notify();
    }
    EXPECT_EQ(survivor.getNbSubjects(), 0);
    EXPECT_EQ(log,
              (std::vector<std::string>{"x attached", "s attached", "s update 0 -", "s detached"}));
}

TEST(ObSubjectTest, SubjectDestroyedByAnObserverStopsTheNotification) {
    std::vector<std::string> log;
    auto palette = std::make_unique<Palette>();
    Recorder a("a", log), b("b", log);
    palette->attach(&a);
    palette->attach(&b);
    a.onUpdate = [&] { palette.reset(); };
    palette->notify();
    EXPECT_EQ(log, (std::vector<std::string>{"a attached", "b attached", "a update 0 -",
                                             "b detached", "a detached"}));
}

struct CountingNotifier : ObNotifierAny {
    explicit CountingNotifier(int& n) : count(n) {}
    void notify(ObSubjectAny& s, ObObserverAny& o, ObHints const& h) override {
        ++count;
        ObNotifierAny::notify(s, o, h);
    }
    int& count;
};

TEST(ObSubjectTest, ChangeManagerRoutesThroughItsNotifier) {
    std::vector<std::string> log;
    int delivered = 0;
    ObChangeManagerImp manager(std::make_unique<CountingNotifier>(delivered));
    Palette palette;
    Recorder a("a", log), b("b", log);
    palette.attach(&a);
    palette.attach(&b);
    palette.setChangeManager(&manager);
    palette.notify();
    EXPECT_EQ(delivered, 2);
    palette.setChangeManager(nullptr);
    palette.notify();
    EXPECT_EQ(delivered, 2);
    EXPECT_EQ(log.size(), 6u);
}

} // namespace
} // namespace Zr
