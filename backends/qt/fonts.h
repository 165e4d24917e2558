#pragma once
// Fonts as they are asked for, turned into Qt's. Private to the back end.

#include <QFont>
#include <string>
#include <string_view>
#include <vector>

#include "tool/framework/gdi/records.h"

namespace qt_backend {

struct Font {
  LOGFONTA asked;  ///< what follows the name's end is zero
  QFont smooth;    ///< antialiased
  QFont aliased;   ///< every pixel painted or not
  TEXTMETRICA metrics;
  double stretch;      ///< of every width
  std::size_t number;  ///< no other font of the device has or had it
};

/// Fonts made so far. One for each device: fonts are cheap to find and dear to make.
class Fonts {
 public:
  const Font &find(const LOGFONTA &asked);
  SIZE extent(std::string_view cp932_text, const LOGFONTA &asked);

 private:
  std::vector<Font> fonts_;
  std::size_t last_ = 0;
  std::size_t made_ = 0;
};

/// Installed families that the substitution table wants and the system lacks. The first use of a font says so
/// as well, once.
std::vector<std::string> missing_families();

}  // namespace qt_backend
