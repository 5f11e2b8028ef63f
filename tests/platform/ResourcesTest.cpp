// Texts in two languages, Mac Roman and menus: what a person reads is whole, and numbers keep their meaning.
#include <gtest/gtest.h>

#include <string>

#include "platform/Automation.h"
#include "platform/Events.h"
#include "platform/Menus.h"
#include "platform/qt/TestiQt.h"
#include "platform/Resources.h"

namespace tessaro {
namespace {

class ResourcesTest : public testing::Test {
protected:
    void SetUp() override {
        ScegliLingua("en");
        CreateMenus();
    }
    void TearDown() override {
        ScegliLingua("en");
        CreateMenus();
    }
};

TEST_F(ResourcesTest, EveryMacRomanByteComesBackFromUnicode) {
    std::string tutti;
    for (int c = 0; c < 256; ++c) tutti += static_cast<char>(c);
    EXPECT_EQ(Utf8ToMac(MacToUtf8(tutti)), tutti);
    EXPECT_EQ(MacToUtf8("\x8E\x9F\xA1\xC9\xDB"), "éü°…€");
}

TEST_F(ResourcesTest, WhatMacRomanLacksBecomesOneQuestionMarkEach) {
    EXPECT_EQ(Utf8ToMac("a\xE2\x98\x83 b"), "a? b");
    EXPECT_EQ(Utf8ToMac("\xF0\x9F\x97\xBA!"), "?!");                  // beyond the first plane
    EXPECT_EQ(Utf8ToMac("e\xCC\x80"), "\x8F");                        // a letter and its accent apart
    EXPECT_EQ(Utf8ToMac("\xFF\xFE").find('\0'), std::string::npos);   // no text at all
}

TEST_F(ResourcesTest, ListsFollowTheLanguageAndMissingStringsAreEmpty) {
    EXPECT_EQ(GetIndString(129, 1), "Untitled");
    EXPECT_EQ(GetIndString(129, 22), "Selected: ");   // the blank at the end is part of it
    EXPECT_EQ(GetIndString(129, 43), "");
    EXPECT_EQ(GetIndString(-5, 1), "");
    ScegliLingua("it");
    EXPECT_EQ(GetIndString(129, 1), "Senza titolo");
    EXPECT_EQ(GetIndString(129, 32), "pi\x9D elementi");
}

TEST_F(ResourcesTest, AnItemThatIsNotBuiltStaysOffWhateverAsksForIt) {
    EXPECT_FALSE(MenuItemBuilt(40, 6));
    EnableMenuItem(40, 6);
    EXPECT_FALSE(IsMenuItemEnabled(40, 6));
    EXPECT_FALSE(AutoMenu(40, 6, 0));
    EXPECT_FALSE(AutoMenu(2, 6, 0));     // a line
    EXPECT_FALSE(AutoMenu(2, 99, 0));    // no such item
    EXPECT_FALSE(AutoMenu(999, 1, 0));   // no such menu
}

TEST_F(ResourcesTest, AMenuThatIsOffHoldsItsItemsBackAndKeepsTheirState) {
    DisableMenuItem(4, 2);
    DisableMenuItem(4, 0);
    EXPECT_FALSE(IsMenuItemEnabled(4, 1));
    EnableMenuItem(4, 0);
    EXPECT_TRUE(IsMenuItemEnabled(4, 1));
    EXPECT_FALSE(IsMenuItemEnabled(4, 2));
}

TEST_F(ResourcesTest, AChoiceComesAsOneRecordWithItsModifiers) {
    EventRecord e;
    while (WaitNextEvent(e, 0)) {}   // what other cases left behind
    ASSERT_TRUE(AutoMenu(60, 1, optionKey));
    do {
        if (!WaitNextEvent(e, 0) && e.what == EventKind::nullEvent) break;
    } while (e.what != EventKind::menuChoice);
    ASSERT_EQ(e.what, EventKind::menuChoice);
    EXPECT_EQ(e.message, (60U << 16) | 1U);
    EXPECT_EQ(e.modifiers, optionKey);
}

TEST_F(ResourcesTest, DeletingAColourNameMovesTheLaterOnesUpAndTheColourMenuShowsIt) {
    for (const char* nome : {"Nero", "Rosso", "Verde"}) AppendMenu(23, nome);
    CheckMenuItem(23, 3, true);
    DeleteMenuItem(23, 2);
    EXPECT_EQ(CountMenuItems(23), 2);
    EXPECT_EQ(GetMenuItemText(104, 2), "Verde");
    EXPECT_TRUE(IsMenuItemChecked(104, 2));
    EXPECT_EQ(AutoMenuJson(104), R"({"1":{"text":"Nero","checked":0,"enabled":1},)"
                                 R"("2":{"text":"Verde","checked":1,"enabled":1}})");
    EXPECT_TRUE(AutoMenu(104, 2, 0));
}

TEST_F(ResourcesTest, NumberedPatternsKeepTheirNumbers) {
    EXPECT_EQ(CountMenuItems(20), 38);
    EXPECT_EQ(CountMenuItems(105), 39);
    EXPECT_EQ(GetMenuItemText(20, 38), "Pattern 38");
    EXPECT_EQ(GetMenuItemText(105, 39), "Pattern 38");   // item n is pattern n - 1
    EXPECT_EQ(GetMenuItemText(105, 1), "None");
    EXPECT_EQ(GetMenuItemText(110, 6), "Destination Point 1");
    EXPECT_EQ(CountMenuItems(77), -1);
}

}   // namespace
}   // namespace tessaro
