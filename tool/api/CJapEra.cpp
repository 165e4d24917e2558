#include "tool/api/CJapEra.h"

#include <utility>

#include "tool/calendar/era_table.h"
#include "tool/framework/ui/message_box.h"

CJapEra::CJapEra() {
  GetMemberData();
}

void CJapEra::GetMemberData() {
  m_strFileName = calendar::era_file_path();
  auto table = calendar::read_era_table(m_strFileName.str());
  if (!table) {
    AfxMessageBox("ERA data file not found", MB_OK);
    return;
  }
  m_bFileFound = 1;
  m_nRangeCount = table->count + 1;
  m_aEraName = std::move(table->names);
  m_aEraCode = std::move(table->codes);
  m_aEraRange = std::move(table->ranges);
}

int CJapEra::GetEraYear(int year, int month, int day, int *eraYear) const {
  if (!m_bFileFound) return -1;
  const calendar::EraYear found = calendar::find_era(m_aEraRange, {year, month, day});
  if (eraYear) *eraYear = found.year;
  return found.era;
}

int CJapEra::GetEraYear(int year, int, int, int rangeIndex) const {
  return m_bFileFound ? calendar::year_in_range(m_aEraRange, rangeIndex, year) : -1;
}

CString CJapEra::GetEraYearName(int year, int month, int day, int *eraYear) const {
  const int era = GetEraYear(year, month, day, eraYear);
  return era == -1 ? CString() : m_aEraName.GetAt(era);
}

CString CJapEra::GetEraYearCode(int year, int month, int day, int *eraYear) const {
  const int era = GetEraYear(year, month, day, eraYear);
  return era == -1 ? CString() : m_aEraCode.GetAt(era);
}

int CJapEra::GetChristYear(int era, int eraYear) const {
  return m_bFileFound ? calendar::christian_year(m_aEraRange, era, eraYear) : 0;
}

int CJapEra::CheckEra(int era, int eraYear, int month, int day) const {
  return m_bFileFound && calendar::is_in_era(m_aEraRange, era, {eraYear, month, day}) ? 1 : 0;
}

CString CJapEra::GetEraName(int era) const {
  return m_bFileFound ? m_aEraName.GetAt(era) : CString();
}

CString CJapEra::GetEraCode(int era) const {
  return m_bFileFound ? m_aEraCode.GetAt(era) : CString();
}

void CJapEra::GetEraNameSet(CStringArray *names) const {
  if (m_bFileFound && names) names->Copy(m_aEraName);
}

void CJapEra::GetEraCodeSet(CStringArray *codes) const {
  if (m_bFileFound && codes) codes->Copy(m_aEraCode);
}
