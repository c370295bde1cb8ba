// Undo scopes, long transitions, the command stack and the no-log scope, seen from a client
// that changes small recordable objects.
#include "cmCommandStack.h"
#include "piCommandStack.h"
#include "piUndoGuard.h"
#include "piUndoGuardNoLog.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Zr;

namespace {

// A double that counts how often its observers would be told, and logs each restore.
class Counter : public CmRecordable {
public:
    Counter(std::string name, double v, std::vector<std::string>* restores = nullptr)
        : _name(std::move(name)), _value(v), _restores(restores) {}

    double get() const { return _value; }
    int getNbNotifications() const { return _notifications; }
    void set(double v) {
        if (v == _value)
            return;
        willChange();
        _value = v;
        ++_notifications;
    }

    OPtr<CmMemento> snapshotState() const override { return std::make_unique<Memento>(_value); }
    void restoreState(CmMemento const& m) override {
        _value = static_cast<Memento const&>(m).value;
        ++_notifications;
        if (_restores)
            _restores->push_back(_name);
    }

private:
    struct Memento : CmMemento {
        explicit Memento(double v) : value(v) {}
        bool equals(CmMemento const& o) const override {
            return static_cast<Memento const&>(o).value == value;
        }
        double value;
    };
    std::string _name;
    double _value;
    int _notifications = 0;
    std::vector<std::string>* _restores;
};

class UndoStack : public ::testing::Test {
protected:
    void SetUp() override {
        stack->addChangeCb(&changeCb);
        a = makeShared<Counter>("a", 1.0, &restores);
        b = makeShared<Counter>("b", 10.0, &restores);
    }

    RCShdPtr<PiCommandStack> stack = makeShared<PiCommandStack>();
    int changes = 0;
    CbFunction<CbEmptyType> changeCb{[this] { ++changes; }};
    std::vector<std::string> restores;
    RCShdPtr<Counter> a;
    RCShdPtr<Counter> b;

    // The two values, the stack's entries with the labels on top, and the change notices.
    std::string state() const {
        std::ostringstream os;
        os << "a=" << a->get() << " b=" << b->get() << " undo " << stack->getNbUndo() << " '"
           << stack->getUndoLabel() << "' redo " << stack->getNbRedo() << " '"
           << stack->getRedoLabel() << "' changes " << changes;
        return os.str();
    }

    // Runs `edit` inside an undo guard with `label` and the transition number `transition`.
    template <class F>
    void guarded(std::string const& label, int transition, F&& edit) {
        PiUndoGuard guard(stack, label, PiExecParam(transition));
        edit();
    }
};

// A command that counts its runs and sets a counter.
class SetCommand : public CmCommand {
public:
    SetCommand(RCShdPtr<Counter> c, double from, double to)
        : CmCommand("Set c"), _c(std::move(c)), _from(from), _to(to) {}
    void execute() override { _c->set(_to); }
    void undo() override { _c->set(_from); }

private:
    RCShdPtr<Counter> _c;
    double _from;
    double _to;
};

} // namespace

TEST_F(UndoStack, GuardLogsOneEntryAndUndoRedoRestoreExactly) {
    {
        PiUndoGuard guard(stack, "Set radius");
        EXPECT_TRUE(CmRecorder::isRecording());
        a->set(2.0);
        a->set(3.0);
        b->set(20.0);
        EXPECT_EQ(stack->getNbUndo(), 0);
    }
    EXPECT_FALSE(CmRecorder::isRecording());
    EXPECT_EQ(state(), "a=3 b=20 undo 1 'Set radius' redo 0 '' changes 1");

    int const na = a->getNbNotifications();
    int const nb = b->getNbNotifications();
    ASSERT_TRUE(stack->undo());
    EXPECT_EQ(state(), "a=1 b=10 undo 0 '' redo 1 'Set radius' changes 2");
    EXPECT_EQ(a->getNbNotifications(), na + 1);
    EXPECT_EQ(b->getNbNotifications(), nb + 1);
    EXPECT_EQ(restores, (std::vector<std::string>{"b", "a"}));
    EXPECT_FALSE(stack->canUndo());

    restores.clear();
    ASSERT_TRUE(stack->redo());
    EXPECT_EQ(restores, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(a->getNbNotifications(), na + 2);
    EXPECT_FALSE(stack->redo());
    // Restoring recorded nothing of its own.
    EXPECT_EQ(state(), "a=3 b=20 undo 1 'Set radius' redo 0 '' changes 3");
}

TEST_F(UndoStack, ScopesThatChangeNothingLogNothing) {
    { PiUndoGuard guard(stack, "Nothing"); }
    {
        PiUndoGuard guard(stack, "Back and forth");
        a->set(5.0);
        a->set(1.0);
    }
    {
        // Only the object that really changed is in the entry.
        PiUndoGuard guard(stack, "One of two");
        a->set(5.0);
        b->set(11.0);
        b->set(10.0);
    }
    EXPECT_EQ(state(), "a=5 b=10 undo 1 'One of two' redo 0 '' changes 1");
    stack->undo();
    EXPECT_EQ(restores, (std::vector<std::string>{"a"}));
    EXPECT_FALSE(stack->undo());
    EXPECT_EQ(changes, 2);
}

TEST_F(UndoStack, NestedGuardsMakeOneEntryWithTheOuterLabel) {
    RCShdPtr<PiCommandStack> other = makeShared<PiCommandStack>();
    {
        PiUndoGuard outer(stack, "Outer");
        a->set(2.0);
        {
            PiUndoGuard inner(stack, "Inner");
            EXPECT_FALSE(inner.isOutermost());
            a->set(3.0);
            b->set(30.0);
        }
        {
            PiUndoGuard elsewhere(other, "Elsewhere", PiExecParam(1));
            b->set(40.0);
        }
        EXPECT_EQ(stack->getNbUndo(), 0);
    }
    EXPECT_EQ(state(), "a=3 b=40 undo 1 'Outer' redo 0 '' changes 1");
    EXPECT_EQ(other->getNbUndo(), 0);
    EXPECT_FALSE(other->hasPendingTransition());
    stack->undo();
    EXPECT_EQ(state(), "a=1 b=10 undo 0 '' redo 1 'Outer' changes 2");
}

TEST_F(UndoStack, LongTransitionMakesOneEntryRestoringTheStateBeforeTheDrag) {
    {
        PiUndoGuard g(stack, "Set a", PiExecParam(1));
        EXPECT_TRUE(g.isLongTransition());
        a->set(2.0);
    }
    EXPECT_EQ(stack->getNbUndo(), 0);
    EXPECT_TRUE(stack->hasPendingTransition());
    for (double v : {3.0, 4.0}) {
        PiUndoGuard g(stack, "", PiExecParam(2));
        a->set(v);
        b->set(v * 10); // b is first touched in the second guard
    }
    {
        // A single step during the drag joins it.
        PiUndoGuard g(stack, "Step");
        EXPECT_FALSE(g.isLongTransition());
        b->set(45.0);
    }
    EXPECT_EQ(stack->getNbUndo(), 0);
    guarded("", 3, [&] { a->set(5.0); });
    EXPECT_FALSE(stack->hasPendingTransition());
    EXPECT_EQ(state(), "a=5 b=45 undo 1 'Set a' redo 0 '' changes 1");
    stack->undo();
    EXPECT_EQ(state(), "a=1 b=10 undo 0 '' redo 1 'Set a' changes 2");
    stack->redo();
    EXPECT_EQ(state(), "a=5 b=45 undo 1 'Set a' redo 0 '' changes 3");
}

TEST_F(UndoStack, TransitionEdgeCases) {
    // A new transition logs the pending one first.
    guarded("First", 1, [&] { a->set(2.0); });
    guarded("Second", 1, [&] { a->set(3.0); });
    EXPECT_EQ(state(), "a=3 b=10 undo 1 'First' redo 0 '' changes 1");
    // A transition that ends as it began is dropped.
    guarded("", 3, [&] { a->set(3.0); });
    EXPECT_EQ(stack->getNbUndo(), 2);
    guarded("Noop", 1, [&] { a->set(9.0); });
    guarded("", 3, [&] { a->set(3.0); });
    EXPECT_EQ(state(), "a=3 b=10 undo 2 'Second' redo 0 '' changes 2");
    // Continue and close with nothing pending act as single steps with their labels.
    guarded("Continued", 2, [&] { a->set(4.0); });
    guarded("Closed", 3, [&] { a->set(5.0); });
    EXPECT_EQ(state(), "a=5 b=10 undo 4 'Closed' redo 0 '' changes 4");
    // Undo while a drag is pending (an unfinished gesture) logs it and undoes it.
    guarded("Unfinished", 1, [&] { a->set(6.0); });
    ASSERT_TRUE(stack->undo());
    EXPECT_EQ(state(), "a=5 b=10 undo 4 'Closed' redo 1 'Unfinished' changes 6");
}

TEST_F(UndoStack, ANewEntryDropsTheRedoEntries) {
    for (double v : {2.0, 3.0}) {
        PiUndoGuard g(stack, "Set " + std::to_string(int(v)));
        a->set(v);
    }
    stack->undo();
    stack->undo();
    EXPECT_EQ(stack->getNbRedo(), 2);
    guarded("Other", 0, [&] { b->set(11.0); });
    EXPECT_FALSE(stack->canRedo());
    EXPECT_EQ(state(), "a=1 b=11 undo 1 'Other' redo 0 '' changes 5");
}

TEST_F(UndoStack, LimitDropsTheOldestEntries) {
    EXPECT_EQ(stack->getLimit(), 1000);
    stack->setLimit(3);
    for (int i = 1; i <= 5; ++i) {
        PiUndoGuard g(stack, "Set " + std::to_string(i));
        a->set(i * 100.0);
    }
    EXPECT_EQ(state(), "a=500 b=10 undo 3 'Set 5' redo 0 '' changes 5");
    for (int i = 0; i < 3; ++i)
        stack->undo();
    EXPECT_FALSE(stack->undo());
    // The state before "Set 3".
    EXPECT_EQ(state(), "a=200 b=10 undo 0 '' redo 3 'Set 3' changes 8");
    EXPECT_THROW(stack->setLimit(0), ExAssertionFailed);
}

TEST_F(UndoStack, NoLogScopeRecordsNothingAndMayClearTheStack) {
    guarded("Kept", 0, [&] { a->set(2.0); });
    guarded("Hidden", 0, [&] {
        PiUndoGuardNoLog noLog(false);
        EXPECT_FALSE(CmRecorder::isRecording());
        b->set(20.0);
    });
    EXPECT_EQ(state(), "a=2 b=20 undo 1 'Kept' redo 0 '' changes 1");

    // Outside any guard, clearing has no stack to clear.
    {
        PiUndoGuardNoLog noLog(true);
        b->set(21.0);
    }
    EXPECT_EQ(stack->getNbUndo(), 1);

    int const before = changes;
    {
        PiUndoGuard g(stack, "Around");
        {
            PiUndoGuardNoLog noLog(true);
            b->set(22.0);
        }
        EXPECT_EQ(stack->getNbUndo(), 0);
        EXPECT_EQ(changes, before + 1);
        EXPECT_TRUE(CmRecorder::isRecording());
        a->set(3.0);
    }
    // The guard's own later change is still logged.
    EXPECT_EQ(state(), "a=3 b=22 undo 1 'Around' redo 0 '' changes 3");
    stack->undo();
    EXPECT_EQ(state(), "a=2 b=22 undo 0 '' redo 1 'Around' changes 4");
}

TEST_F(UndoStack, ClearingTheStackDuringADragDropsTheDrag) {
    guarded("Drag", 1, [&] { a->set(2.0); });
    guarded("", 2, [&] { PiUndoGuardNoLog noLog(true); });
    EXPECT_FALSE(stack->hasPendingTransition());
    guarded("", 3, [&] { a->set(3.0); });
    // The close found no transition pending, so it was a single step.
    stack->undo();
    EXPECT_EQ(state(), "a=2 b=10 undo 0 '' redo 1 '' changes 3");
}

TEST_F(UndoStack, ExceptionLeavingAGuardStillLogsWhatChanged) {
    try {
        PiUndoGuard g(stack, "Failing");
        a->set(7.0);
        throw std::runtime_error("boom");
    } catch (std::runtime_error const&) {
    }
    EXPECT_FALSE(CmRecorder::isRecording());
    EXPECT_EQ(CmRecorder::getScopeDepth(), 0);
    EXPECT_EQ(state(), "a=7 b=10 undo 1 'Failing' redo 0 '' changes 1");
    stack->undo();
    EXPECT_EQ(a->get(), 1.0);
}

TEST_F(UndoStack, ExecuteAndLogRunsTheCommandOnceAndUndoesIt) {
    guarded("Guard", 0, [&] {
        stack->executeAndLog(std::make_unique<SetCommand>(a, 1.0, 8.0));
        EXPECT_EQ(a->get(), 8.0);
    });
    // The command's own change was not recorded a second time by the guard.
    EXPECT_EQ(state(), "a=8 b=10 undo 1 'Set c' redo 0 '' changes 1");
    stack->undo();
    EXPECT_EQ(a->get(), 1.0);
    stack->redo();
    EXPECT_EQ(a->get(), 8.0);

    // A command already applied by the caller is only logged.
    a->set(9.0);
    stack->log(std::make_unique<SetCommand>(a, 8.0, 9.0));
    EXPECT_EQ(a->get(), 9.0);
    EXPECT_EQ(stack->getNbUndo(), 2);
    stack->log(nullptr);
    EXPECT_EQ(stack->getNbUndo(), 2);
}

TEST_F(UndoStack, UndoInsideAScopeAndClear) {
    guarded("Set", 0, [&] { a->set(2.0); });
    guarded("Undo inside", 0, [&] { stack->undo(); });
    // The restore was not recorded as a new entry.
    EXPECT_EQ(state(), "a=1 b=10 undo 0 '' redo 1 'Set' changes 2");
    stack->clear();
    EXPECT_FALSE(stack->canRedo());
    EXPECT_EQ(state(), "a=1 b=10 undo 0 '' redo 0 '' changes 3");
}

TEST_F(UndoStack, BadTransitionNumberIsRefused) {
    EXPECT_THROW(PiExecParam(4), ExAssertionFailed);
    EXPECT_THROW(PiExecParam(-1), ExAssertionFailed);
}
