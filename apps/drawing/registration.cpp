#include "apps/drawing/registration.h"

#include "apps/common/names.h"
#include "apps/drawing/lateral_scene.h"
#include "tool/analysis/landmarks.h"

namespace app {
namespace {

unsigned landmark_number(std::string_view name, const std::string &whole) {
  if (const auto k = analysis::find_landmark(analysis::RecordKind::lateral, name))
    return static_cast<unsigned>(*k);
  throw InputError("unknown landmark " + in_quotes(name), "--on " + printable(whole),
                   suggest(name, analysis::lateral_landmarks));
}

}  // namespace

Registration parse_registration(const std::string &text) {
  const std::size_t at = text.find('@');
  const std::string line = text.substr(0, at);
  const std::size_t dash = line.find('-');
  if (dash == std::string::npos)
    throw InputError("not a reference line", "--on " + printable(text),
                     "two landmarks as in S-N or ANS-PNS@A");
  const std::string from = line.substr(0, dash), to = line.substr(dash + 1);
  Registration result{text, 0, {landmark_number(from, text), landmark_number(to, text)}, 0};
  result.at = at == std::string::npos ? result.line[0] : landmark_number(text.substr(at + 1), text);
  if (result.line[0] == result.line[1])
    throw InputError("a line needs two landmarks", "--on " + printable(text), "for instance S-N");
  if (line == "Ba-N" && at == std::string::npos) result.mode = 1;
  return result;
}

void require_landmarks(const TracingFile &tracing, const Registration &registration) {
  namespace mark = analysis::lateral;
  std::vector<unsigned> needed{registration.line[0], registration.line[1], registration.at};
  if (registration.mode == 1) needed = {mark::Ba, mark::N, mark::PT, mark::GoL, mark::Me, mark::PogR};
  for (const unsigned k : needed)
    if (!is_placed(lateral_landmark(*tracing.lateral(), static_cast<int>(k))))
      throw InputError("the point " + std::string(analysis::lateral_landmarks[k]) + " is not placed",
                       tracing.id.empty() ? "--on " + registration.name : tracing.id,
                       "every point that --on " + registration.name + " needs");
}

CPoint Placement::on_first_film(CPoint second) const {
  return CCalcTool::Point_Make(0, 0, &base, own.x, own.y, second, 1.0, angle, factor, 0, 0, 0.0, 1, 0,
                               nullptr);
}

Placement registered(const tagPOINTLAT &first, const tagPOINTLAT &second, const Registration &on) {
  tagPOINTLAT a = first;
  tagPOINTLAT b = second;
  POINT *const points_a = &a.pt[analysis::first_landmark_entry];
  POINT *const points_b = &b.pt[analysis::first_landmark_entry];
  Placement place;
  double angle = 0;
  const unsigned from = on.line[0], to = on.line[1], at = on.at;
  CCalcTool::Get_Profiro_Status(points_a, &angle, &place.base.x, &place.base.y, 1, on.mode, from, to, at, at,
                                &b);
  CCalcTool::Get_Org(points_b, &place.own, on.mode, from, to, at, at);
  // The angle is that of the second line against the first; drawing turns the other way.
  place.angle = -angle;
  place.factor = b.scale / a.scale;
  return place;
}

}  // namespace app
