// A trace store and a structure spline record of any bytes: moved, turned and drawn without a step outside
// them.

#include <algorithm>
#include <cstdint>
#include <vector>

#include "tool/api/CCalcTool.h"
#include "tool/framework/gdi/recording_device.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  constexpr std::size_t entry_size = 2000;
  // Exactly as large as the formats say, on the heap, so that the sanitizer guards both ends.
  std::vector<std::uint8_t> store(20 * entry_size), splines(6672);
  std::copy_n(data, std::min(size, store.size()), store.begin());
  // Short inputs reach the spline record too.
  const std::size_t skipped = std::min(size, entry_size);
  std::copy_n(data + skipped, std::min(size - skipped, splines.size()), splines.begin());
  framework::RecordingDevice device;
  CDC dc(device);
  const tagDPOINT base{10.5, 20.5};
  tagPOINTLAT rec{};
  CCalcTool::MoveFreelineTrace(store.data(), 30000, -30000);
  CCalcTool::MoveAndTransFreelineTrace(store.data(), -7, 9, {1e5, -1e5}, 77.0, 1.0);
  CCalcTool::DrawFreelineTrace(&dc, {}, 1.5, {5, 6}, store.data(), 33.0, 1, 0, 0, 1, 0);
  CCalcTool::Set_Trace(&dc, 1, 2, 1.5, 0, 0, &base, 3, 4, 0.5, 0, 2.0, 12.0, 0, 0, -1, 1, &rec, store.data(),
                       splines.data(), -1);
  CCalcTool::Draw_U1(&dc, 0, 0, 0, 0, &base, 0, 0, CPoint(1, 2), CPoint(3, 40), CPoint(5, 6), CPoint(7, 80),
                     1, 0, 1, 1, 0, 0, 0, 1, 0, 1, 0, &rec, splines.data(), store.data(), 0);
  CCalcTool::ConvSPPO_1to2(splines.data(), store.data());
  return 0;
}
