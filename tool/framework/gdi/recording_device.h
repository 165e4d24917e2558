#pragma once
// A device that paints nothing and keeps what it is told, as a readable list: what tests look at. In front of
// another device it keeps the calls and passes them on.

#include <string>
#include <vector>

#include "tool/framework/gdi/drawing_device.h"

namespace framework {

class RecordingDevice : public DrawingDevice {
 public:
  enum class Kind {
    polyline,
    polygon,
    rectangle,
    rounded_rectangle,
    ellipse,
    arc,
    fill_region,
    text,
    flood_fill,
    set_pixel,
    put_pixels,
    begin_document,
    begin_page,
    end_page,
    end_document,
  };

  /// A call as it came. Points: of a polyline or polygon; of a box its left top and right bottom, then corner
  /// diameters, or the two rays of an arc; of a region its rectangles' or polygon's corners; of put_pixels
  /// the target box and the part of the source; else one point.
  struct Call {
    Kind kind;
    std::span<const POINT> points;
    const Paint *paint;     ///< clip is null: see `clipped`
    const Region *clip;     ///< null: none
    std::string_view text;  ///< code page 932
    const LOGFONTA *font;   ///< of a text, else null
    COLORREF color;         ///< of a text, flood fill or pixel
    DWORD operation;        ///< of put_pixels; the kind of a flood fill or region; the fill rule of a polygon
    bool ignored;           ///< the device (or its capabilities) lacks what the call needs
  };

  /// The default is a screen: every capability, 1920 x 1080 pixels at 96 per inch.
  RecordingDevice();
  explicit RecordingDevice(const DeviceCapabilities &capabilities) : capabilities_(capabilities) {}
  /// Passes every call on to `next`, whose capabilities and text metrics count.
  explicit RecordingDevice(DrawingDevice &next);

  std::size_t size() const { return entries_.size(); }
  Call operator[](std::size_t index) const;
  /// One line for each call, in UTF-8, colours as #rrggbb, for instance
  ///   polyline (10,20) (30,40) | pen solid 2 #0000ff square | rop copy
  std::vector<std::string> lines() const;
  std::string line(std::size_t index) const;
  void clear();

  DeviceCapabilities capabilities() const override;
  void polyline(std::span<const POINT> points, const Paint &paint) override;
  void polygon(std::span<const POINT> points, FillRule rule, const Paint &paint) override;
  void rectangle(const RECT &box, const Paint &paint) override;
  void rounded_rectangle(const RECT &box, SIZE corner, const Paint &paint) override;
  void ellipse(const RECT &box, const Paint &paint) override;
  void arc(const RECT &box, POINT start, POINT end, const Paint &paint) override;
  void fill_region(const Region &region, const Paint &paint) override;
  void text(const TextRun &run, const Paint &paint) override;
  SIZE text_extent(std::string_view text, const LOGFONTA &font) const override;
  TEXTMETRICA text_metrics(const LOGFONTA &font) const override;
  void flood_fill(POINT seed, COLORREF color, UINT kind, const Paint &paint) override;
  std::optional<COLORREF> pixel(POINT point) const override;
  void set_pixel(POINT point, COLORREF color, const Paint &paint) override;
  void put_pixels(const RECT &target, PixelView source, const RECT &part, DWORD operation, int stretch_mode,
                  const Paint &paint) override;
  bool read_pixels(const RECT &from, PixelSpan target) const override;
  bool begin_document(std::string_view name) override;
  bool begin_page() override;
  bool end_page() override;
  bool end_document() override;

 private:
  // Places in the pools below, so that recording does not allocate call by call; -1: none.
  struct Entry {
    Kind kind;
    bool ignored;
    std::uint32_t first_point, point_count;
    std::uint32_t first_byte, byte_count;
    std::int32_t paint, clip, font;
    COLORREF color;
    DWORD operation;
  };
  Entry &add(Kind kind, std::span<const POINT> points, const Paint *paint);
  void keep_text(Entry &entry, std::string_view text);

  std::vector<Entry> entries_;
  std::vector<POINT> points_;
  std::vector<Paint> paints_;
  std::vector<Region> clips_;
  std::vector<LOGFONTA> fonts_;
  std::string texts_;
  DeviceCapabilities capabilities_;
  DrawingDevice *next_ = nullptr;
};

}  // namespace framework
