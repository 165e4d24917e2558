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
    {0x304B, 0x82A9},  // か
    {0x30AF, 0x834E},  // ク
    {0x30B4, 0x8353},  // ゴ
    {0x30B7, 0x8356},  // シ
    {0x30BD, 0x835C},  // ソ
    {0x30C3, 0x8362},  // ッ
    {0x30F6, 0x8396},  // ヶ
    {0x4EE4, 0x97DF},  // 令
    {0x548C, 0x9861},  // 和
    {0x5927, 0x91E5},  // 大
    {0x5E73, 0x95BD},  // 平
    {0x5E74, 0x944E},  // 年
    {0x6210, 0x90AC},  // 成
    {0x65E5, 0x93FA},  // 日
    {0x660E, 0x96BE},  // 明
    {0x662D, 0x8FBA},  // 昭
    {0x66A6, 0x97EF},  // 暦
    {0x6708, 0x8C8E},  // 月
    {0x6B63, 0x90B3},  // 正
    {0x6B73, 0x8DCE},  // 歳
    {0x6CBB, 0x8EA1},  // 治
    {0x8868, 0x955C},  // 表
    {0x897F, 0x90BC},  // 西
    {0x89D2, 0x8A70},  // 角
    {0xFF2D, 0x826C},  // Ｍ
    {0xFF33, 0x8272},  // Ｓ
    {0xFF71, 0x00B1},  // ｱ
};
// clang-format on

}  // namespace framework
