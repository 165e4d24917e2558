#pragma once
// The sections of a JPEG head (ITU-T T.81, annex B): marker, big-endian length that counts its own two bytes,
// data.

#include <cstdio>
#include <memory>

#include "tool/imaging/exif_directories.h"

namespace imaging {

/// A section's bytes from its length field on, shared by all copies.
struct JpegSection {
  std::shared_ptr<unsigned char[]> bytes;  ///< `size` bytes, and `section_slack` zero bytes behind them
  int marker = 0;
  int size = 0;

  WritableBytes span() const { return {bytes.get(), static_cast<std::size_t>(size)}; }
  /// The data behind the length field, as many bytes as the length says: the last two are slack.
  WritableBytes counted_data() const { return {bytes.get() + 2, static_cast<std::size_t>(size)}; }
};

/// The length of an EXIF block is taken from the length field, which counts two bytes more than the data has.
/// Zero bytes stand in for them, so that nothing is read or pointed at behind the section.
inline constexpr std::size_t section_slack = 2;

enum class SectionKind {
  scan,          ///< the compressed data begin
  end_of_image,  ///< there are none
  comment,
  exif,
  foreign,  ///< an application's own data
  frame,    ///< size and components of the picture
  other,
};

/// Whether the stream goes on with the two bytes every JPEG file starts with.
bool starts_jpeg(std::FILE *stream);

/// Reads the next section. Null, or the message of the fault.
const char *read_section(std::FILE *stream, JpegSection &section);

SectionKind kind_of(const JpegSection &section);

/// Height, width, components and process of a frame section; what a short section lacks is 0.
void take_frame(Bytes section, int marker, tag_ExifInfo &record);

/// The text of a comment section, at most 998 bytes: CR LF becomes LF, other control characters but LF and
/// tab become '?'.
void take_comment(Bytes section, tag_ExifInfo &record);

}  // namespace imaging
