#pragma once
// Reads the head of a JPEG photograph: size, comment, camera data.

#include <cstdio>
#include <memory>
#include <vector>

#include "tool/imaging/exif_record.h"

namespace imaging {
struct ExifState;
struct JpegSection;
}  // namespace imaging

class CExif {
 public:
  /// Fills `info`, which the caller has set to zero and which must outlive the reader; null: a record of the
  /// reader's own.
  explicit CExif(tag_ExifInfo *info = nullptr);
  CExif(const CExif &) = default;
  ~CExif() = default;
  /// Copies share the sections read so far and an own record; the last of them frees both.
  CExif &operator=(const CExif &) = default;

  /// Reads a stream from the file's start up to the compressed data. False: `m_szLastError` tells why, and is
  /// empty for what is no JPEG file. Camera data that cannot be read only leave `IsExif` false.
  bool DecodeExif(std::FILE *stream);

  struct Section {
    unsigned char *Data;  ///< from the length field on
    int Type;             ///< marker
    int Size;             ///< bytes, the length field counted
  };
  static constexpr int max_sections = 20;

  tag_ExifInfo *m_pInfo;
  char m_szLastError[256] = "";        ///< of the last failure
  int m_nExifImageWidth = 0;           ///< the larger of the pixel-dimension tags seen
  int m_bMotorolaOrder = 0;            ///< 1: the EXIF data are big-endian
  Section m_Sections[max_sections]{};  ///< the sections read and kept
  int m_nSectionsRead = 0;             ///< how many they are
  bool m_bOwnInfo;                     ///< the record is the reader's own

 protected:
  static int Get16m(const void *bytes);
  int Get16u(const void *bytes) const;
  int Get32s(const void *bytes) const;
  unsigned Get32u(const void *bytes) const;
  /// The value of a format 1 to 12 at `value`, which has that format's bytes; other formats give 0.
  double ConvertAnyFormat(const void *value, int format) const;

  void process_SOFn(const unsigned char *section, int marker);
  void process_COM(const unsigned char *section, int length);
  /// `data`: `length` bytes from "Exif" on.
  bool process_EXIF(unsigned char *data, unsigned length);
  /// The directory at `directory`, within the `length` bytes from the TIFF header `base` on. `furthest` is
  /// moved to the end of the furthest value referred to.
  bool ProcessExifDir(unsigned char *directory, unsigned char *base, unsigned length,
                      unsigned char **furthest);

 private:
  bool Fail(const char *message);
  void Keep(const imaging::JpegSection &section);
  void Accept(const imaging::ExifState &state);

  std::vector<std::shared_ptr<unsigned char[]>> m_buffers;  ///< of m_Sections
  std::shared_ptr<tag_ExifInfo> m_ownInfo;
};
