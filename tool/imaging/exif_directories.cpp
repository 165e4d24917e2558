#include "tool/imaging/exif_directories.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <string_view>

#include "tool/framework/text/numbers.h"

namespace imaging {
namespace {

constexpr std::size_t entry_size = 12;
constexpr std::size_t tiff_header = 6;             // behind "Exif" and two zero bytes
constexpr std::size_t first_directory = 8;         // from the TIFF header, whatever small offset is written
constexpr std::size_t longest_user_comment = 199;  // bytes

constexpr char incorrect_header[] = "Incorrect Exif header";
constexpr char invalid_alignment[] = "Invalid Exif alignment marker.";
constexpr char invalid_start[] = "Invalid Exif start (1)";
constexpr char suspicious_offset[] = "Suspicious offset of first IFD value";
constexpr char illegal_size[] = "Illegally sized directory";
constexpr char illegal_format[] = "Illegal format code in EXIF dir";
constexpr char illegal_pointer[] = "Illegal pointer offset value in EXIF.";
constexpr char illegal_link[] = "Illegal subdirectory link";
constexpr char undefined_rotation[] = "Undefined rotation value";

struct FloatTag {
  unsigned tag;
  float tag_ExifInfo::*field;
};
constexpr FloatTag float_tags[] = {
    {0x011A, &tag_ExifInfo::Xresolution},    {0x011B, &tag_ExifInfo::Yresolution},
    {0x829A, &tag_ExifInfo::ExposureTime},   {0x829D, &tag_ExifInfo::ApertureFNumber},
    {0x9203, &tag_ExifInfo::Brightness},     {0x9204, &tag_ExifInfo::ExposureBias},
    {0x9206, &tag_ExifInfo::Distance},       {0x920A, &tag_ExifInfo::FocalLength},
    {0xA20E, &tag_ExifInfo::FocalplaneXRes}, {0xA20F, &tag_ExifInfo::FocalplaneYRes},
};

struct IntegerTag {
  unsigned tag;
  int tag_ExifInfo::*field;
};
constexpr IntegerTag integer_tags[] = {
    {0x8822, &tag_ExifInfo::ExposureProgram},
    {0x9102, &tag_ExifInfo::CompressionLevel},
    {0x9207, &tag_ExifInfo::MeteringMode},
    {0x9208, &tag_ExifInfo::LightSource},
};

/// Numbers beyond the range of float become infinite.
float to_float(double value) {
  if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max()))
    return std::copysign(std::numeric_limits<float>::infinity(), value < 0 ? -1.0F : 1.0F);
  return static_cast<float>(value);
}

/// Offsets and lengths of files; what is no such number counts as 0, not stated.
std::uint32_t to_offset(double value) {
  return value >= 0.0 && value <= std::numeric_limits<std::uint32_t>::max()
             ? static_cast<std::uint32_t>(value)
             : 0;
}

std::string_view up_to_zero(Bytes bytes) {
  const std::string_view all(reinterpret_cast<const char *>(bytes.data()), bytes.size());
  return all.substr(0, all.find('\0'));
}

/// The bytes up to a zero, at most `longest`; the rest of the field is cleared.
void store_text(std::span<char> field, Bytes bytes, std::size_t longest) {
  const std::string_view text = up_to_zero(bytes).substr(0, longest);
  std::fill(std::copy(text.begin(), text.end(), field.begin()), field.end(), '\0');
}

/// A text behind the eight bytes of its character code; sloppy writers leave the code out or pad it with
/// blanks.
void store_user_comment(tag_ExifInfo &record, Bytes bytes) {
  while (!bytes.empty() && bytes.back() == ' ') bytes = bytes.first(bytes.size() - 1);
  constexpr std::string_view ascii = "ASCII";
  if (bytes.size() < ascii.size() || std::memcmp(bytes.data(), ascii.data(), ascii.size()) != 0)
    return store_text(record.Comments, bytes, longest_user_comment);
  for (std::size_t i = ascii.size(); i <= 9 && i < bytes.size(); ++i)
    if (bytes[i] != 0 && bytes[i] != ' ')
      return store_text(record.Comments, bytes.subspan(i), longest_user_comment);
}

void store_unit(float &inches, int code) {
  constexpr std::array<float, 6> units{0.0F, 1.0F, 1.0F, 1.0F / 2.54F, 0.1F / 2.54F, 0.0001F / 2.54F};
  if (code >= 1 && code <= 5) inches = units[static_cast<std::size_t>(code)];
}

struct Entry {
  unsigned tag;
  unsigned format;
  Bytes value;  ///< where the value lies: at least its four bytes in the entry
  Bytes text;   ///< as many bytes as its components have
};

struct Thumbnail {
  std::uint32_t offset = 0;
  std::uint32_t length = 0;
};

/// Reads directories into a record.
class DirectoryWalk {
 public:
  DirectoryWalk(WritableBytes tiff, tag_ExifInfo &record, ExifState &state, std::size_t &furthest)
      : tiff_(tiff), record_(record), state_(state), furthest_(furthest) {}

  bool read(std::size_t offset);

 private:
  bool fail(const char *message) {
    state_.message = message;
    return false;
  }
  bool follow(std::size_t offset);
  bool read_opened(std::size_t offset);
  bool locate(std::size_t offset, Entry &entry);
  bool take(const Entry &entry, Thumbnail &thumbnail);
  bool store_table_tag(const Entry &entry, double number) const;
  void store_special_tag(const Entry &entry, double number);
  void store_rotation(int rotation);
  void keep(const Thumbnail &thumbnail);

  WritableBytes tiff_;
  tag_ExifInfo &record_;
  ExifState &state_;
  std::size_t &furthest_;
  std::array<std::size_t, max_exif_directories> open_{};  ///< offsets of the directories being read
  std::size_t open_count_ = 0;
  std::size_t read_count_ = 0;
};

/// A link must point inside the block and to no directory that is being read: circles would not end, and
/// directories that share their parts could multiply without limit.
bool DirectoryWalk::follow(std::size_t offset) {
  const auto open_end = open_.begin() + static_cast<std::ptrdiff_t>(open_count_);
  const bool circular = std::find(open_.begin(), open_end, offset) != open_end;
  if (offset >= tiff_.size() || circular || read_count_ == max_exif_directories) return fail(illegal_link);
  return read(offset);
}

bool DirectoryWalk::read(std::size_t offset) {
  open_[open_count_++] = offset;
  ++read_count_;
  const bool good = read_opened(offset);
  --open_count_;
  return good;
}

bool DirectoryWalk::read_opened(std::size_t offset) {
  if (offset > tiff_.size() || tiff_.size() - offset < 2) return fail(illegal_size);
  const std::size_t count = read16(tiff_, offset, state_.order);
  const std::size_t end = offset + 2 + entry_size * count;
  if (end > tiff_.size()) return fail(illegal_size);
  Thumbnail thumbnail;
  for (std::size_t at = offset + 2; at < end; at += entry_size) {
    Entry entry{};
    if (!locate(at, entry) || !take(entry, thumbnail)) return false;
  }
  const std::uint32_t next = read32(tiff_, end, state_.order);  // 0 where the block ends without a link
  if (next != 0 && !follow(next)) return false;
  keep(thumbnail);
  return true;
}

bool DirectoryWalk::locate(std::size_t offset, Entry &entry) {
  entry.tag = read16(tiff_, offset, state_.order);
  entry.format = read16(tiff_, offset + 2, state_.order);
  if (component_size(entry.format) == 0) return fail(illegal_format);
  const std::uint64_t size =
      std::uint64_t{read32(tiff_, offset + 4, state_.order)} * component_size(entry.format);
  if (size <= 4) {
    entry.value = tiff_.subspan(offset + 8, 4);
    entry.text = entry.value.first(static_cast<std::size_t>(size));
    return true;
  }
  const std::uint64_t start = read32(tiff_, offset + 8, state_.order);
  if (start + size > tiff_.size()) return fail(illegal_pointer);
  entry.value = entry.text = tiff_.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(size));
  furthest_ = std::max(furthest_, static_cast<std::size_t>(start + size));
  return true;
}

bool DirectoryWalk::take(const Entry &entry, Thumbnail &thumbnail) {
  const double number = exif_number(entry.value, entry.format, state_.order);
  switch (entry.tag) {
    case 0x8769:  // EXIF sub-directory
    case 0xA005:  // interoperability sub-directory
      return follow(read32(entry.value, 0, state_.order));
    case 0x0201:
      thumbnail.offset = to_offset(number);
      return true;
    case 0x0202:
      thumbnail.length = to_offset(number);
      return true;
    default:
      if (!store_table_tag(entry, number)) store_special_tag(entry, number);
      return true;
  }
}

bool DirectoryWalk::store_table_tag(const Entry &entry, double number) const {
  for (const FloatTag &one : float_tags) {
    if (one.tag != entry.tag) continue;
    record_.*one.field = to_float(number);
    return true;
  }
  for (const IntegerTag &one : integer_tags) {
    if (one.tag != entry.tag) continue;
    record_.*one.field = framework::to_int(number);
    return true;
  }
  return false;
}

/// A walk through the tags that have rules of their own.
void DirectoryWalk::store_special_tag(const Entry &entry, double number) {
  switch (entry.tag) {
    case 0x010F:
      return store_text(record_.CameraMake, entry.text, sizeof record_.CameraMake - 1);
    case 0x0110:
      return store_text(record_.CameraModel, entry.text, sizeof record_.CameraModel - 1);
    case 0x9000:
      return store_text(record_.Version, entry.text, sizeof record_.Version - 1);
    case 0x9003:
      return store_text(record_.DateTime, entry.text, sizeof record_.DateTime - 1);
    case 0x9286:
      return store_user_comment(record_, entry.text);
    case 0x0112:
      return store_rotation(framework::to_int(number));
    case 0x0128:
      return store_unit(record_.ResolutionUnit, framework::to_int(number));
    case 0xA210:
      return store_unit(record_.FocalplaneUnits, framework::to_int(number));
    case 0x8827: {
      const int iso = framework::to_int(number);  // small numbers count steps of 200
      record_.ISOequivalent = iso < 50 ? framework::to_int(200.0 * iso) : iso;
      return;
    }
    case 0x9201:  // shutter speed, as a power of two
      if (record_.ExposureTime == 0.0F)
        record_.ExposureTime = to_float(1.0 / std::exp(number * std::numbers::ln2));
      return;
    case 0x9202:  // aperture and largest aperture, as powers of the square root of two
    case 0x9205:
      if (record_.ApertureFNumber == 0.0F)
        record_.ApertureFNumber = to_float(std::exp(number * std::numbers::ln2 * 0.5));
      return;
    case 0x9209:
      record_.FlashUsed = (framework::to_int(number) & 7) != 0 ? 1 : 0;
      return;
    case 0xA002:
    case 0xA003:
      state_.image_width = std::max(state_.image_width, framework::to_int(number));
      return;
    default:
      return;
  }
}

void DirectoryWalk::store_rotation(int rotation) {
  const bool defined = rotation >= 1 && rotation <= 8;
  record_.Orientation = defined ? rotation : 0;
  if (!defined) state_.message = undefined_rotation;
}

void DirectoryWalk::keep(const Thumbnail &thumbnail) {
  if (thumbnail.offset == 0 || thumbnail.length == 0) return;
  if (std::uint64_t{thumbnail.offset} + thumbnail.length > tiff_.size()) return;
  record_.ThumbnailPointer = tiff_.data() + thumbnail.offset;
  record_.ThumbnailSize = static_cast<int>(thumbnail.length);
}

/// The message of the first rule that the block's header breaks; null: none.
const char *header_fault(Bytes block, ByteOrder &order) {
  constexpr std::string_view start("Exif\0\0", 6);
  const auto holds = [&](std::size_t offset, std::string_view text) {
    return block.size() >= offset + text.size() &&
           std::memcmp(block.data() + offset, text.data(), text.size()) == 0;
  };
  if (!holds(0, start)) return incorrect_header;
  const bool little = holds(tiff_header, "II");
  if (!little && !holds(tiff_header, "MM")) return invalid_alignment;
  order = little ? ByteOrder::little : ByteOrder::big;
  if (read16(block, tiff_header + 2, order) != 42) return invalid_start;
  const std::uint32_t offset = read32(block, tiff_header + 4, order);
  return offset < 8 || offset > 16 ? suspicious_offset : nullptr;
}

}  // namespace

bool read_exif_directory(WritableBytes tiff, std::size_t offset, tag_ExifInfo &record, ExifState &state,
                         std::size_t &furthest) {
  return DirectoryWalk(tiff, record, state, furthest).read(offset);
}

bool read_exif_block(WritableBytes block, tag_ExifInfo &record, ExifState &state) {
  record.FlashUsed = 0;
  std::fill(std::begin(record.Comments), std::end(record.Comments), '\0');
  state.image_width = 0;
  if (const char *fault = header_fault(block, state.order)) {
    state.message = fault;
    return false;
  }
  std::size_t furthest = 0;
  if (!read_exif_directory(block.subspan(tiff_header), first_directory, record, state, furthest))
    return false;
  if (record.FocalplaneXRes != 0.0F)
    record.CCDWidth =
        to_float(static_cast<double>(state.image_width) * static_cast<double>(record.FocalplaneUnits) /
                 static_cast<double>(record.FocalplaneXRes));
  return true;
}

}  // namespace imaging
