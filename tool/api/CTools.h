#pragma once
// Helpers of the application: settings, files and folders, text and numbers, and the spline segment. Every
// member is static. Paths and texts are code page 932; paths take either delimiter, folders with or without a
// trailing one. Members that answer `int` without more words give 1 for success and 0 for failure. Buffers
// (`char *` results) belong to the caller, who makes them large enough.

#include "tool/framework/files/CFile.h"
#include "tool/framework/text/CString.h"
#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"

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

  // Splines
  // --------------------------------------------------------------------------------------------------------------------
  /// The point at `t` on the span from (x1, y1) to (x2, y2); mode 0: Catmull-Rom through the neighbours, any
  /// other: cubic through the four points. Clamped to `clip` unless that is empty.
  static void SplineCal(double *x, double *y, double x0, double y0, double x1, double y1, double x2,
                        double y2, double x3, double y3, double t, CRect clip, int mode);
  /// Length of the curve over the spans start <= i < end, times `scale`.
  static double Get_SPLineLength(tagPOINT *pts, short count, short start, short end, double scale);
  static double Get_SPLineLengthd(tagDPOINT *pts, short count, short start, short end, double scale);

 private:
  static void _DeleteFolder(const char *path);  // NOLINT(bugprone-reserved-identifier,cert-dcl*): published
};
