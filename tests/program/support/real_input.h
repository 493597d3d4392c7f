#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>

// The keyboard and the mouse of this session: this input goes where a user's would go.
namespace vandrel::test::input {

// Presses and releases a key while the others are held.
void key(WORD key, std::initializer_list<WORD> held = {});
// Types letters, whatever the keyboard's layout.
void type(const std::wstring& text);

void moveTo(POINT screen);
// Clicks at the point, or a few pixels beside it where that would make a double click with the last one.
void click(POINT screen);
void rightClick(POINT screen);
void doubleClick(POINT screen);
// Presses at the first point, moves in small steps, releases at the second.
void drag(POINT from, POINT to);

} // namespace vandrel::test::input
