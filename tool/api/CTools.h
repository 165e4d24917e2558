#pragma once
// Helpers of the application: settings, files and folders, text and numbers, drawing, and the spline segment.
// Every member is static. Paths and texts are code page 932; paths take either delimiter, folders with or
// without a trailing one. Members that answer `int` without more words give 1 for success and 0 for failure.
// Buffers
// (`char *` results) belong to the caller, who makes them large enough.

#include "tool/framework/files/CFile.h"
#include "tool/framework/gdi/CDC.h"
#include "tool/framework/text/CString.h"
#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"
#include "tool/geometry/point_arguments.h"
#include "tool/geometry/view_mapping.h"
#include "tool/tracing/outline_transfer.h"
#include "tool/tracing/primitives.h"
#include "tool/tracing/reference_lines.h"

class CDC;
class CJapEra;
class CWnd;

class CTools {
 public:
  // Settings and window positions
  // ------------------------------------------------------------------------------------------------
  /// The application's folder with a trailing delimiter; `up` other than 0: the folder above. The text lives
  /// in one buffer of the library that every call overwrites.
  static const char *GetExecutionFileDirectoryPath(int up);
  /// Full path of "Tracora10.ini" in that folder.
  static CString GetIniFileName(int up);
  /// Whole numbers in the ini file `file`, or in the application's own profile when `file` is empty.
  static int GetProfileIntEx(const char *section, const char *key, int fallback, const char *file);
  static void WriteProfileIntEx(const char *section, const char *key, int value, const char *file);
  /// Text values of the user; "" when missing.
  static CString RegReadString(const char *name);
  /// `size` bytes of data, up to the first zero character; null data: an empty text. 0 only when the place
  /// for such values cannot be opened.
  static int RegWriteString(const char *name, char *data, DWORD size);
  /// A window's place and whether it is maximised, under profile keys that begin with `prefix`.
  static void LoadWindowPos(CWnd *window, const char *prefix);
  static void SaveWindowPos(CWnd *window, const char *prefix);
  /// The scratch folder, without a trailing delimiter; created when missing. "" without a temporary path.
  static CString GetTracoraTempPath();

  // Files and folders
  // --------------------------------------------------------------------------------------------------------
  static int ExistFile(const char *path);      ///< 1 for a file or a folder
  static DWORD GetFileSize(const char *path);  ///< bytes; 0 when it cannot be opened
  static void FileRemove(const char *path);
  /// Copies a file and makes the copy writable.
  static int fCopyNonrFile(const char *source, const char *target, int failIfExists);
  static int MkDir(const char *path);  ///< with every missing parent
  /// A folder with everything in it; same-named files are overwritten, others kept.
  static int DirectoryCopy(CString &source, CString &target);
  /// The plain files of one folder. Note the order: target first. The source becomes the current folder.
  static int CopyFolderFile(const char *target, const char *source);
  /// With its contents; read-only files stay, and with them the folders that hold them.
  static void DeleteFolder(const char *path);
  /// One write without terminator. A failure shows "Disk Full" and gives 0.
  static int WriteFile(CFile *file, const char *text);
  static int WriteFileB(CFile *file, void *data, DWORD size);

  // Text and numbers
  // ---------------------------------------------------------------------------------------------------------
  /// At most `count` characters from position `start` (from 0); empty beyond the end.
  static void StrCut(char *source, char *target, int start, int count);
  static void And_Check(char *source, char *target);  ///< doubles every '&'
  static void Del_Space(char *text);                  ///< removes blanks at the end
  static int IsNull(unsigned char *data, unsigned int size);
  /// Splits at the first '='. The key is cut to 50 bytes and gets NO terminator: clear the buffer beforehand.
  static void Div_Str(const char *line, char *key, char *value);
  static void Div_Str(const CString &line, char *key, char *value);
  /// The whole key (no terminator either), and the value as printf would print it as a format without
  /// arguments. Without '=' the same as Div_Str.
  static void Div_StrFree(const char *line, char *key, char *value);
  /// One line of at most `max` (511) bytes; an empty one is returned as one zero character.
  static CString GetLineText(char *text, int *consumed, int max);
  /// Adds a trailing delimiter when missing; the new length. Empty CStrings stay empty.
  static int LastDelimAdd(char *path);
  static int LastDelimAdd(CString &path);
  /// Removes a trailing delimiter; the new length. A path shorter than 4 bytes becomes the drive root of its
  /// first character; an empty one stays empty.
  static int LastDelimDel(char *path);
  static int LastDelimDel(CString &path);
  static CString GetFileTitle(const char *path);  ///< without folder and extension
  static CString GetFileExt(const char *path);    ///< with its dot
  static int IsNum(const char *text);
  /// At least `digits` decimals, at most six.
  static CString FtoA(double value, int digits);
  /// Shows the system's text for the calling thread's last error.
  static void GetLastErrMessage();
  static void Debug(char *text, int value);  ///< does nothing

  // Dates and ages
  // ---------------------------------------------------------------------------------------------------------
  // Stored dates are digits YYYYMMDD, an unknown month or day "00"; what is missing or no number reads as 0.
  // A null reference date is today. Null results are not written.

  /// Of the clock in use; its two-digit year counts from 2000 below 80, else from 1900.
  static void GetToday(int *year, int *month, int *day);
  /// Mode 1 Japanese units, 2 Japanese era by the system's calendar, 3 month/day/year, 4 English month name,
  /// any other year/month/day. The era table is not consulted. Mode 2 is empty for a date without day or
  /// month.
  static CString MakeDate(const char *ymd, unsigned int mode, CJapEra *eraTable);
  /// Of year/month/day; two-digit years as in GetToday when the text has fewer than 10 characters.
  static CString MakeDateR(const char *text);
  /// Mode 1 "9.9y", 2 Japanese years and months, 3 years and tenths with the Japanese unit, 4 Japanese years,
  /// 5 as 2 with the other way to write months, any other "9y11m". Tenths are months / 12 * 10, truncated.
  static CString MakeAge(int years, int months, unsigned short mode);
  static CString MakeAge(const char *birth, const char *reference, unsigned short mode);
  /// Whole years and months (0 to 12) with months of 365/12 days; 0 and 0 before the birth date.
  static void CaclAge(const char *birth, const char *reference, int *years, int *months);
  /// Whole months with months of 30.4 days and 0.01 month added; negative before the birth date.
  static short CalcAge(const char *birth, const char *reference);
  /// The year, month and day boxes of a dialog; day box 0: there is none.
  static void SetNengappi(CWnd *dialog, unsigned int yearBox, unsigned int monthBox, unsigned int dayBox,
                          const char *ymd);
  static CString GetNengappi(CWnd *dialog, unsigned int yearBox, unsigned int monthBox, unsigned int dayBox);
  /// Whether the month of a date lies within a period of months, ends included; an empty end is open.
  static int MakeCompYmd(const char *ymd, const char *from, const char *to);

  // Drawing
  // ---------------------------------------------------------------------------------------------------------------------
  // On a context that the caller owns; a null context, point or text draws nothing. Every member leaves pen,
  // brush, font, background mode and raster operation as it found them, and doubles are truncated toward
  // zero.
  //
  // Device coordinates: `org` and `mag` map image pixels to trunc(value * mag) - org; `base`, `magX` and
  // `magY` map to trunc((base + value) * mag) with y negated; `mag` alone to trunc(value * mag). `flip` 1
  // (for lines: not 0) negates every y, for map modes whose y axis points up. Styles: a pen style 0 to 6, or
  // 101 solid of width 1, 102 solid of width 2, 103 dotted, 104 dashed, 105 dash-dot, 106 dash-dot-dot of
  // width 1. Widths are device units; on a printer the low 16 bits (code 102: the high 16 bits) of those of
  // Draw_Line, Draw_Circle and Line_Pile are tenths of a millimetre. `exclusiveOr` not 0: drawing twice
  // erases. Which pixels are painted is said at the operations of tracing/primitives.h.

  // Lines
  /// Adapts to printers; dashes in device units.
  static void Draw_Line(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF color, int style,
                        int flip);
  /// Dashes of the system; no adaptation to printers.
  static void Draw_Line2(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF color, int style);
  /// In an image bitmap: a cosmetic pen.
  static void Draw_Line_Image(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF color, int style,
                              int flip);
  static void Line_MakeH(HDC handle, int x1, int y1, int x2, int y2, int width, COLORREF color, int style);
  static void Line_Make2(CDC *dc, CPoint p1, CPoint p2, double mag, CPoint org, int width, COLORREF color,
                         int style, int exclusiveOr);
  /// Its width comes from the image's: 2 for each whole 750 pixels.
  static void Line_Make2_Image(CDC *dc, CPoint p1, CPoint p2, double mag, CPoint org, int width,
                               COLORREF color, int style, int exclusiveOr, int imageWidth, int imageHeight);
  /// The width is scaled too.
  static void Line_Maked(CDC *dc, tagDPOINT *p1, tagDPOINT *p2, double mag, CPoint org, int width,
                         COLORREF color, int style);
  static void Draw_LineF(CDC *dc, CPoint org, double mag, CPoint p1, CPoint p2, int width, COLORREF color,
                         int style);
  static void Draw_LineF(CDC *dc, int x1, int y1, int x2, int y2, double mag, int width, COLORREF color,
                         int style);
  static void P_Line(CDC *dc, double baseX, double baseY, double magX, double magY, double x1, double y1,
                     double x2, double y2, int width, COLORREF color, int style);
  /// `heads`: bit 0 at p1, bit 1 at p2; `headLength` in image pixels.
  static void DrawArrowLine(CDC *dc, CPoint p1, CPoint p2, double headLength, int heads, double mag,
                            CPoint org, int width, COLORREF color, int style);

  // Rectangles and areas
  /// Outline only.
  static void Area_Make(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF color, int style);
  static void Area_Make(CDC *dc, CRect rect, int width, COLORREF color, int style);
  static void Area_MakeF(CDC *dc, int x1, int y1, int x2, int y2, double mag, int width, COLORREF color,
                         int style);
  static void DrawRect(CDC *dc, CRect rect, double mag, int width, COLORREF color, int style);
  static void P_Area(CDC *dc, double baseX, double baseY, double magX, double magY, double x1, double y1,
                     double x2, double y2, int width, COLORREF color, int style);
  /// Outline as exclusive or.
  static void Frame_Make(CDC *dc, CRect rect, int width, COLORREF color, int style);
  /// Filled.
  static void Rect_Make(CDC *dc, CRect rect, int width, COLORREF penColor, COLORREF brushColor);
  /// Outline; without width or height one line.
  static void Rect_Make(CDC *dc, tagRECT rect, double mag, CPoint org, int width, COLORREF color, int style,
                        int exclusiveOr);
  /// Round corners of diameter `corner` (image pixels); filled when `fill` is not 0.
  static void Rect_MakeEx(CDC *dc, tagRECT rect, double mag, CPoint org, int corner, int width,
                          COLORREF penColor, int style, int fill, COLORREF fillColor);
  static void Box_MakeH(HDC handle, int x1, int y1, int x2, int y2, int width, COLORREF penColor,
                        COLORREF brushColor);
  /// Flood fill from (x, y) up to the border colour.
  static void DrawRect(CDC *dc, int x, int y, COLORREF fillColor, COLORREF borderColor);

  // Ellipses, arcs, spots
  static void Ellipse(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF penColor,
                      COLORREF brushColor, int style, int flip);
  static void EllipseF(CDC *dc, int x1, int y1, int x2, int y2, double mag, int width, COLORREF color,
                       int style);
  /// In the box (x1, y1)-(x2, y2) from the ray through (x3, y3) to the ray through (x4, y4).
  static void Arc_MakeF(CDC *dc, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4, double mag,
                        int width, COLORREF color, int style);
  /// About (cx, cy) through (px, py).
  static void Draw_Circle(CDC *dc, int cx, int cy, int px, int py, int width, COLORREF color, int style,
                          int flip);
  static void Spot(CDC *dc, CPoint org, double mag, CPoint centre, short radius, COLORREF color, int flip);
  /// The radius stays in device pixels.
  static void Spot2(CDC *dc, CPoint org, double mag, CPoint centre, short radius, COLORREF color, int flip);

  // Constructed lines: a and b (in Line_Pile the targets) are `CPoint` or `tagDPOINT *` each.
  /// Through p parallel to ab, across the clip rectangle (image pixels); `out`, which may be null, receives
  /// the end with the larger x, also when width 0 asks for no drawing.
  template <geometry::PointArgument A, geometry::PointArgument B>
  static void Parallel_Line(CDC *dc, A a, B b, tagDPOINT *p, tagRECT clip, int orgX, int orgY, COLORREF color,
                            CPoint *out, int width, double mag, double /*factor*/, int style, int /*unused*/,
                            int /*unused*/) {
    const auto line =
        tracing::parallel_line(geometry::value(a), geometry::value(b), geometry::value(p), clip);
    const geometry::ViewMapping view{{orgX, orgY}, mag, false};
    if (is_drawn(dc, width, line, out))
      tracing::draw_line(*dc, view(line.from), view(line.to), {width, color, style});
  }
  template <geometry::PointArgument A, geometry::PointArgument B>
  static void Parallel_Line_Image(CDC *dc, A a, B b, tagDPOINT *p, tagRECT clip, int orgX, int orgY,
                                  COLORREF color, CPoint *out, int width, double mag, double /*factor*/,
                                  int style, int /*unused*/, int /*unused*/) {
    const auto line =
        tracing::parallel_line(geometry::value(a), geometry::value(b), geometry::value(p), clip);
    const geometry::ViewMapping view{{orgX, orgY}, mag, false};
    if (is_drawn(dc, width, line, out))
      tracing::draw_line_image(*dc, view(line.from), view(line.to), {width, color, style});
  }
  /// Through p perpendicular to ab; `out` receives the end with the smaller y and is left alone when the line
  /// is vertical or horizontal.
  template <geometry::PointArgument A, geometry::PointArgument B>
  static void Vartical_Line(CDC *dc, A a, B b, tagDPOINT *p, tagRECT clip, int orgX, int orgY, COLORREF color,
                            CPoint *out, int width, double mag, double /*factor*/, int style) {
    const auto line =
        tracing::perpendicular_line(geometry::value(a), geometry::value(b), geometry::value(p), clip);
    const geometry::ViewMapping view{{orgX, orgY}, mag, false};
    if (is_drawn(dc, width, line, out))
      tracing::draw_line(*dc, view(line.from), view(line.to), {width, color, style});
  }
  /// Vertical and horizontal ones are drawn by Draw_Line with the width trunc(width / 10 * factor).
  template <geometry::PointArgument A, geometry::PointArgument B>
  static void Vartical_Line_Image(CDC *dc, A a, B b, tagDPOINT *p, tagRECT clip, int orgX, int orgY,
                                  COLORREF color, CPoint *out, int width, double mag, double factor,
                                  int style) {
    const auto line =
        tracing::perpendicular_line(geometry::value(a), geometry::value(b), geometry::value(p), clip);
    const geometry::ViewMapping view{{orgX, orgY}, mag, false};
    const int scaled = framework::to_int(width / 10.0 * factor);
    if (!is_drawn(dc, width, line, out)) return;
    if (line.axis_parallel)
      tracing::draw_line(*dc, view(line.from), view(line.to), {scaled, color, style});
    else
      tracing::draw_line_image(*dc, view(line.from), view(line.to), {width, color, style});
  }
  /// Fits an outline (up to 50 points, ended by a later (0, 0)) onto the target segment: s1 goes to target a,
  /// s2 to target b; equal s1 and s2 stand for its first and last point (x -1: last and first). It is turned
  /// about `centre` by `angle` degrees; `factor` 0 puts it on the centre. `mirror` not 0: distances from the
  /// centre times `factor`, y upward. `pivot`: 0 keeps distances from b, else from a.
  template <geometry::PointArgument A, geometry::PointArgument B>
  static void Line_Pile(CDC *dc, int orgX, int orgY, A targetA, B targetB, int (*outline)[2], CPoint s1,
                        CPoint s2, COLORREF color, double mag, CPoint centre, double angle, double factor,
                        int width, int style, int mirror, int pivot) {
    if (!dc) return;
    tracing::draw_transferred_outline(
        *dc, outline, {geometry::value(targetA), geometry::value(targetB), s1, s2, pivot != 0},
        {{orgX, orgY}, mag, centre, angle, factor, mirror != 0}, {width, color, style});
  }
  /// The same in an image bitmap.
  template <geometry::PointArgument A, geometry::PointArgument B>
  static void Line_Pile_Image(CDC *dc, int orgX, int orgY, A targetA, B targetB, int (*outline)[2], CPoint s1,
                              CPoint s2, COLORREF color, double mag, CPoint centre, double angle,
                              double factor, int width, int style, int mirror, int pivot, int /*imageWidth*/,
                              int /*imageHeight*/) {
    if (!dc) return;
    tracing::draw_transferred_outline_image(
        *dc, outline, {geometry::value(targetA), geometry::value(targetB), s1, s2, pivot != 0},
        {{orgX, orgY}, mag, centre, angle, factor, mirror != 0}, {width, color, style});
  }

  // Text: height 0 keeps the selected font (not in the forms with a LOGFONTA).
  /// Top left corner at (x, y); font kind 9 is "Times New Roman". Leaves the text colour set.
  static void TextMake(CDC *dc, int x, int y, const char *text, unsigned int height, unsigned int weight,
                       int fontKind, int italic, COLORREF color, int backgroundMode, int flip,
                       unsigned char strikeOut, unsigned char underline);
  static void TextMakeOut(CDC *dc, int x, int y, const char *text, unsigned int height, unsigned int weight,
                          int unused, int italic, COLORREF color, int backgroundMode);
  /// `offset` is added to both coordinates of p.
  static void Draw_Text(CDC *dc, CPoint org, double mag, CPoint p, short offset, const char *text, int height,
                        COLORREF color, int weight, int fontKind, int italic);
  static void P_Text(CDC *dc, double baseX, double baseY, double magX, double magY, double dx, double dy,
                     const char *text, int height, int weight, int fontKind, int italic, COLORREF color);
  /// In a rectangle, 2 image pixels right of its left edge; the text's width. `format`: DT_... flags. The
  /// text colour is restored.
  static int Rect_Text(CDC *dc, CRect rect, double mag, CPoint org, const char *text, int height,
                       COLORREF color, unsigned int format, int weight, int flip);
  static void Rect_Text(CDC *dc, CRect rect, double mag, CPoint org, const char *text, LOGFONTA font,
                        COLORREF color, unsigned int format);
  static void Rect_Text_LF(CDC *dc, tagRECT rect, double mag, CPoint org, const char *text, LOGFONTA font,
                           COLORREF color, unsigned int format);

  // Printing
  /// The magnification at which `extent` fits on the device's page.
  static double GetPrintMag(CDC *dc, CSize extent);

  // Splines
  // --------------------------------------------------------------------------------------------------------------------
  /// The point at `t` on the span from (x1, y1) to (x2, y2); mode 0: Catmull-Rom through the neighbours, any
  /// other: cubic through the four points. Clamped to `clip` unless that is empty.
  static void SplineCal(double *x, double *y, double x0, double y0, double x1, double y1, double x2,
                        double y2, double x3, double y3, double t, CRect clip, int mode);
  /// Length of the curve over the spans start <= i < end, times `scale`.
  static double Get_SPLineLength(tagPOINT *pts, short count, short start, short end, double scale);
  static double Get_SPLineLengthd(tagDPOINT *pts, short count, short start, short end, double scale);
  /// A smooth curve through image points: spans of cubic curves with vertices at least `step` units apart, in
  /// style, width and flip as Draw_Line has them. One point is a cross, two are a line. The last pixel is not
  /// drawn.
  static void Draw_SPLine(CDC *dc, CPoint org, double mag, const tagPOINT *points, short count,
                          COLORREF color, unsigned style, unsigned char closed, int width, int flip,
                          int step);
  /// The same in an image bitmap, whose width sets the line width.
  static void Draw_SPLine_Image(CDC *dc, CPoint org, double mag, const tagPOINT *points, short count,
                                COLORREF color, unsigned style, unsigned char closed, int width, int flip,
                                int step, int imageWidth, int imageHeight);

 private:
  /// Hands out the label end of a constructed line; whether there is anything to draw with.
  static bool is_drawn(const CDC *dc, int width, const tracing::SpanningLine &line, CPoint *out) {
    if (out && line.label_end) *out = *line.label_end;
    return dc && width != 0;
  }
  static void _DeleteFolder(const char *path);  // NOLINT(bugprone-reserved-identifier,cert-dcl*): published
};
