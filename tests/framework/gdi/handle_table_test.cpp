#include "tool/framework/gdi/handle_table.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <thread>

#include "tool/framework/gdi/CDC.h"
#include "tool/framework/gdi/gdi_objects.h"
#include "tool/framework/gdi/global_memory.h"
#include "tool/framework/gdi/raw_drawing.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using framework::HandleTable;
using framework::PenData;
using framework::RecordingDevice;

void *made_up(std::uintptr_t value) {
  return reinterpret_cast<void *>(value);
}

TEST(Handles, staleForeignAndMadeUpOnesNameNothing) {
  HandleTable &table = HandleTable::instance();
  const std::size_t before = table.size();
  const HPEN pen = CreatePen(PS_DOT, 3, RGB(9, 8, 7));
  EXPECT_EQ(table.get<PenData>(pen)->width, 3);
  EXPECT_FALSE(table.get<framework::BrushData>(pen));
  EXPECT_TRUE(DeleteObject(pen));
  EXPECT_FALSE(DeleteObject(pen));
  const HPEN next = CreatePen(PS_SOLID, 1, 0);  // takes the place of the first
  EXPECT_NE(next, pen);
  EXPECT_FALSE(table.get<PenData>(pen));
  EXPECT_TRUE(DeleteObject(next));
  for (const std::uintptr_t value :
       {std::uintptr_t{0}, std::uintptr_t{1}, std::uintptr_t{1} << 24, ~std::uintptr_t{0}}) {
    EXPECT_FALSE(DeleteObject(made_up(value)));
    EXPECT_FALSE(DeleteDC(static_cast<HDC>(made_up(value))));
    EXPECT_EQ(CGdiObject::FromHandle(made_up(value)), nullptr);
    EXPECT_EQ(CDC::FromHandle(static_cast<HDC>(made_up(value))), nullptr);
    EXPECT_EQ(GlobalLock(static_cast<HGLOBAL>(made_up(value))), nullptr);
    LOGPEN record;
    EXPECT_EQ(GetObject(made_up(value), sizeof record, &record), 0);
  }
  EXPECT_EQ(table.size(), before);
}

TEST(Handles, oneKindIsNotAnother) {
  RecordingDevice device;
  CDC dc(device);
  CPen pen(PS_SOLID, 1, COLORREF{0});
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 8);
  EXPECT_EQ(CBrush::FromHandle(static_cast<HBRUSH>(pen.m_hObject)), nullptr);
  EXPECT_FALSE(DeleteObject(dc.m_hDC));
  EXPECT_FALSE(DeleteObject(block));
  EXPECT_FALSE(DeleteDC(static_cast<HDC>(pen.m_hObject)));
  EXPECT_EQ(GlobalFree(static_cast<HGLOBAL>(pen.m_hObject)), static_cast<HGLOBAL>(pen.m_hObject));
  EXPECT_EQ(GlobalFree(block), nullptr);
  EXPECT_EQ(SelectObject(dc.m_hDC, dc.m_hDC), nullptr);
  CBitmap bitmap;
  bitmap.CreateCompatibleBitmap(&dc, 2, 2);
  EXPECT_EQ(dc.SelectObject(&bitmap), nullptr);  // no memory context
}

TEST(Handles, stockObjectsStay) {
  const HGDIOBJ black = GetStockObject(BLACK_PEN);
  EXPECT_FALSE(DeleteObject(black));
  EXPECT_EQ(GetStockObject(BLACK_PEN), black);
  EXPECT_EQ(GetStockObject(99), nullptr);
  EXPECT_EQ(GetStockObject(-1), nullptr);
  CGdiObject *wrapper = CGdiObject::FromHandle(black);
  {
    CPen pen;
    EXPECT_TRUE(pen.CreateStockObject(BLACK_PEN));
  }
  EXPECT_EQ(CGdiObject::FromHandle(black), wrapper);
  LOGBRUSH gray;
  ASSERT_EQ(GetObject(GetStockObject(GRAY_BRUSH), sizeof gray, &gray), static_cast<int>(sizeof gray));
  EXPECT_EQ(gray.lbColor, 0x808080u);
}

TEST(Handles, wrappersLiveAsLongAsTheirHandles) {
  const HPEN raw = CreatePen(PS_SOLID, 2, 0);
  CPen *wrapper = CPen::FromHandle(raw);
  ASSERT_NE(wrapper, nullptr);
  EXPECT_EQ(CPen::FromHandle(raw), wrapper);
  CPen owner;
  EXPECT_TRUE(owner.Attach(raw));
  EXPECT_FALSE(owner.Attach(raw));
  EXPECT_EQ(CPen::FromHandle(raw), &owner);
  EXPECT_EQ(owner.Detach(), raw);
  EXPECT_EQ(CPen::FromHandle(raw), wrapper);
  EXPECT_TRUE(wrapper->DeleteObject());
  EXPECT_EQ(CPen::FromHandle(raw), nullptr);
  EXPECT_FALSE(owner.Attach(raw));
}

TEST(Handles, objectsGiveTheirHandlesBack) {
  HandleTable &table = HandleTable::instance();
  const std::size_t before = table.size();
  {
    CPen pen(PS_SOLID, 1, COLORREF{0});
    pen.CreatePen(PS_SOLID, 2, COLORREF{1});  // in place of the first
    RecordingDevice device;
    CDC dc(device), memory;
    memory.CreateCompatibleDC(&dc);
    EXPECT_EQ(table.size(), before + 3);
  }
  EXPECT_EQ(table.size(), before);
}

TEST(Handles, recordsNeedRoom) {
  CFont font;
  font.CreateFont(-20, 0, 0, 0, FW_BOLD, 1, 0, 0, SHIFTJIS_CHARSET, 0, 0, PROOF_QUALITY, 0,
                  "a face whose name is longer than the thirty-two bytes of its place");
  LOGFONTA record{};
  EXPECT_EQ(font.GetObject(59, &record), 0);
  EXPECT_EQ(font.GetObject(0, nullptr), 60);
  EXPECT_EQ(font.GetLogFont(&record), 60);
  EXPECT_EQ(record.lfHeight, -20);
  EXPECT_EQ(record.lfWeight, FW_BOLD);
  EXPECT_EQ(std::strlen(record.lfFaceName), 31u);
}

TEST(Handles, manyThreadsMakeAndDelete) {
  const std::size_t before = HandleTable::instance().size();
  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&wrong, t] {
      for (int i = 0; i < 2000; ++i) {
        CPen pen(PS_SOLID, t * 10000 + i, COLORREF{0});
        LOGPEN record{};
        pen.GetObject(sizeof record, &record);
        if (record.lopnWidth.x != t * 10000 + i || CPen::FromHandle(pen) != &pen) ++wrong;
      }
    });
  for (std::thread &thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(HandleTable::instance().size(), before);
}

TEST(GlobalMemory, locksMovesAndFrees) {
  const HGLOBAL block = GlobalAlloc(GHND, 4);
  EXPECT_EQ(GlobalSize(block), 4u);
  auto *bytes = static_cast<char *>(GlobalLock(block));
  EXPECT_EQ(std::string(bytes, 4), std::string(4, '\0'));
  std::memcpy(bytes, "abcd", 4);
  EXPECT_EQ(GlobalReAlloc(block, 8, 0), nullptr);  // locked
  EXPECT_NE(GlobalLock(block), nullptr);
  EXPECT_TRUE(GlobalUnlock(block));
  EXPECT_FALSE(GlobalUnlock(block));
  EXPECT_FALSE(GlobalUnlock(block));
  EXPECT_EQ(GlobalReAlloc(block, ~std::size_t{0}, 0), nullptr);
  EXPECT_EQ(GlobalReAlloc(block, 8, 0), block);
  EXPECT_EQ(std::string(static_cast<char *>(GlobalLock(block)), 8), std::string("abcd\0\0\0\0", 8));
  EXPECT_EQ(GlobalFree(block), nullptr);
  EXPECT_EQ(GlobalFree(block), block);
  EXPECT_EQ(GlobalSize(block), 0u);
  EXPECT_EQ(GlobalAlloc(0, ~std::size_t{0}), nullptr);
  const HGLOBAL empty = GlobalAlloc(0, 0);
  EXPECT_EQ(GlobalLock(empty), nullptr);
  EXPECT_EQ(GlobalFree(empty), nullptr);
}

TEST(RawDrawing, drawsOnAHandle) {
  RecordingDevice device;
  CDC dc(device);
  const HPEN pen = CreatePen(PS_SOLID, 2, RGB(255, 0, 0));
  const HBRUSH brush = CreateSolidBrush(RGB(0, 0, 255));
  const HGDIOBJ old_pen = SelectObject(dc.m_hDC, pen), old_brush = SelectObject(dc.m_hDC, brush);
  EXPECT_TRUE(Rectangle(dc.m_hDC, 1, 2, 30, 40));
  EXPECT_EQ(SelectObject(dc.m_hDC, old_pen), pen);
  EXPECT_EQ(SelectObject(dc.m_hDC, old_brush), brush);
  EXPECT_TRUE(DeleteObject(pen));
  EXPECT_TRUE(DeleteObject(brush));
  EXPECT_EQ(device.lines(),
            std::vector<std::string>{
                "rectangle (1,2) (30,40) | pen solid 2 #ff0000 round | brush #0000ff | rop copy"});
  const HDC gone = dc.m_hDC;
  dc.DeleteDC();
  EXPECT_FALSE(Rectangle(gone, 1, 2, 30, 40));
  EXPECT_EQ(SelectObject(gone, GetStockObject(WHITE_PEN)), nullptr);
}

}  // namespace
