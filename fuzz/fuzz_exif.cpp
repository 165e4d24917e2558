// Any bytes as a photograph's file, and as an EXIF block alone.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include "tool/imaging/CExif.h"
#include "tool/imaging/exif_directories.h"

namespace {

void demand(bool holds) {
  if (!holds) std::abort();
}

template <std::size_t size>
bool ends(const char (&text)[size]) {
  return std::find(text, text + size, '\0') != text + size;
}

void check(const tag_ExifInfo &info) {
  demand(ends(info.Version) && ends(info.CameraMake) && ends(info.CameraModel) && ends(info.DateTime) &&
         ends(info.Comments));
  demand(info.Orientation >= 0 && info.Orientation <= 8);
  unsigned sum = 0;
  for (int i = 0; info.ThumbnailPointer && i < info.ThumbnailSize; ++i) sum += info.ThumbnailPointer[i];
  volatile unsigned sink = sum;  // every byte of the thumbnail can be read
  static_cast<void>(sink);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  if (size == 0) return 0;
  std::vector<unsigned char> bytes(data, data + size);
  const std::unique_ptr<std::FILE, int (*)(std::FILE *)> stream(fmemopen(bytes.data(), size, "rb"),
                                                                std::fclose);
  CExif exif;
  static_cast<void>(exif.DecodeExif(stream.get()));
  demand(exif.m_nSectionsRead >= 0 && exif.m_nSectionsRead <= CExif::max_sections);
  check(*exif.m_pInfo);
  tag_ExifInfo info{};
  imaging::ExifState state;
  demand(imaging::read_exif_block(bytes, info, state) || state.message);
  check(info);
  return 0;
}
