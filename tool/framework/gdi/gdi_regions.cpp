// CRgn.

#include "tool/framework/gdi/gdi_objects.h"
#include "tool/framework/gdi/object_data.h"

using namespace framework;

namespace {

std::shared_ptr<Region> region_of(const CRgn *region) {
  if (!region) return nullptr;
  return HandleTable::instance().get<std::shared_ptr<Region>>(region->m_hObject).value_or(nullptr);
}

BOOL renew(CGdiObject &object, HandleEntry entry) {
  object.DeleteObject();
  return object.Attach(HandleTable::instance().insert(std::move(entry)));
}

}  // namespace

// Regions
// ------------------------------------------------------------------------------------------------------------
BOOL CRgn::CreateRectRgn(int left, int top, int right, int bottom) {
  return renew(*this, std::make_shared<Region>(Region::rectangle({left, top, right, bottom})));
}

BOOL CRgn::CreateEllipticRgn(int left, int top, int right, int bottom) {
  return renew(*this, std::make_shared<Region>(Region::ellipse({left, top, right, bottom})));
}

BOOL CRgn::CreatePolygonRgn(const POINT *points, int count, int mode) {
  if (!points || count < 2 || (mode != ALTERNATE && mode != WINDING)) return FALSE;
  const FillRule rule = mode == WINDING ? FillRule::winding : FillRule::alternate;
  return renew(*this,
               std::make_shared<Region>(Region::polygon({points, static_cast<std::size_t>(count)}, rule)));
}

// The region behind the handle changes.
// NOLINTNEXTLINE(readability-make-member-function-const)
int CRgn::CombineRgn(const CRgn *a, const CRgn *b, int operation) {
  const auto target = region_of(this), first = region_of(a), second = region_of(b);
  if (!target || !first || (!second && operation != RGN_COPY)) return ERROR_REGION;
  if (operation < RGN_AND || operation > RGN_COPY) return ERROR_REGION;
  *target = Region::combined(*first, second ? *second : Region(), operation);
  return region_complexity(*target);
}

// NOLINTNEXTLINE(readability-make-member-function-const)
int CRgn::OffsetRgn(int dx, int dy) {
  const auto region = region_of(this);
  if (!region) return ERROR_REGION;
  region->offset(dx, dy);
  return region_complexity(*region);
}

BOOL CRgn::PtInRegion(int x, int y) const {
  const auto region = region_of(this);
  return region && region->contains({x, y});
}

int CRgn::GetRgnBox(RECT *box) const {
  const auto region = region_of(this);
  if (!region || !box) return ERROR_REGION;
  *box = region->bounds();
  return region_complexity(*region);
}

CRgn *CRgn::FromHandle(HRGN region) {
  return dynamic_cast<CRgn *>(CGdiObject::FromHandle(region));
}
