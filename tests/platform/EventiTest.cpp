// The event queue and its nested loops, driven as a script drives them: input enters at window level, and what the core
// takes out is looked at.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>

#include <deque>
#include <functional>
#include <vector>

#include "platform/Automation.h"
#include "platform/qt/Interno.h"
#include "platform/Windows.h"
#include "support/Avvisi.h"

using namespace tessaro;

namespace {

std::deque<std::function<void()>> passi;

constexpr Copione ganci{
    .passo =
        [] {
            if (passi.empty()) return false;
            const auto p = std::move(passi.front());
            passi.pop_front();
            p();
            return true;
        },
    .avviso = [](std::int16_t, std::string_view, std::int16_t b) { return b; },
    .dialogoAperto = [](std::int16_t, std::string_view) {},
    .passoDialogo = [](DialogPtr) { return false; },
    .dialogoChiuso = [](std::int16_t) {},
    .file = [](bool, std::string&) { return false; },
    .popup = []() -> std::int16_t { return 0; },
    .colore = [](std::uint16_t&, std::uint16_t&, std::uint16_t&) { return false; },
    .beep = [](std::int32_t) {},
};

class EventiTest : public testing::Test {
protected:
    WindowPtr w = nullptr;

    void SetUp() override {
        static int argc = 1;
        static char nome[] = "tests";
        static char* argv[] = {nome, nullptr};
        Avvio a;
        a.script = true;
        if (!conFinestre()) StartToolbox(argc, argv, a);
        SetCopione(&ganci);
        passi.clear();
        w = GetNewCWindow(1000);
        SizeWindow(w, 600, 400);
        svuota();
    }
    void TearDown() override {
        svuota();
        DisposeWindow(w);
        prova::ganciDellaSuite();
    }
    void svuota() {
        EventRecord e;
        while (WaitNextEvent(e, 0) || !AutoQueueEmpty()) {}
        FlushEvents();
    }
    void metti(std::function<void()> p) { passi.push_back(std::move(p)); }
    // The next event that is not null, and GetMouse at its delivery.
    EventRecord prossimo() {
        EventRecord e;
        for (int i = 0; i < 50; ++i)
            if (WaitNextEvent(e, 0)) return e;
        return {};
    }
};

TEST_F(EventiTest, AClickIsReleasedBeforeItsPressIsDealtWith) {
    metti([] {
        AutoAdvance(60);
        AutoMove(Point{50, 40}, 0);
        AutoPress(Point{50, 40}, shiftKey);
        AutoRelease(Point{50, 40}, shiftKey);
    });
    EventRecord e;
    EXPECT_FALSE(WaitNextEvent(e, 0)) << "the press comes behind its move";
    EXPECT_EQ(GetMouse(), (Point{50, 40}));
    ASSERT_TRUE(WaitNextEvent(e, 0));
    EXPECT_EQ(e.what, EventKind::mouseDown);
    EXPECT_EQ(e.where, (Point{50, 40}));
    EXPECT_EQ(e.modifiers, shiftKey);
    EXPECT_EQ(e.when, TickCount());
    EXPECT_FALSE(StillDown());
}

TEST_F(EventiTest, ADragLoopPullsItsMovesAndItsRelease) {
    metti([] { AutoPress(Point{10, 10}, 0); });
    for (const int v : {20, 30}) metti([v] { AutoMove(Point{v, 10}, 0); });
    metti([] { AutoAdvance(45); });
    metti([] {
        AutoMove(Point{99, 10}, 0);
        AutoRelease(Point{99, 10}, 0);
    });
    ASSERT_EQ(prossimo().what, EventKind::mouseDown);
    const std::uint32_t inizio = TickCount();
    std::vector<int> viste;
    while (StillDown()) viste.push_back(GetMouse().v);
    EXPECT_EQ(viste, (std::vector<int>{20, 30, 30, 99})) << "a wait is news too";
    EXPECT_EQ(TickCount() - inizio, 45U);
    EXPECT_EQ(GetMouse(), (Point{99, 10}));
    EXPECT_FALSE(Button());
    EXPECT_TRUE(passi.empty());
}

TEST_F(EventiTest, ALoopThatOnlyPollsTheButtonEndsToo) {
    metti([] { AutoPress(Point{10, 10}, 0); });
    metti([] { AutoRelease(Point{10, 10}, 0); });
    ASSERT_EQ(prossimo().what, EventKind::mouseDown);
    int giri = 0;
    while (Button() && giri < 1000) ++giri;
    EXPECT_LT(giri, 1000);
}

TEST_F(EventiTest, RepaintsMergeAndAreAllThatAFlushDrops) {
    metti([this] {
        InvalWindowRect(w, SetRect(0, 0, 10, 10));
        AutoKey('a', 0);
        InvalWindowRect(w, SetRect(20, 20, 30, 30));
    });
    EventRecord e;
    ASSERT_TRUE(WaitNextEvent(e, 0));
    EXPECT_EQ(e.what, EventKind::updateEvt);
    InvalWindowRect(w, SetRect(0, 0, 5, 5));
    FlushEvents();
    ASSERT_TRUE(WaitNextEvent(e, 0));
    EXPECT_EQ(e.what, EventKind::keyDown);
    EXPECT_EQ(e.message, std::uint32_t{'a'});
    EXPECT_EQ(prossimo().what, EventKind::nullEvent);
}

TEST_F(EventiTest, ALetterThatAnOpenMenuHasNoUseForIsNoCommand) {
    const auto lettera = [] {
        QKeyEvent e(QEvent::KeyPress, Qt::Key_G, Qt::NoModifier, "g");
        QCoreApplication::sendEvent(telaio(), &e);
    };
    QMenu menu(telaio());
    menu.addAction("Layers");
    menu.popup(QPoint(20, 20));
    lettera();
    EXPECT_NE(prossimo().what, EventKind::keyDown);
    menu.close();
    lettera();
    EXPECT_EQ(prossimo().what, EventKind::keyDown);
}

TEST_F(EventiTest, AQuitUnwindsTheNestedLoopAndWaitsForTheMainOne) {
    metti([] { AutoPress(Point{10, 10}, 0); });
    metti([] {
        EventRecord e;
        e.what = EventKind::highLevel;
        e.classe = "quit";
        AutoPost(e);
    });
    ASSERT_EQ(prossimo().what, EventKind::mouseDown);
    {
        const Annidato ciclo;
        EXPECT_FALSE(StillDown());
        EXPECT_TRUE(quitPending());
        EventRecord e;
        EXPECT_FALSE(WaitNextEvent(e, 0)) << "a nested loop is not given the quit";
    }
    EXPECT_FALSE(quitPending()) << "the questions asked on the way out must not cancel themselves";
    EXPECT_EQ(prossimo().classe, "quit");
    const Annidato domanda;
    EXPECT_FALSE(quitPending());
}

TEST_F(EventiTest, LosingTheFrontEndsAPress) {
    metti([] { AutoPress(Point{10, 10}, 0); });
    metti([] { AutoActivate(false); });
    ASSERT_EQ(prossimo().what, EventKind::mouseDown);
    EXPECT_FALSE(StillDown());
    EXPECT_EQ(prossimo().what, EventKind::osEvt);
    AutoRelease(Point{10, 10}, 0);
    EventRecord e;
    EXPECT_FALSE(prendi(e, Attesa::evento)) << "the late release belongs to no press";
}

TEST_F(EventiTest, TheWheelKeepsItsAxisUnderOption) {
    struct Caso {
        std::int32_t asse, passi;
        std::uint16_t modificatori;
    };
    metti([] { AutoMove(Point{20, 20}, 0); });
    prossimo();   // the pointer has been seen: a wheel brings no move of its own
    for (const Caso& c : {Caso{0, 2, 0}, {0, -3, optionKey}, {1, 1, optionKey}, {1, -1, 0}, {0, 1, cmdKey}}) {
        metti([c] { AutoWheel(c.asse, c.passi, c.modificatori); });
        const EventRecord e = prossimo();
        EXPECT_EQ(e.what, EventKind::wheel);
        EXPECT_EQ(static_cast<std::int32_t>(e.message >> 16), c.asse);
        EXPECT_EQ(static_cast<std::int16_t>(e.message & 0xFFFF), c.passi);
        EXPECT_EQ(e.modifiers, c.modificatori);
    }
}

TEST_F(EventiTest, ABarTellsOnlyWhatAHandDidToIt) {
    const ControlHandle c = NewScrollBar(w, true);
    MoveSizeControl(c, SetRect(580, 0, 596, 300));
    SetControlMaximum(c, 1000);
    SetControlSteps(c, 15, 120);
    SetControlValue(c, 5000);
    EXPECT_EQ(GetControlValue(c), 1000) << "held to its maximum";
    SetControlValue(c, 0);
    ShowControl(c);
    svuota();
    EXPECT_TRUE(AutoQueueEmpty());
    metti([] {
        AutoPress(Point{280, 588}, 0);
        AutoRelease(Point{280, 588}, 0);
    });
    EXPECT_EQ(prossimo().what, EventKind::scroll);
    EXPECT_EQ(GetControlValue(c), 120);
}

TEST_F(EventiTest, AResizedFrameGivesThePortItsSize) {
    metti([] { AutoResize(700, 333); });
    const EventRecord e = prossimo();
    EXPECT_EQ(e.what, EventKind::grow);
    EXPECT_EQ(e.where, (Point{333, 700}));
    EXPECT_EQ(GetPortBounds(w), SetRect(0, 0, 700, 333));
}

TEST_F(EventiTest, AClosedWindowLeavesNoEventsBehind) {
    InvalWindowRect(w, GetPortBounds(w));
    DisposeWindow(w);
    w = nullptr;
    EXPECT_EQ(FrontWindow(), nullptr);
    EXPECT_TRUE(AutoQueueEmpty());
    metti([] { AutoGoAway(); });
    EXPECT_EQ(prossimo().classe, "quit") << "without a drawing the frame's close box quits";
}

TEST_F(EventiTest, EscapeIsSeenOnceAndNotTypedToo) {
    AutoKey(27, 0);
    EXPECT_TRUE(escapePressed());
    EXPECT_FALSE(escapePressed());
    EXPECT_EQ(prossimo().what, EventKind::nullEvent);
}

}   // namespace
