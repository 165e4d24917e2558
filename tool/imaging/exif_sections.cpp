#include "tool/imaging/exif_sections.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace imaging {
namespace {

constexpr int fill_byte = 0xFF;
constexpr int most_fill_bytes = 6;

constexpr char too_much_padding[] = "too many padding unsigned chars!";
constexpr char invalid_marker[] = "invalid marker";
constexpr char no_memory[] = "Could not allocate memory";
constexpr char premature_end[] = "Premature end of file?";

/// The marker behind its fill bytes, which must not be as many as `most_fill_bytes` + 1.
const char *read_marker(std::FILE *stream, int &marker) {
  for (int i = 0; i <= most_fill_bytes; ++i) {
    marker = std::getc(stream);
    if (marker == EOF) return premature_end;
    if (marker != fill_byte) return nullptr;
  }
  return too_much_padding;
}

std::shared_ptr<unsigned char[]> allocate(std::size_t size) {
  try {
    return std::make_shared<unsigned char[]>(size);
  } catch (const std::bad_alloc &) {
    return nullptr;
  }
}

bool is_frame(int marker) {
  // C4, C8 and CC: Huffman tables, reserved, arithmetic coding conditions
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

}  // namespace

bool starts_jpeg(std::FILE *stream) {
  return std::getc(stream) == 0xFF && std::getc(stream) == 0xD8;
}

const char *read_section(std::FILE *stream, JpegSection &section) {
  if (const char *fault = read_marker(stream, section.marker)) return fault;
  const int high = std::getc(stream);
  const int low = std::getc(stream);
  if (high == EOF || low == EOF) return premature_end;
  section.size = high << 8 | low;
  if (section.size < 2) return invalid_marker;
  const auto size = static_cast<std::size_t>(section.size);
  section.bytes = allocate(size + section_slack);
  if (!section.bytes) return no_memory;
  section.bytes[0] = static_cast<unsigned char>(high);
  section.bytes[1] = static_cast<unsigned char>(low);
  return std::fread(section.bytes.get() + 2, 1, size - 2, stream) == size - 2 ? nullptr : premature_end;
}

SectionKind kind_of(const JpegSection &section) {
  switch (section.marker) {
    case 0xDA:
      return SectionKind::scan;
    case 0xD9:
      return SectionKind::end_of_image;
    case 0xFE:
      return SectionKind::comment;
    case 0xE0:
      return SectionKind::foreign;
    case 0xE1:
      return section.size >= 6 && std::memcmp(section.bytes.get() + 2, "Exif", 4) == 0 ? SectionKind::exif
                                                                                       : SectionKind::foreign;
    default:
      return is_frame(section.marker) ? SectionKind::frame : SectionKind::other;
  }
}

void take_frame(Bytes section, int marker, tag_ExifInfo &record) {
  record.Height = read16(section, 3, ByteOrder::big);
  record.Width = read16(section, 5, ByteOrder::big);
  record.IsColor = section.size() > 7 && section[7] == 3 ? 1 : 0;
  record.Process = marker;
}

void take_comment(Bytes section, tag_ExifInfo &record) {
  const std::size_t end = std::min(section.size(), sizeof record.Comments);
  std::size_t length = 0;
  for (std::size_t i = 2; i < end; ++i) {
    const unsigned char c = section[i];
    if (c == '\r' && i + 1 < section.size() && section[i + 1] == '\n') continue;
    const bool control = c < 32 && c != '\n' && c != '\t';
    record.Comments[length++] = control ? '?' : static_cast<char>(c);
  }
  record.Comments[length] = '\0';
}

}  // namespace imaging
