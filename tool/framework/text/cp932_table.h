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
    {0x30BD, 0x835C},  // ソ
    {0x5E74, 0x944E},  // 年
    {0x8868, 0x955C},  // 表
    {0x89D2, 0x8A70},  // 角
    {0xFF71, 0x00B1},  // ｱ
};
// clang-format on

}  // namespace framework
