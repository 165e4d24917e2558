#include "tool/analysis/frontal_catalogue.h"

#include <cmath>
#include <cstddef>

#include "tool/analysis/landmarks.h"
#include "tool/geometry/angles.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"

namespace analysis {

namespace {

using namespace frontal;

constexpr const char *names[frontal_catalogue_size] = {
    "Molar relation, left (L6L to U6L along 6R-6L)",
    "Molar relation, right (L6R to U6R along 6R-6L)",
    "Lower intermolar width (L6R to L6L along 6R-6L)",
    "Lower intercanine width (L3R to L3L)",
    "Dental midline discrepancy (UMid to LMid along 6R-6L)",
    "Maxillomandibular width, left (JL to AGL-ZL)",
    "Maxillomandibular width, right (JR to AGR-ZR)",
    "Maxillomandibular midline (ANS-Me to ZR-ZL)",
    "Lower molar to jaw, left (L6L to JL-AGL)",
    "Lower molar to jaw, right (L6R to JR-AGR)",
    "Lower midline to jaw midline (LMid to ANS-Me)",
    "Occlusal plane tilt (ZR and ZL to 6R-6L, difference)",
    "Postural symmetry (ZAR-AGR-ZR and ZAL-AGL-ZL, difference)",
    "Nasal width (NCR to NCL)",
    "Nasal height (ANS to ZR-ZL)",
    "Maxillary width (JR to JL)",
    "Mandibular width (AGR to AGL)",
    "Facial width (ZAR to ZAL)",
};

/// One tracing with the operations that the catalogue is made of.
class Film {
 public:
  explicit Film(const tagPOINTPA &record)
      : landmarks_(record.pt + first_landmark_entry), scale_(record.scale) {}

  double length(Landmark p, Landmark q) const {
    return geometry::integer_length(landmarks_[p], landmarks_[q], scale_);
  }
  double off_line(Landmark p, Landmark a, Landmark b) const { return off_line(at(p), a, b); }
  /// Along the line of the molars, positive toward the left side of the patient.
  double along_molars(Landmark p, Landmark q, bool with_sign) const {
    return geometry::projected_length(at(SixR), at(SixL), at(p), at(q), scale_, with_sign);
  }
  double foot_on_molars_off_line(Landmark p, Landmark a, Landmark b) const {
    return off_line(geometry::foot(at(SixR), at(SixL), at(p)), a, b);
  }
  double angle(Landmark a1, Landmark a2, Landmark b1, Landmark b2) const {
    return geometry::signed_angle(at(a1), at(a2), at(b1), at(b2));
  }
  double angle_at(Landmark a, Landmark vertex, Landmark c) const {
    return geometry::angle_at(at(a), at(vertex), at(c));
  }

 private:
  CPointD at(Landmark k) const { return CPoint(landmarks_[k]); }
  double off_line(const CPointD &p, Landmark a, Landmark b) const {
    return geometry::distance_to_line(at(a), at(b), p, scale_);
  }

  const POINT *landmarks_;
  double scale_;
};

}  // namespace

double frontal_catalogue(const tagPOINTPA &record, int item) {
  const Film film(record);
  switch (item) {
    case 0:
      return film.along_molars(L6L, U6L, true);
    case 1:
      return film.along_molars(U6R, L6R, true);
    case 2:
      return film.along_molars(L6R, L6L, false);
    case 3:
      return film.length(L3R, L3L);
    case 4:
      return film.along_molars(UMid, LMid, false);
    case 5:
      return film.off_line(JL, AGL, ZL);
    case 6:
      return film.off_line(JR, AGR, ZR);
    case 7:
      return film.angle(ANS, Me, ZR, ZL);
    case 8:
      return film.foot_on_molars_off_line(L6L, JL, AGL);
    case 9:
      return film.foot_on_molars_off_line(L6R, JR, AGR);
    case 10:
      return film.off_line(LMid, ANS, Me);
    case 11:
      return std::abs(film.off_line(ZR, SixR, SixL) - film.off_line(ZL, SixR, SixL));
    case 12:
      return std::abs(film.angle_at(ZAR, AGR, ZR) - film.angle_at(ZAL, AGL, ZL));
    case 13:
      return film.length(NCR, NCL);
    case 14:
      return film.off_line(ANS, ZR, ZL);
    case 15:
      return film.length(JR, JL);
    case 16:
      return film.length(AGR, AGL);
    case 17:
      return film.length(ZAR, ZAL);
    default:
      return 0.0;
  }
}

const char *frontal_catalogue_name(int item) {
  return item >= 0 && item < frontal_catalogue_size ? names[item] : nullptr;
}

bool frontal_catalogue_is_angle(int item) {
  return item == 7 || item == 12;
}

}  // namespace analysis
