#pragma once
// Japanese eras. The table is read from "Era.dat" beside the running program when an object is made; without
// the file a message is shown once and every question has its stated empty answer. Texts are code page 932.
//
// An era number is the era's position in the table, from 0. A month or day of 0 is unknown and counts as 1.
// An index outside the table raises CInvalidArgException. Objects are used from one thread.

#include "tool/framework/text/CString.h"
#include "tool/framework/text/CStringArray.h"

class CJapEra {
 public:
  CJapEra();

  int IsDataFileFound() const { return m_bFileFound; }

  // Christian dates to eras
  /// The era that holds a date, and the year within it; -1 with year 0 when none does or the date comes
  /// before the first era, -1 with the year untouched without the file.
  int GetEraYear(int year, int month, int day, int *eraYear) const;
  /// The year within a range by its position in the file, of which position 0 is the time before the first
  /// era and position k + 1 that of era k. 0 for a range without a first year, -1 without the file. Month and
  /// day are ignored, and so is the range's end.
  int GetEraYear(int year, int month, int day, int rangeIndex) const;
  /// Empty when no era holds the date.
  CString GetEraYearName(int year, int month, int day, int *eraYear) const;
  CString GetEraYearCode(int year, int month, int day, int *eraYear) const;

  // Eras to Christian dates. Era -1 is the time before the first era.
  /// At most 2500, whatever the era's end; 0 without the file.
  int GetChristYear(int era, int eraYear) const;
  /// 1 when the date of an era lies within it, else 0.
  int CheckEra(int era, int eraYear, int month, int day) const;

  // The table
  CString GetEraName(int era) const;
  CString GetEraCode(int era) const;
  /// Left alone without the file.
  void GetEraNameSet(CStringArray *names) const;
  void GetEraCodeSet(CStringArray *codes) const;

 private:
  void GetMemberData();

  int m_bFileFound = 0;
  int m_nRangeCount = 0;
  CString m_strFileName;
  CStringArray m_aEraName;
  CStringArray m_aEraCode;
  CStringArray m_aEraRange;
};
