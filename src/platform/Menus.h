// Menus, addressed by menu number and 1-based item number. A choice comes as an event of kind menuChoice.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Types.h"

namespace tessaro {

void CreateMenus();   // from resources/menus; number, item, text, key, mark
void DrawMenuBar();
void CheckMenuItem(std::int16_t menu, std::int16_t item, bool on);
bool IsMenuItemChecked(std::int16_t menu, std::int16_t item);
void EnableMenuItem(std::int16_t menu, std::int16_t item);   // item 0: the whole menu
void DisableMenuItem(std::int16_t menu, std::int16_t item);
void ShowMenuItem(std::int16_t menu, std::int16_t item, bool shown);   // a hidden one cannot be chosen either
bool MenuItemBuilt(std::int16_t menu, std::int16_t item);       // false: its command is to come; it stays disabled
bool IsMenuItemEnabled(std::int16_t menu, std::int16_t item);   // false too when its menu is off or it is not built
void SetMenuItemText(std::int16_t menu, std::int16_t item, std::string_view macRoman);
std::string GetMenuItemText(std::int16_t menu, std::int16_t item);
// The keys that do what the item does, as the person reads them: "Ctrl+Z", "P"; empty for none.
std::string MenuItemKeys(std::int16_t menu, std::int16_t item);
std::string GetMenuTitle(std::int16_t menu);   // Mac Roman, without its mnemonic; empty when there is no such menu
void AppendMenu(std::int16_t menu, std::string_view macRoman);
void DeleteMenuItem(std::int16_t menu, std::int16_t item);
std::int16_t CountMenuItems(std::int16_t menu);   // -1 when there is no such menu
// Opens a menu as a pop-up at a window-local point with `item` under the pointer; the item chosen, 0 for none.
std::int16_t PopUpMenuSelect(std::int16_t menu, Point where, std::int16_t item);

}   // namespace tessaro
