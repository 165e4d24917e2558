#pragma once
// Heads of photographs put together byte by byte, in either byte order.

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace support {

using namespace std::string_literals;

/// One entry of an image file directory; `value` is already in the block's byte order.
struct ExifEntry {
  unsigned tag, format;
  std::uint32_t count;
  std::string value;
};

/// Writes numbers and directories in one byte order.
struct ExifWriter {
  bool big;

  std::string integer(std::uint64_t value, int bytes) const {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * (big ? bytes - 1 - i : i) & 0xFF);
    return text;
  }
  std::string u16(unsigned value) const { return integer(value, 2); }
  std::string u32(std::uint32_t value) const { return integer(value, 4); }

  ExifEntry word(unsigned tag, unsigned value) const { return {tag, 3, 1, u16(value)}; }
  ExifEntry dword(unsigned tag, std::uint32_t value) const { return {tag, 4, 1, u32(value)}; }
  ExifEntry text(unsigned tag, const std::string &value) const {
    return {tag, 2, static_cast<std::uint32_t>(value.size() + 1), value + '\0'};
  }
  ExifEntry bytes(unsigned tag, const std::string &value) const {
    return {tag, 7, static_cast<std::uint32_t>(value.size()), value};
  }
  ExifEntry fraction(unsigned tag, std::int32_t over, std::int32_t under, unsigned format = 5) const {
    return {tag, format, 1, u32(static_cast<std::uint32_t>(over)) + u32(static_cast<std::uint32_t>(under))};
  }

  /// A directory that begins at `at` from the TIFF header, its long values behind it.
  std::string directory(const std::vector<ExifEntry> &entries, std::size_t at, std::uint32_t next = 0) const {
    std::string head = u16(static_cast<unsigned>(entries.size()));
    std::string values;
    const std::size_t values_at = at + 2 + 12 * entries.size() + 4;
    for (const ExifEntry &one : entries) {
      head += u16(one.tag) + u16(one.format) + u32(one.count);
      if (one.value.size() <= 4) {
        head += one.value + std::string(4 - one.value.size(), '\0');
      } else {
        head += u32(static_cast<std::uint32_t>(values_at + values.size()));
        values += one.value;
      }
    }
    return head + u32(next) + values;
  }

  /// From "Exif" on; `directories` begin 8 bytes behind the TIFF header.
  std::string block(const std::string &directories) const {
    return "Exif\0\0"s + (big ? "MM" : "II") + u16(42) + u32(8) + directories;
  }
};

/// What the EXIF block of `camera_block` says.
inline constexpr std::string_view camera_thumbnail = "\xFF\xD8 small picture \xFF\xD9";

/// A block as cameras write it: picture, EXIF and thumbnail directory.
inline std::string camera_block(const ExifWriter &w) {
  std::vector<ExifEntry> picture{
      w.text(0x010F, "Optik KK"), w.text(0x0110, "Dental 100"), w.word(0x0112, 6),
      w.fraction(0x011A, 72, 1),  w.fraction(0x011B, 144, 2),   w.word(0x0128, 2),
      w.dword(0x8769, 0),
  };
  const std::vector<ExifEntry> camera{
      w.fraction(0x829A, 1, 125),
      w.fraction(0x829D, 28, 10),
      w.word(0x8822, 3),
      w.word(0x8827, 2),
      w.bytes(0x9000, "0220"),
      w.text(0x9003, "2024:05:06 07:08:09"),
      w.fraction(0x9102, 4, 1),
      w.fraction(0x9203, -5, 2, 10),
      w.fraction(0x9204, -1, 3, 10),
      w.fraction(0x9206, 35, 100),
      w.word(0x9207, 5),
      w.word(0x9208, 4),
      w.word(0x9209, 0x19),
      w.fraction(0x920A, 105, 1),
      w.bytes(0x9286, "ASCII\0\0\0upper arch  "s),
      w.dword(0xA002, 3000),
      w.dword(0xA003, 2000),
      w.fraction(0xA20E, 3000, 1),
      w.fraction(0xA20F, 2000, 1),
      w.word(0xA210, 3),
  };
  const std::size_t camera_at = 8 + w.directory(picture, 8).size();
  const std::size_t small_at = camera_at + w.directory(camera, camera_at).size();
  picture.back() = w.dword(0x8769, static_cast<std::uint32_t>(camera_at));
  const auto thumbnail_at = static_cast<std::uint32_t>(small_at + 2 + 2 * 12 + 4);
  const std::vector<ExifEntry> small{w.dword(0x0201, thumbnail_at),
                                     w.dword(0x0202, static_cast<std::uint32_t>(camera_thumbnail.size()))};
  return w.block(w.directory(picture, 8, static_cast<std::uint32_t>(small_at)) +
                 w.directory(camera, camera_at) + w.directory(small, small_at) +
                 std::string(camera_thumbnail));
}

/// A section of a JPEG file: marker, length, data.
inline std::string jpeg_section(unsigned marker, const std::string &data) {
  return "\xFF"s + static_cast<char>(marker) + ExifWriter{true}.u16(static_cast<unsigned>(data.size() + 2)) +
         data;
}

/// A frame of 3 components, or of one.
inline std::string jpeg_frame(unsigned width, unsigned height, bool color = true, unsigned marker = 0xC0) {
  const ExifWriter w{true};
  return jpeg_section(marker, "\x08" + w.u16(height) + w.u16(width) +
                                  (color ? "\x03\x01\x22\0\x02\x11\x01\x03\x11\x01"s : "\x01\x01\x11\0"s));
}

inline std::string jpeg_scan() {
  return jpeg_section(0xDA, "\x03\x01\0\x02\x11\x03\x11\0\x3F\0"s) + "\x12\x34";
}

inline std::string jpeg_head(const std::string &sections) {
  return "\xFF\xD8" + sections + jpeg_scan();
}

/// A whole head around an EXIF block.
inline std::string photograph(const std::string &block) {
  return jpeg_head(jpeg_section(0xE1, block) + jpeg_section(0xDB, std::string(65, '\x10')) +
                   jpeg_frame(3000, 2000));
}

}  // namespace support
