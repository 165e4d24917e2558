// The era table and the era calendar against ICU's, every day from the adoption of the Gregorian calendar
// (1 January 1873) on.

#include <gtest/gtest.h>
#include <unicode/calendar.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>

#include <memory>
#include <string>

#include "tool/api/CTools.h"
#include "tool/calendar/era_table.h"
#include "tool/framework/text/cp932.h"

namespace {

constexpr double milliseconds_in_day = 86'400'000.0;
constexpr int last_year = 2117;  // the last with a two-digit year of the present era

/// ICU's Japanese calendar in Greenwich time.
class JapaneseCalendar {
 public:
  JapaneseCalendar() {
    const icu::TimeZone &zone = *icu::TimeZone::getGMT();
    const icu::Locale locale("ja_JP@calendar=japanese");
    japanese_.reset(icu::Calendar::createInstance(zone, locale, status));
    gregorian_ = std::make_unique<icu::GregorianCalendar>(zone, locale, status);
    names_ = std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString("GGGG"), locale, status);
    names_->setTimeZone(zone);
    gregorian_->set(1873, UCAL_JANUARY, 1, 0, 0, 0);
    gregorian_->set(UCAL_MILLISECOND, 0);
    time_ = gregorian_->getTime(status);  // NOLINT(cppcoreguidelines-prefer-member-initializer): only now
    move_to(time_);
  }
  void next_day() { move_to(time_ + milliseconds_in_day); }

  calendar::Date date() {
    return {gregorian_->get(UCAL_YEAR, status), gregorian_->get(UCAL_MONTH, status) + 1,
            gregorian_->get(UCAL_DATE, status)};
  }
  int era_year() { return japanese_->get(UCAL_YEAR, status); }
  std::string era_name() {
    icu::UnicodeString name;
    std::string utf8;
    names_->format(time_, name).toUTF8String(utf8);
    return utf8;
  }

  UErrorCode status = U_ZERO_ERROR;

 private:
  void move_to(UDate time) {
    time_ = time;
    japanese_->setTime(time, status);
    gregorian_->setTime(time, status);
  }

  std::unique_ptr<icu::Calendar> japanese_;
  std::unique_ptr<icu::GregorianCalendar> gregorian_;
  std::unique_ptr<icu::SimpleDateFormat> names_;
  UDate time_ = 0;
};

std::string era_text(const std::string &era, int year, calendar::Date date) {
  return era + (year < 10 ? " 0" : " ") + std::to_string(year) + "年" + std::to_string(date.month) + "月" +
         std::to_string(date.day) + "日";
}

TEST(JapaneseEras, agreeWithIcuDayByDay) {
  const auto table = calendar::read_era_table(TOOL_SOURCE_DIR "/data/Era.dat");
  ASSERT_TRUE(table);
  JapaneseCalendar icu;
  ASSERT_TRUE(U_SUCCESS(icu.status));
  int days = 0;
  for (; icu.date().year <= last_year && !HasFailure(); icu.next_day(), ++days) {
    const calendar::Date date = icu.date();
    const std::string stored = calendar::stored_text(date);
    SCOPED_TRACE(stored);
    const calendar::EraYear found = calendar::find_era(table->ranges, date);
    ASSERT_GE(found.era, 0);
    EXPECT_EQ(framework::utf8_for_display(table->names[found.era].view()), icu.era_name());
    EXPECT_EQ(found.year, icu.era_year());
    EXPECT_EQ(calendar::christian_year(table->ranges, found.era, found.year), date.year);
    for (int era = 0; era < table->names.GetSize(); ++era) {
      const int first = calendar::christian_year(table->ranges, era, 1);
      EXPECT_EQ(calendar::is_in_era(table->ranges, era, {date.year - first + 1, date.month, date.day}),
                era == found.era);
    }
    EXPECT_EQ(framework::utf8_for_display(CTools::MakeDate(stored.c_str(), 2, nullptr).view()),
              era_text(icu.era_name(), icu.era_year(), date));
  }
  EXPECT_TRUE(U_SUCCESS(icu.status));
  EXPECT_EQ(days, 89484);  // of the 245 years 1873 to 2117, 59 of them leap years
}

}  // namespace
