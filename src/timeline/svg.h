// Pieces of SVG text. Lengths are those of the picture, with a tenth as the smallest step.
#pragma once

#include <string>
#include <string_view>

// "12.5", "12".
std::string Number(double value);

// Text of the system code page for between tags and for attributes: UTF-8, marked-up signs written out, and blanks for
// what XML cannot hold.
std::string Escaped(std::string_view text);

// The first so many characters, and a mark when there were more.
std::string Shortened(const std::string& text, std::size_t most);

std::string Text(const char* cssClass, double x, double y, std::string_view text);
std::string Rectangle(const char* cssClass, double x, double y, double width, double height, double radius = 0);

// "0.2 s", "12 s", "1:05", "2:00:00".
std::string TimeText(double ms);

// The style of the whole picture, for light surroundings and, where they are dark, for these.
std::string StyleSheet();
