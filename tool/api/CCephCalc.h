#pragma once
// The analysis engine as the application calls it. Every member is static, borrows what it is given for the
// duration of the call, and reports failure by its result: 0, an empty text, the empty point or 999999999.0.
//
// Arguments that recur:
//   mode           0 lateral, 1 frontal, 2 cast model, 10 lateral diagnosis, 11 frontal second set, 20
//   surgery fileIndex      position among the non-empty lines of the mode's "list.txt"; mode 0 with -1: the
//   norm file record         tagPOINTLAT (modes 0, 10, 20), tagPOINTPA (1, 11) or tagPOINTMO (2) kCount
//   kPoints number of virtual points and their definitions uCount uPoints number of user points and their
//   records sex            1 male, any other value female ageCode        second norm column x 100 + first
//   norm column magnification  of the radiograph; norms of lengths are written for 1.1 precision      2 two
//   decimals, 9 nearest half, any other one decimal

#include "tool/analysis/records.h"
#include "tool/framework/text/CString.h"
#include "tool/framework/text/CStringArray.h"
#include "tool/geometry/CPointD.h"

class CComboBox;
class CListCtrl;

class CCephCalc {
 public:
  // Points by name
  // -------------------------------------------------------------------------------------------
  /// Coordinates in pixels; (0, 0) when the name cannot be resolved.
  static CPointD PointPos(int mode, const char *name, void *record, unsigned short *kCount,
                          tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints);
  /// Evaluates one virtual point; 1 on success, 0 with `out` untouched when a reference cannot be resolved.
  static int GetVirtualPoint(unsigned int mode, double scale, tagKPOINT *point, unsigned short *kCount,
                             tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints,
                             POINT *userCoords, POINT *landmarkCoords, tagDPOINT *out);
  /// 1 when a formula of the mode's definition files names the point in square brackets.
  static int Use_Point(int mode, const char *name);
  /// Evaluates the first point expression of `text` and blanks the text through its end.
  static CPointD Calc_Point(int mode, char *text, void *record, unsigned short *kCount, tagKPOINT *kPoints,
                            unsigned short *uCount, tagUPOINT *uPoints);

  // Definition files
  // -----------------------------------------------------------------------------------------
  static CString FormFile(int mode, int index);
  static CString CalcModeFile(int mode, int index);
  static int Str_Check(const char *line);
  static CString Get_Title(const char *path);
  static CString GetComment(int mode, int index);
  static CString Get_NumStr(char *list, int index);
  static void GetType(char *formula, int *kind, int *flag);

  // Formulas
  // -------------------------------------------------------------------------------------------------
  /// Evaluates `formula` up to its first ';' and blanks it. `values` has 100 entries, `count` of them in use.
  static double Calc(int mode, int fileIndex, char *formula, double *values, int *count, void *record,
                     unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints,
                     int sex, int ageCode, double magnification, int whole);
  /// One measurement term; `text` starts right after its keyword and is blanked through the term's ')'.
  static double Calc_Mult(int mode, unsigned int kind, char *text, void *record, unsigned short *kCount,
                          tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints, char sex);
  /// One item reference term; `text` is blanked through the ')' after the closing quote.
  static double Calc_SDU(int mode, int selector, int fileIndex, char *text, void *record,
                         unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount,
                         tagUPOINT *uPoints, int sex, int ageCode, double magnification);
  /// A named item: selector 0 value, 1 SD units, 2 mean, 3 SD. The outputs may be null.
  static double Calc_1(int selector, int mode, int fileIndex, const char *item, void *record,
                       unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints,
                       int sex, int ageCode, double magnification, double *meanOut, double *sdOut);

  // Norms and stages
  // -----------------------------------------------------------------------------------------
  /// The norm text of an item (which 0 mean, 1 SD) in the file text already in memory; empty when not found.
  static CString Get_MeanSD(int mode, int fileIndex, int which, int sex, char *fileText, void *record,
                            unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount,
                            tagUPOINT *uPoints, int fileLength, const char *item, int ageCode,
                            double magnification, int kind);
  /// The same as a number: 1 with `out` set, or 0 with `out` = 0.
  static int Get_MeanSD(int mode, int fileIndex, double *out, int which, int sex, char *fileText,
                        void *record, unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount,
                        tagUPOINT *uPoints, int fileLength, const char *item, int ageCode,
                        double magnification, int kind);
  static void GetMeanSD(const char *path, const char *item, int sex, int ageCode, CString &mean, CString &sd);
  static CString GetMeanSDFile(tagHINPUT *links, int count);
  static int GetSDU(double value, double mean, double sd);
  static double GetDoubleSDU(double value, double mean, double sd);
  static double GetDentalAge(const char *code);
  static int GetStage(const char *path, int sex, double age, double dentalStage, CString &name);
  static int SetStageList(int mode, CComboBox *combo, int fileIndex, int sex, double age, double dentalStage,
                          int set, const char *selectName);
  static int Get_RickettsStage(int sex, double age, double second);
  static double Get_RickettsParam(tagPOINTLAT *points, int itemIndex, int sex, int ageCode,
                                  double magnification, unsigned int reserved, char *nameOut,
                                  double *valueOut, double *sdOut, double *meanOut);

  // Result tables
  // --------------------------------------------------------------------------------------------
  static void User_Calc(int mode, CListCtrl *list, void *record, int fileIndex, unsigned short *kCount,
                        tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints, int sex, int ageCode,
                        double magnification, int precision);
  static void User_CalcSurg(CListCtrl *list, void *before, void *after, unsigned short *kCount,
                            tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints, int sex,
                            int ageCode, double magnification, int precision);
  static void User_Diag(int mode, CListCtrl *list, void *record, int fileIndex, unsigned short *kCount,
                        tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints, int sex,
                        int firstColumn, int secondColumn, double magnification, int reserved);

  // Display settings
  // -----------------------------------------------------------------------------------------
  static void SetCalcMode(int mode, CComboBox *combo);
  /// `segments` has room for 30 records of two names of 6 bytes, a colour and a weight of 4 bytes each.
  static void ReadCalcMode(const char *path, void *segments, CStringArray *points, CStringArray *labels,
                           CStringArray *pointSettings);
  static int CheckCalcModePoint(CStringArray *points, const char *name);

  // Fixed catalogues
  // -----------------------------------------------------------------------------------------
  /// One of the 148 fixed lateral measurements: an item of analysis `number`; `flag` receives 1 for the
  /// catalogue's angle flag.
  static double Lat_Calc(tagPOINTLAT *rec, int number, int item, int *flag);
  /// Completes PTV, Gl, Me(s), Pog(s) and Vmi where they are not placed.
  static void Check_LatPoint(tagPOINTLAT *rec);
  static double Calc_PA(tagPOINTPA *rec, int item);
  static double Calc_CVBA(tagCVBA *rec, int sex);
  static void Calc_Model(int sex, tagPOINTMO *mo, tagMOEX *ex, int item, double *a, double *b);
};
