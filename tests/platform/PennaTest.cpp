// A pen over the drawing's content: records with parts of a pixel where it digitises, a mouse elsewhere.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPointingDevice>
#include <QTabletEvent>

#include <vector>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"
#include "platform/Tablet.h"

using namespace tessaro;

namespace {

struct Penna : testing::Test {
    using D = QInputDevice;
    using T = QPointingDevice::PointerType;
    WindowPtr w = nullptr;
    QPointingDevice punta{"pen", 901, D::DeviceType::Stylus, T::Pen, D::Capability::Position, 1, 3};
    QPointingDevice gomma{"pen", 902, D::DeviceType::Stylus, T::Eraser, D::Capability::Position, 1, 3};

    void SetUp() override {
        w = GetNewCWindow(1000);
        SizeWindow(w, 600, 400);
        PenListen([](double h, double) { return h >= 100; });
        vuota();
    }
    void TearDown() override {
        PenListen(nullptr);
        vuota();
        DisposeWindow(w);
    }
    static void vuota() {
        EventRecord e;
        while (prendi(e, Attesa::evento)) {}
    }
    // True when the pen was taken, and not left to be a mouse.
    bool manda(QEvent::Type tipo, QPointF dove, Qt::MouseButton bottone, Qt::MouseButtons tenuti,
               T tipoPunta = T::Pen) {
        QTabletEvent e(tipo, tipoPunta == T::Pen ? &punta : &gomma, dove, dove, 1, 0, 0, 0, 0, 0, Qt::NoModifier,
                       bottone, tenuti);
        e.ignore();
        QApplication::sendEvent(foglio(), &e);
        return e.isAccepted();
    }
    static std::vector<EventRecord> penne() {
        std::vector<EventRecord> v;
        EventRecord e;
        while (prendi(e, Attesa::evento))
            if (e.what == EventKind::pen) v.push_back(e);
        return v;
    }
};

}   // namespace

TEST_F(Penna, APressIsOneRecordAndMovesKeepTheirFraction) {
    EXPECT_TRUE(manda(QEvent::TabletMove, {200.25, 150.5}, Qt::NoButton, Qt::NoButton));
    EXPECT_TRUE(manda(QEvent::TabletMove, {201.25, 150.75}, Qt::NoButton, Qt::NoButton));
    EXPECT_TRUE(manda(QEvent::TabletPress, {201.5, 151.125}, Qt::LeftButton, Qt::LeftButton));
    EXPECT_TRUE(manda(QEvent::TabletMove, {50, 151}, Qt::NoButton, Qt::LeftButton));   // held: still the pen's
    EXPECT_TRUE(manda(QEvent::TabletRelease, {50, 151}, Qt::LeftButton, Qt::NoButton));
    EXPECT_FALSE(manda(QEvent::TabletMove, {50, 151}, Qt::NoButton, Qt::NoButton));
    const auto v = penne();
    ASSERT_EQ(v.size(), 3u);   // a run of moves is its last one
    EXPECT_EQ(v[0].where.h + v[0].frazioneH, 201.25);
    EXPECT_EQ(v[0].where.v + v[0].frazioneV, 150.75);
    EXPECT_EQ(v[0].message, 0u);
    EXPECT_EQ(v[1].message, 1u);
    EXPECT_EQ(v[1].where.v + v[1].frazioneV, 151.125);
    EXPECT_EQ(v[2].message, 0u);
}

TEST_F(Penna, SideButtonsAndTheEraserHaveTheirOwnNumbers) {
    const auto premi = [this](Qt::MouseButton b, T t) {
        manda(QEvent::TabletPress, {200, 150}, b, b, t);
        manda(QEvent::TabletRelease, {200, 150}, b, Qt::NoButton, t);
        const auto v = penne();
        return v.empty() ? 99u : v.front().message;
    };
    EXPECT_EQ(premi(Qt::LeftButton, T::Pen), 1u);
    EXPECT_EQ(premi(Qt::RightButton, T::Pen), 2u);
    EXPECT_EQ(premi(Qt::MiddleButton, T::Pen), 3u);
    EXPECT_EQ(premi(Qt::LeftButton, T::Eraser), 2u);
}

TEST_F(Penna, UnderADialogItDigitisesNothing) {
    {
        const Annidato dialogo;
        EXPECT_FALSE(manda(QEvent::TabletMove, {200, 150}, Qt::NoButton, Qt::NoButton));
        EXPECT_FALSE(manda(QEvent::TabletPress, {200, 150}, Qt::LeftButton, Qt::LeftButton));
        EXPECT_FALSE(manda(QEvent::TabletRelease, {200, 150}, Qt::LeftButton, Qt::NoButton));
    }
    EXPECT_TRUE(manda(QEvent::TabletPress, {200, 150}, Qt::LeftButton, Qt::LeftButton));
    {
        const Annidato dialogo;   // which that press opened
        EXPECT_TRUE(manda(QEvent::TabletRelease, {200, 150}, Qt::LeftButton, Qt::NoButton));
    }
    EXPECT_EQ(penne().size(), 1u);
    EXPECT_TRUE(manda(QEvent::TabletMove, {200, 150}, Qt::NoButton, Qt::NoButton));
}

TEST_F(Penna, APressThatBeganAsAMouseStaysOne) {
    EXPECT_FALSE(manda(QEvent::TabletPress, {50, 50}, Qt::LeftButton, Qt::LeftButton));
    EXPECT_FALSE(manda(QEvent::TabletMove, {200, 50}, Qt::NoButton, Qt::LeftButton));
    EXPECT_FALSE(manda(QEvent::TabletRelease, {200, 50}, Qt::LeftButton, Qt::NoButton));
    EXPECT_TRUE(manda(QEvent::TabletMove, {200, 50}, Qt::NoButton, Qt::NoButton));
    PenListen(nullptr);
    EXPECT_FALSE(manda(QEvent::TabletMove, {200, 50}, Qt::NoButton, Qt::NoButton));
}
