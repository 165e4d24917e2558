#include "tool/imaging/CExif.h"

#include "tool/framework/text/copy_text.h"
#include "tool/imaging/exif_directories.h"
#include "tool/imaging/exif_sections.h"

namespace {

using imaging::ByteOrder;
using imaging::Bytes;
using imaging::SectionKind;

constexpr char too_many_sections[] = "Too many sections in jpg file";
constexpr char no_image[] = "No image in jpeg!";

Bytes bytes_at(const void *place, std::size_t count) {
  return {static_cast<const unsigned char *>(place), count};
}

ByteOrder order_of(int motorola) {
  return motorola != 0 ? ByteOrder::big : ByteOrder::little;
}

}  // namespace

CExif::CExif(tag_ExifInfo *info) : m_pInfo(info), m_bOwnInfo(info == nullptr) {
  if (info) return;
  m_ownInfo = std::make_shared<tag_ExifInfo>();
  m_pInfo = m_ownInfo.get();
}

bool CExif::Fail(const char *message) {
  framework::copy_text(message, m_szLastError, sizeof m_szLastError);
  return false;
}

void CExif::Keep(const imaging::JpegSection &section) {
  m_Sections[m_nSectionsRead++] = {section.bytes.get(), section.marker, section.size};
  m_buffers.push_back(section.bytes);
}

void CExif::Accept(const imaging::ExifState &state) {
  m_bMotorolaOrder = state.order == ByteOrder::big ? 1 : 0;
  m_nExifImageWidth = state.image_width;
  if (state.message) Fail(state.message);
}

bool CExif::DecodeExif(std::FILE *stream) {
  if (!stream || !imaging::starts_jpeg(stream)) return false;
  if (m_nSectionsRead >= max_sections) return Fail(too_many_sections);
  m_pInfo->IsExif = false;
  bool comment_seen = false;
  while (true) {
    imaging::JpegSection section;
    if (const char *fault = imaging::read_section(stream, section)) return Fail(fault);
    const SectionKind kind = imaging::kind_of(section);
    const bool comment = kind == SectionKind::comment;
    if (kind == SectionKind::foreign || (comment && comment_seen)) continue;
    comment_seen = comment_seen || comment;
    Keep(section);
    if (kind == SectionKind::scan) return true;
    if (kind == SectionKind::end_of_image) return Fail(no_image);
    if (comment) process_COM(section.bytes.get(), section.size);
    if (kind == SectionKind::frame) process_SOFn(section.bytes.get(), section.marker);
    if (kind == SectionKind::exif) {
      const imaging::WritableBytes data = section.counted_data();
      m_pInfo->IsExif = process_EXIF(data.data(), static_cast<unsigned>(data.size()));
    }
    if (m_nSectionsRead == max_sections) return Fail(too_many_sections);
  }
}

int CExif::Get16m(const void *bytes) {
  return imaging::read16(bytes_at(bytes, 2), 0, ByteOrder::big);
}

int CExif::Get16u(const void *bytes) const {
  return imaging::read16(bytes_at(bytes, 2), 0, order_of(m_bMotorolaOrder));
}

int CExif::Get32s(const void *bytes) const {
  return static_cast<int>(Get32u(bytes));
}

unsigned CExif::Get32u(const void *bytes) const {
  return imaging::read32(bytes_at(bytes, 4), 0, order_of(m_bMotorolaOrder));
}

double CExif::ConvertAnyFormat(const void *value, int format) const {
  const auto code = static_cast<unsigned>(format);
  return imaging::exif_number(bytes_at(value, imaging::component_size(code)), code,
                              order_of(m_bMotorolaOrder));
}

void CExif::process_SOFn(const unsigned char *section, int marker) {
  imaging::take_frame(bytes_at(section, static_cast<std::size_t>(Get16m(section))), marker, *m_pInfo);
}

void CExif::process_COM(const unsigned char *section, int length) {
  imaging::take_comment(bytes_at(section, length > 0 ? static_cast<std::size_t>(length) : 0), *m_pInfo);
}

bool CExif::process_EXIF(unsigned char *data, unsigned length) {
  imaging::ExifState state{order_of(m_bMotorolaOrder), m_nExifImageWidth};
  const bool good = imaging::read_exif_block({data, length}, *m_pInfo, state);
  Accept(state);
  return good;
}

bool CExif::ProcessExifDir(unsigned char *directory, unsigned char *base, unsigned length,
                           unsigned char **furthest) {
  imaging::ExifState state{order_of(m_bMotorolaOrder), m_nExifImageWidth};
  std::size_t end = furthest && *furthest ? static_cast<std::size_t>(*furthest - base) : 0;
  const bool good = imaging::read_exif_directory({base, length}, static_cast<std::size_t>(directory - base),
                                                 *m_pInfo, state, end);
  if (furthest) *furthest = base + end;
  Accept(state);
  return good;
}
