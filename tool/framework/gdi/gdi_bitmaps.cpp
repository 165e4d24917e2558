#include <cstring>

#include "tool/framework/gdi/gdi_objects.h"
#include "tool/framework/gdi/object_data.h"

using namespace framework;

namespace {

BOOL renew(CBitmap &object, Picture picture, int bits_per_pixel) {
  object.DeleteObject();
  if (picture.empty()) return FALSE;
  auto data = std::make_shared<BitmapData>(BitmapData{std::move(picture), bits_per_pixel});
  return object.Attach(HandleTable::instance().insert(std::move(data)));
}

std::uint32_t pixel_of(const unsigned char *row, int x, UINT bits_per_pixel) {
  const auto grey = [](unsigned value) { return 0xFF000000U | value << 16 | value << 8 | value; };
  if (bits_per_pixel == 1) return grey(row[x / 8] >> (7 - x % 8) & 1 ? 0xFF : 0);
  if (bits_per_pixel == 8) return grey(row[x]);
  const unsigned char *bytes = row + static_cast<std::ptrdiff_t>(x) * (bits_per_pixel / 8);
  return 0xFF000000U | static_cast<unsigned>(bytes[2]) << 16 | static_cast<unsigned>(bytes[1]) << 8 |
         bytes[0];
}

}  // namespace

BOOL CBitmap::CreateCompatibleBitmap(CDC *, int width, int height) {
  return renew(*this, Picture(width, height, 0), 32);
}

BOOL CBitmap::CreateBitmap(int width, int height, UINT planes, UINT bits_per_pixel, const void *bits) {
  const bool known =
      bits_per_pixel == 1 || bits_per_pixel == 8 || bits_per_pixel == 24 || bits_per_pixel == 32;
  if (planes != 1 || !known) return FALSE;
  Picture picture(width, height, 0);
  const std::size_t row_bytes = (static_cast<std::size_t>(picture.width()) * bits_per_pixel + 15) / 16 * 2;
  for (int y = 0; bits && y < picture.height(); ++y) {
    const auto *row = static_cast<const unsigned char *>(bits) + static_cast<std::size_t>(y) * row_bytes;
    for (int x = 0; x < picture.width(); ++x) picture.span().row(y)[x] = pixel_of(row, x, bits_per_pixel);
  }
  return renew(*this, std::move(picture), static_cast<int>(bits_per_pixel));
}

int CBitmap::GetBitmap(BITMAP *bitmap) const {
  return GetObject(sizeof(BITMAP), bitmap);
}

CSize CBitmap::GetBitmapSize() const {
  BITMAP bitmap{};
  return GetBitmap(&bitmap) ? CSize(bitmap.bmWidth, bitmap.bmHeight) : CSize();
}

CBitmap *CBitmap::FromHandle(HBITMAP bitmap) {
  return dynamic_cast<CBitmap *>(CGdiObject::FromHandle(bitmap));
}
