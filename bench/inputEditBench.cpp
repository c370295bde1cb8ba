// The edit of a value editor bound to a node input, among 1 to 1,000 bound editors, through the
// event loop: a short drag (press, a move past the four pixels of slop, a move, release) posted
// to the event queue and run until the input holds the new value and its undo entry is logged;
// and one move of a drag in progress, which writes into the drag's open entry. The window
// repaints between edits, outside the timing. Runs without a display.
#include "headlessBenchMain.h"
#include "zrUi.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>

using namespace Zr;

namespace {

// The tool "InputEditBenchTool", registered once: one input "radius" (0 to 100, default 50).
char const* benchTool() {
    static bool const registered = [] {
        auto tool = makeShared<PiTool>("InputEditBenchTool", Uuid::generate());
        PiTool::InputDeclaration radius;
        radius.name = "radius";
        radius.displayName = "Radius";
        radius.type = PiInput::Type::Double;
        radius.minimum = 0;
        radius.maximum = 100;
        radius.defaultValue = 50;
        tool->addInputDeclaration(radius);
        PiToolRegistry::getInstance().registerTool(tool);
        return true;
    }();
    (void)registered;
    return "InputEditBenchTool";
}

// A graph with one node of that tool and a time path.
struct Graph {
    RCShdPtr<PiInput> input(std::string const& name) const { return node->findInput(name); }
    RCShdPtr<PiCommandStack> stack() const { return graph->getCommandStack(); }

    RCShdPtr<PiGraph> graph = makeShared<PiGraph>();
    RCShdPtr<PiToolNode> node = graph->createNode(benchTool(), "Node1");
    RCShdPtr<PiTimePath const> timePath = PiTimePath::create(graph->getTimeClient());
};

// `count` editors, each bound to the radius of a node of its own; the one edited, at the window's
// corner, is made last, as the window looks for the widget under the pointer from the last child.
struct Panel {
    explicit Panel(int count = 1) {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 400, 0, 100});
        style.setMainWindow(false);
        window = UiTopLevel::create("bench", nullptr, style);
        for (int i = 1; i < count; ++i) {
            auto other = UiValueEditor::create(window->getRootContainer().get(), "other");
            other->setRect({10, 210, 40 + 21 * i, 61 + 21 * i}, false); // most beyond the window
            auto node = graph.graph->createNode(benchTool(), "Node" + std::to_string(i + 1));
            UiInputValueEditor::setInput(*other, node->findInput("radius"), graph.timePath);
        }
        editor = UiValueEditor::create(window->getRootContainer().get(), "radius");
        editor->setRect({10, 210, 10, 31}, false);
        editor->setIncrement(0.1);
        UiInputValueEditor::setInput(*editor, graph.input("radius"), graph.timePath);
        graph.stack()->addChangeCb(&logged);
        editor->addPreEditCb(&started);
        window->show();
        settle();
    }
    ~Panel() {
        graph.stack()->removeChangeCb(&logged);
        UiApplication::getInstance().clearCurrentWindow();
        editor = nullptr;
        window->getRootContainer()->removeChildren();
    }
    void settle() {
        while (window->redraw()) {
        }
    }
    template <class E>
    void post(int x, unsigned buttons) {
        auto event = std::make_unique<E>();
        event->setWindowId(window->getOSWindow()->getId());
        event->setWCoord({x, 20});
        event->setPointerState(EvPointerState(buttons));
        if constexpr (std::is_base_of_v<EvPointerButtonEvent, E>)
            event->setTriggerButton(1);
        WsEventQ::getInstance().postEvent(std::move(event));
    }
    // Runs the loop until the flag is set.
    void run(bool volatile& flag) {
        flag = false;
        bool volatile appExit = false;
        UiApplication::getInstance().localMessageLoop(&flag, &appExit);
    }

    Graph graph;
    RCShdPtr<UiTopLevel> window;
    RCShdPtr<UiValueEditor> editor;
    bool volatile entryLogged = false;
    CbFunction<CbEmptyType> logged{[this] { entryLogged = true; }};
    bool volatile dragStarted = false;
    CbFunction<EvEvent> started{[this](EvEvent&) { dragStarted = true; }};
};

// Press, a move past the four pixels of slop, a move of 15 more, release: one undo entry
// "Set Radius" and the input's new value.
void BM_DragEditThroughLoop(benchmark::State& state) {
    Panel panel(static_cast<int>(state.range(0)));
    int direction = 1;
    double previous = panel.graph.input("radius")->getStaticValue();
    for (auto _ : state) {
        int const from = direction > 0 ? 60 : 120, to = from + 20 * direction;
        auto const start = std::chrono::steady_clock::now();
        // The loop merges queued moves: the move past the slop runs before the next is posted.
        panel.post<EvPointerButtonDownEvent>(from, 1);
        panel.post<EvPointerMoveEvent>(from + 5 * direction, 1);
        panel.run(panel.dragStarted);
        panel.post<EvPointerMoveEvent>(to, 1);
        panel.post<EvPointerButtonUpEvent>(to, 0);
        panel.run(panel.entryLogged);
        auto const end = std::chrono::steady_clock::now();
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
        double const now = panel.graph.input("radius")->getStaticValue();
        if (now == previous || panel.graph.stack()->getUndoLabel() != "Set Radius") {
            state.SkipWithError("a drag did not set the input with its entry");
            break;
        }
        previous = now;
        direction = -direction;
        panel.settle();
    }
}
BENCHMARK(BM_DragEditThroughLoop)
    ->Arg(1)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

// One move of a drag in progress, from the queue to the input's new value.
void BM_DragMoveThroughLoop(benchmark::State& state) {
    Panel panel;
    bool volatile moved = false;
    CbFunction<EvEvent> onChange{[&moved](EvEvent&) { moved = true; }};
    panel.editor->addValueChangedCb(&onChange);
    panel.post<EvPointerButtonDownEvent>(60, 1);
    panel.post<EvPointerMoveEvent>(65, 1);
    panel.run(panel.dragStarted);
    int x = 70;
    for (auto _ : state) {
        x = x == 70 ? 90 : 70;
        auto const start = std::chrono::steady_clock::now();
        panel.post<EvPointerMoveEvent>(x, 1);
        panel.run(moved);
        auto const end = std::chrono::steady_clock::now();
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
        panel.settle();
    }
    panel.post<EvPointerButtonUpEvent>(x, 0);
    panel.run(panel.entryLogged);
    panel.editor->removeValueChangedCb(&onChange);
    if (panel.graph.stack()->getNbUndo() != 1)
        state.SkipWithError("the drag did not make one entry");
}
BENCHMARK(BM_DragMoveThroughLoop)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    return Zr::runHeadlessBenchmarks(argc, argv);
}
