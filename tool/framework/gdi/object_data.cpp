#include "tool/framework/gdi/object_data.h"

namespace framework {

bool is_drawing_object(const void *handle) {
  const std::size_t kind = HandleTable::instance().kind(handle);
  return kind >= HandleEntry(PenData()).index() && kind <= HandleEntry(std::shared_ptr<Region>()).index();
}

PenData standard_pen_data(int style, int width, COLORREF color) {
  PenData pen;
  pen.style = style >= PS_SOLID && style <= PS_INSIDEFRAME ? style : PS_SOLID;
  pen.width = width;
  pen.color = color;
  return pen;
}

int region_complexity(const Region &region) {
  if (region.kind() == Region::Kind::empty) return NULLREGION;
  return region.kind() == Region::Kind::rectangle ? SIMPLEREGION : COMPLEXREGION;
}

}  // namespace framework
