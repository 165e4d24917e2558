#include "tool/framework/gdi/CDC.h"

#include "tool/framework/gdi/context_calls.h"
#include "tool/framework/gdi/raw_drawing.h"

using framework::DeviceCapabilities;
using framework::DeviceContext;
using framework::HandleTable;

namespace {

int rounded(double value) {
  return framework::round_within(value, framework::max_device_coordinate);
}

}  // namespace

CDC::CDC(framework::DrawingDevice &device) {
  Attach(static_cast<HDC>(HandleTable::instance().insert(std::make_shared<DeviceContext>(&device))));
}

CDC::~CDC() {
  if (owned_) ::DeleteDC(owned_);
}

DeviceContext &CDC::Cached::look_up(HDC wanted) {
  if (context && handle == wanted && context->is_open()) return *context;
  handle = wanted;
  context = framework::find_context(wanted);
  if (!context) context = std::make_shared<DeviceContext>();
  return *context;
}

DeviceContext &CDC::attributes() const {
  return m_hAttribDC && m_hAttribDC != m_hDC ? attributes_.look_up(m_hAttribDC) : context();
}

// Handles
// ------------------------------------------------------------------------------------------------------------
BOOL CDC::CreateCompatibleDC(const CDC *like) {
  if (m_hDC) return FALSE;
  const HDC created = ::CreateCompatibleDC(like ? like->m_hDC : nullptr);
  return Attach(created);
}

BOOL CDC::Attach(HDC handle) {
  const std::shared_ptr<DeviceContext> found = framework::find_context(handle);
  if (m_hDC || owned_ || !found) return FALSE;
  if (!found->owner) found->owner = this;
  owned_ = m_hDC = m_hAttribDC = handle;
  return TRUE;
}

HDC CDC::Detach() {
  if (owned_ == m_hDC) {  // else another handle was put in its place, and the owned one stays ours
    const std::shared_ptr<DeviceContext> found = framework::find_context(owned_);
    if (found && found->owner == this) found->owner = nullptr;
    owned_ = nullptr;
  }
  m_hAttribDC = nullptr;
  return std::exchange(m_hDC, nullptr);
}

BOOL CDC::DeleteDC() {
  return ::DeleteDC(Detach());
}

CDC *CDC::FromHandle(HDC handle) {
  const std::shared_ptr<DeviceContext> found = framework::find_context(handle);
  if (!found) return nullptr;
  if (found->owner) return found->owner;
  if (!found->wrapper) {
    found->wrapper = std::make_unique<CDC>();
    found->wrapper->m_hDC = found->wrapper->m_hAttribDC = handle;
  }
  return found->wrapper.get();
}

// The device
// ------------------------------------------------------------------------------------------------------------
BOOL CDC::IsPrinting() const {
  return attributes().capabilities().printer;
}

int CDC::GetDeviceCaps(int index) const {
  const DeviceCapabilities device = attributes().capabilities();
  switch (index) {
    case TECHNOLOGY:
      return device.printer ? DT_RASPRINTER : DT_RASDISPLAY;
    case HORZSIZE:
      return rounded(device.width / device.pixels_per_mm_x);
    case VERTSIZE:
      return rounded(device.height / device.pixels_per_mm_y);
    case HORZRES:
      return device.width;
    case VERTRES:
      return device.height;
    case BITSPIXEL:
      return 32;
    case LOGPIXELSX:
      return rounded(device.pixels_per_mm_x * 25.4);
    case LOGPIXELSY:
      return rounded(device.pixels_per_mm_y * 25.4);
    default:
      return 0;
  }
}

int CDC::SaveDC() {
  return change_both([](DeviceContext &dc) { return dc.save(); });
}

BOOL CDC::RestoreDC(int saved) {
  return change_both([saved](DeviceContext &dc) { return dc.restore(saved); });
}

// Documents
// ------------------------------------------------------------------------------------------------------------
int CDC::StartDoc(const DOCINFOA *document) {
  framework::DrawingDevice *device = context().device();
  const char *name = document && document->lpszDocName ? document->lpszDocName : "";
  return !device || device->begin_document(name) ? 1 : -1;
}

int CDC::StartPage() {
  framework::DrawingDevice *device = context().device();
  return !device || device->begin_page() ? 1 : -1;
}

int CDC::EndPage() {
  framework::DrawingDevice *device = context().device();
  return !device || device->end_page() ? 1 : -1;
}

int CDC::EndDoc() {
  framework::DrawingDevice *device = context().device();
  return !device || device->end_document() ? 1 : -1;
}
