#pragma once
// The image file directories of an EXIF block (EXIF 2.3, TIFF 6.0): which tags go into which fields of the
// record. Every offset, count and length of the block is compared with its end before it is used.

#include "tool/imaging/exif_record.h"
#include "tool/imaging/exif_values.h"

namespace imaging {

using WritableBytes = std::span<unsigned char>;

/// What reading leaves beside the record.
struct ExifState {
  ByteOrder order = ByteOrder::little;
  int image_width = 0;  ///< the larger of the pixel-dimension tags seen, pixels
  const char *message =
      nullptr;  ///< of the last fault; a block with an undefined rotation is read to its end
};

/// Directories that one block may have read, nested ones and repetitions counted; cameras write up to five.
inline constexpr std::size_t max_exif_directories = 100;

/// Reads a block, from "Exif" on. The flash, the comment and the image width are cleared first; `record`
/// keeps what was read before a fault. False, with the message: the block is not read whole.
bool read_exif_block(WritableBytes block, tag_ExifInfo &record, ExifState &state);

/// Reads the directory at an offset from the TIFF header, where `tiff` begins, and everything it links to.
/// `furthest`: the end of the furthest value that an entry refers to, not lowered.
bool read_exif_directory(WritableBytes tiff, std::size_t offset, tag_ExifInfo &record, ExifState &state,
                         std::size_t &furthest);

}  // namespace imaging
