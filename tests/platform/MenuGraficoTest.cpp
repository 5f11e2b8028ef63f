// The menus that are pictures: which cell chooses which item, and that the one in force is marked.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QMenu>
#include <QMouseEvent>
#include <QWidgetAction>

#include "model/Penna.h"
#include "platform/Menus.h"
#include "platform/qt/Interno.h"
#include "platform/qt/Menu.h"

namespace tessaro {
namespace {

QWidget* figuraDi(std::int16_t menu) {
    MenuDati* m = menuDi(menu);
    preparaMenu(*m);
    auto* azione = qobject_cast<QWidgetAction*>(m->menu->actions().value(0));
    if (azione == nullptr) return nullptr;
    QWidget* w = azione->defaultWidget();
    w->resize(w->sizeHint());
    return w;
}

std::int16_t sceltaA(std::int16_t menu, QPointF dove) {
    QWidget* w = figuraDi(menu);
    popupAperto = menu;
    sceltaPopup = 0;
    QMouseEvent e(QEvent::MouseButtonRelease, dove, dove, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &e);
    popupAperto = 0;
    return sceltaPopup;
}

bool blu(const QImage& i, int x, int y) { return i.pixelColor(x, y) == QColor(0, 0, 255); }

}   // namespace

class MenuConFigure : public testing::Test {
protected:
    void SetUp() override { CreateMenus(); }
};

TEST_F(MenuConFigure, ACellOfThePatternGridChoosesItsItem) {
    const struct {
        std::int16_t menu;
        QPointF dove;
        std::int16_t voce;
    } casi[] = {
        {20, {20, 10}, 0},      // the label
        {20, {45, 10}, 1},      // first row: the double cell and three patterns
        {20, {95, 10}, 3},      //
        {20, {5, 30}, 4},       //
        {20, {95, 150}, 38},    // the last cell
        {105, {20, 10}, 1},     // none
        {105, {45, 10}, 2},     // item 2 is pattern 1
        {105, {95, 150}, 39},   //
    };
    for (const auto& c : casi) EXPECT_EQ(sceltaA(c.menu, c.dove), c.voce) << c.menu << " at " << c.dove.x();
}

TEST_F(MenuConFigure, TheDoubleCellSaysWhatTheGridIs) {
    NumPat = 4;
    NumAreaPat = 5;
    for (const std::int16_t menu : {std::int16_t{20}, std::int16_t{105}}) {
        const QImage i = figuraDi(menu)->grab().toImage();
        int scritti = 0;
        for (int y = 2; y < 18; ++y)
            for (int x = 2; x < 38; ++x) scritti += i.pixelColor(x, y).lightness() < 128;
        EXPECT_GT(scritti, 15) << menu;
    }
}

TEST_F(MenuConFigure, TheCellInForceHasABlueFrame) {
    NumPat = 4;
    NumAreaPat = 0;
    const QImage penna = figuraDi(20)->grab().toImage(), area = figuraDi(105)->grab().toImage();
    EXPECT_EQ(penna.size(), QSize(100, 160));
    EXPECT_TRUE(blu(penna, 0, 20) && blu(penna, 19, 39) && blu(penna, 1, 21));
    EXPECT_FALSE(blu(penna, 21, 20) || blu(penna, 40, 0));
    EXPECT_TRUE(blu(area, 0, 0) && blu(area, 39, 19));
}

TEST_F(MenuConFigure, AColourRowChoosesItsColour) {
    while (CountMenuItems(23) > 0) DeleteMenuItem(23, 1);
    for (const char* nome : {"Black", "Red", "Green"}) AppendMenu(23, nome);
    const QWidget* w = figuraDi(104);
    ASSERT_NE(w, nullptr);
    const double riga = w->height() / 3.0;
    EXPECT_EQ(sceltaA(104, {30, riga * 1.5}), 2);
    EXPECT_EQ(sceltaA(104, {30, riga * 2.5}), 3);
}

}   // namespace tessaro
