// What the anchors of the editor's controls cannot say of their places: after each change of the size, when they have
// followed their anchors, and after a change of the language.
#pragma once

#include <windows.h>

// Texts differ in length from language to language: the buttons stand one behind the other, each as wide as its text.
void PlaceToolbar(HWND form);

// The program stands behind its label, and ends before the numbers.
void PlaceProgram(HWND form);

// In a higher window the keys are no longer flat: the keyboard takes a part of what the grid has beyond its least, up
// to the shape of a real one. After a change of the size alone.
void PlaceKeyboard(HWND form);
