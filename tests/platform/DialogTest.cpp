// Dialogs and alerts as a script drives them: hits, keys, refused clicks and what comes back.
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/Automation.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Menus.h"
#include "platform/qt/Dialogo.h"
#include "platform/qt/TestiQt.h"
#include "support/Avvisi.h"

namespace tessaro {
namespace {

std::deque<std::function<bool(DialogPtr)>> passi;   // of the open dialog
std::vector<std::string> detto;
std::int16_t rispostaPopup = 0;

Copione ganci() {
    Copione c{};
    c.passo = [] { return false; };
    c.avviso = [](std::int16_t id, std::string_view testo, std::int16_t predefinito) {
        detto.push_back(std::to_string(id) + " " + std::string(testo));
        return predefinito;
    };
    c.dialogoAperto = [](std::int16_t id, std::string_view titolo) {
        detto.push_back(std::to_string(id) + " " + std::string(titolo));
    };
    c.passoDialogo = [](DialogPtr d) {
        if (passi.empty()) return false;
        const auto passo = passi.front();
        passi.pop_front();
        EXPECT_TRUE(passo(d));
        return true;
    };
    c.dialogoChiuso = [](std::int16_t id) { detto.push_back("close " + std::to_string(id)); };
    c.file = [](bool, std::string&) { return false; };
    c.popup = [] { return rispostaPopup; };
    c.colore = [](std::uint16_t&, std::uint16_t&, std::uint16_t&) { return false; };
    c.beep = [](std::int32_t) {};
    return c;
}

class DialogTest : public testing::Test {
protected:
    void SetUp() override {
        ScegliLingua("en");
        passi.clear();
        detto.clear();
        ParamText("", "", "", "");
        SetCopione(&copione);
    }
    void TearDown() override {
        DisposeDialog(d);
        prova::ganciDellaSuite();
    }
    std::int16_t corri(ModalFilter filtro = nullptr) {
        std::int16_t item = -1;
        ModalDialog(filtro, item);
        return item;
    }
    std::string descrivi(std::int16_t item) {
        std::string s;
        return AutoDialogDescribe(d, item, s) ? s : "none";
    }

    const Copione copione = ganci();
    DialogPtr d = nullptr;
};

TEST_F(DialogTest, TypingInAFieldIsAHitAndTheTextIsThere) {
    d = GetNewDialog(2013);
    SetDialogItemText(d, 4, "1000.00");
    passi = {[](DialogPtr q) { return AutoDialogSetText(q, 4, "2000"); },
             [](DialogPtr q) { return AutoDialogClick(q, 1); }};
    EXPECT_EQ(corri(), 4);
    EXPECT_EQ(GetDialogItemText(d, 4), "2000");
    EXPECT_EQ(corri(), 1);
    EXPECT_EQ(detto, (std::vector<std::string>{"2013 Scale, Sheet and Units"}));
}

TEST_F(DialogTest, ARadioOrCheckMarkIsTheProgramsToMove) {
    d = GetNewDialog(2013);
    SetDialogItemValue(d, 10, 1);
    passi = {[](DialogPtr q) { return AutoDialogClick(q, 11); }};
    EXPECT_EQ(corri(), 11);
    EXPECT_EQ(GetDialogItemValue(d, 11), 0);
    EXPECT_EQ(descrivi(10), "\"Gons (400 to a full turn)\" checked");
    EXPECT_EQ(descrivi(11), "\"Degrees (360 to a full turn)\"");
    SetDialogItemValue(d, 10, 0);
    SetDialogItemValue(d, 11, 1);
    EXPECT_EQ(descrivi(11), "\"Degrees (360 to a full turn)\" checked");
}

TEST_F(DialogTest, ReturnGivesTheDefaultEscapeTheCancelAndTheFilterComesFirst) {
    d = GetNewDialog(2005);
    passi = {[](DialogPtr q) { return AutoDialogKey(q, 27); }};
    EXPECT_EQ(corri(), 6);   // the item marked so, not shape 2
    passi = {[](DialogPtr q) { return AutoDialogKey(q, 13); }};
    EXPECT_EQ(corri([](DialogPtr, EventRecord& e, std::int16_t& item) {
                  if (e.what != EventKind::keyDown) return false;
                  item = 1;
                  return true;
              }),
              1);
    DisposeDialog(d);
    d = GetNewDialog(2007);
    passi = {[](DialogPtr q) { return AutoDialogKey(q, 13); }};
    EXPECT_EQ(corri(), 1);
}

TEST_F(DialogTest, ADimmedCancelCannotBePressedNorReachedByEscape) {
    d = GetNewDialog(2013);
    HiliteDialogItem(d, 2, 255);
    EXPECT_FALSE(AutoDialogClick(d, 2));
    EXPECT_EQ(descrivi(2), "\"Cancel\" disabled");
    passi = {[](DialogPtr q) { return AutoDialogKey(q, 27); }, [](DialogPtr q) { return AutoDialogClick(q, 19); }};
    EXPECT_EQ(corri(), 19);
    HiliteDialogItem(d, 2, 0);
    EXPECT_TRUE(AutoDialogClick(d, 2));
}

TEST_F(DialogTest, ADialogWhoseAnswerEndsIsCancelled) {
    d = GetNewDialog(2007);
    EXPECT_EQ(corri(), 2);
}

TEST_F(DialogTest, ASelectionInAFieldIsHeldToItsText) {
    d = GetNewDialog(2007);
    SetDialogItemText(d, 4, "12x4");
    SelectDialogItemText(d, 4, 2, 3);
    EXPECT_EQ(descrivi(4), "\"12x4\" selected 2 3");
    SelectDialogItemText(d, 4, 0, 100);
    EXPECT_EQ(descrivi(4), "\"12x4\" selected 0 4");
    SelectDialogItemText(d, 4, -7, -1);
    EXPECT_EQ(descrivi(4), "\"12x4\" selected 0 0");
    EXPECT_EQ(descrivi(77), "none");
}

TEST_F(DialogTest, ADialogOpenedInsideAnotherIsTheOneThatRuns) {
    d = GetNewDialog(2013);
    const DialogPtr dentro = GetNewDialog(2007);
    EXPECT_EQ(FrontDialog(), dentro);
    passi = {[dentro](DialogPtr q) { return q == dentro && AutoDialogClick(q, 1); }};
    EXPECT_EQ(corri(), 1);
    DisposeDialog(dentro);
    EXPECT_EQ(FrontDialog(), d);
    DisposeDialog(d);
    EXPECT_EQ(FrontDialog(), nullptr);
    EXPECT_EQ(detto, (std::vector<std::string>{"2007 Elevation of New Points", "close 2007"}));
}

TEST_F(DialogTest, ParametersFillTitlesTextsAndAlertsAndEmptyLinesGo) {
    ParamText("Foglio \x8E", "2", "", "");
    d = GetNewDialog(2024);
    EXPECT_EQ(descrivi(9), "\"Foglio é\"");
    EXPECT_EQ(StopAlert(9101), 1);
    EXPECT_EQ(detto.back(), "9101 Foglio é\n2");
    EXPECT_EQ(CautionAlert(3001), 2);
    EXPECT_EQ(NoteAlert(1014), 2);
    EXPECT_EQ(CautionAlert(3003), 1);
    EXPECT_EQ(Alert(3007), 2);
    EXPECT_EQ(NoteAlert(3011), 1);
}

TEST_F(DialogTest, ARefusalTellsItsBoundAndLeavesTheParametersOfTheOpenDialog) {
    ParamText("segment", "Category:", "", "");
    d = GetNewDialog(132);
    EXPECT_EQ(StopAlertParam(1009, "255"), 1);
    EXPECT_EQ(detto.back(), "1009 The value is too large.\nThe largest is 255.");
    StopAlertParam(1010, "");
    EXPECT_EQ(detto.back(), "1010 The value is too small.");
    DrawDialog(d);
    EXPECT_EQ(descrivi(3), "\"Category:\"");
}

TEST_F(DialogTest, APopUpGivesOnlyWhatCanBeChosen) {
    CreateMenus();
    rispostaPopup = 3;
    EXPECT_EQ(PopUpMenuSelect(110, Point{}, 1), 3);
    rispostaPopup = 10;   // a line between the items
    EXPECT_EQ(PopUpMenuSelect(110, Point{}, 1), 0);
    rispostaPopup = 0;
    EXPECT_EQ(PopUpMenuSelect(110, Point{}, 1), 0);
    EXPECT_EQ(PopUpMenuSelect(999, Point{}, 1), 0);
}

}   // namespace
}   // namespace tessaro
