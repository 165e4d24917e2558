#pragma once
// Made by cmake/make_cp932_table.py: the characters of the Japanese literals in the sources. Do not edit.

#include <cstdint>

namespace framework {

struct Cp932Entry {
  char32_t unicode;
  std::uint16_t cp932;
};

// clang-format off
inline constexpr Cp932Entry cp932_table[] = {
    {0x00B0, 0x818B},  // °
    {0x30AF, 0x834E},  // ク
    {0x30B4, 0x8353},  // ゴ
    {0x30B7, 0x8356},  // シ
    {0x30BD, 0x835C},  // ソ
    {0x30C3, 0x8362},  // ッ
    {0x5E74, 0x944E},  // 年
    {0x8868, 0x955C},  // 表
    {0x89D2, 0x8A70},  // 角
    {0xFF2D, 0x826C},  // Ｍ
    {0xFF33, 0x8272},  // Ｓ
    {0xFF71, 0x00B1},  // ｱ
};
// clang-format on

}  // namespace framework
