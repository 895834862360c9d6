// What the program calls itself.
#pragma once

inline constexpr const char* ProductName = "Tessarine";
inline constexpr const char* ProductVersion = "3.0.6";
inline constexpr int ProductVersionNumber = 306;  // as job files and settings store it
inline constexpr const char* ProductReleaseDate = "2026-11-22";
