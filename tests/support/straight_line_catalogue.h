#pragma once
// The 148 lateral measurements written out one after another with school geometry: angles by atan2, feet by
// the dot product. It shares no code with the library, so that tests can compare values and benchmarks can
// compare cost. Only for tracings without degenerate lines: what the library promises there is tested
// separately.

#include <array>
#include <cmath>

#include "tool/analysis/records.h"

namespace support {

struct Spot {
  double x, y;
};

inline double distance(Spot p, Spot q) {
  const double dx = q.x - p.x, dy = q.y - p.y;
  return std::sqrt(dx * dx + dy * dy);
}

/// The shortest way to each construction. Not for degenerate lines.
struct SchoolGeometry {
  /// Counter-clockwise on the screen from p-q to r-t, degrees.
  static double turn(Spot p, Spot q, Spot r, Spot t) {
    const double ux = q.x - p.x, uy = q.y - p.y, vx = t.x - r.x, vy = t.y - r.y;
    return std::atan2(uy * vx - ux * vy, ux * vx + uy * vy) * (180.0 / 3.14159265358979323846);
  }
  static Spot foot(Spot p, Spot q, Spot r) {
    const double dx = r.x - q.x, dy = r.y - q.y;
    const double share = ((p.x - q.x) * dx + (p.y - q.y) * dy) / (dx * dx + dy * dy);
    return {q.x + share * dx, q.y + share * dy};
  }
  static Spot crossing(Spot p, Spot q, Spot r, Spot t) {
    const double ux = q.x - p.x, uy = q.y - p.y, vx = t.x - r.x, vy = t.y - r.y;
    const double share = ((r.x - p.x) * vy - (r.y - p.y) * vx) / (ux * vy - uy * vx);
    return {p.x + share * ux, p.y + share * uy};
  }
};

/// The foot in whole pixels: as it is for upright and level lines, else half a pixel added and cut.
template <class Geometry>
Spot pixel_foot(Spot p, Spot q, Spot r) {
  if (q.x == r.x) return {q.x, p.y};
  if (q.y == r.y) return {p.x, q.y};
  const Spot f = Geometry::foot(p, q, r);
  return {std::trunc(f.x + 0.5), std::trunc(f.y + 0.5)};
}

inline Spot pixel_middle(Spot p, Spot q) {
  return {p.x + std::trunc((q.x - p.x) / 2), p.y + std::trunc((q.y - p.y) / 2)};
}

inline double ahead(Spot p, Spot f, double scale) {
  return (f.x > p.x ? -1 : 1) * distance(p, f) * scale;
}

/// Every item in the order of the catalogue.
template <class Geometry>
std::array<double, 148> straight_line_catalogue(const tagPOINTLAT &film, bool negate_ans_pns) {
  constexpr auto turn = Geometry::turn;
  constexpr auto foot = Geometry::foot;
  constexpr auto crossing = Geometry::crossing;
  constexpr auto pixel_foot = support::pixel_foot<Geometry>;
  const auto at = [&](int k) {
    return Spot{static_cast<double>(film.pt[8 + k].x), static_cast<double>(film.pt[8 + k].y)};
  };
  const Spot S = at(0), N = at(1), Or = at(3), ANS = at(4), A = at(5), U1C = at(6), U1 = at(7), U1R = at(8);
  const Spot L1 = at(9), L1R = at(10), L1C = at(11), B = at(12), PM = at(13), PogR = at(14), Pog = at(15);
  const Spot Gn = at(16), Me = at(17), GoL = at(18), Go = at(19), GoP = at(20), Ar = at(21), DC = at(22);
  const Spot Cd = at(23), Po = at(24), Ba = at(25), PT = at(26), Ptm = at(27), PNS = at(28), Xi = at(29);
  const Spot UMoD = at(30), UMo = at(31), LMo = at(33), TN = at(36), TUL = at(38), TLL = at(40), TC = at(41);
  const Spot D = at(42), CdE = at(43);
  const double s = film.scale;
  const double fh = negate_ans_pns ? -1 : 1;
  std::array<double, 148> v;
  double *o = v.data();

  // 0: lengths
  o[0] = distance(S, N) * s;
  o[1] = distance(N, ANS) * s;
  o[2] = distance(ANS, Me) * s;
  o[3] = distance(N, Me) * s;
  o[4] = distance(pixel_foot(S, PNS, ANS), pixel_foot(Ptm, PNS, ANS)) * s;
  o[5] = distance(pixel_foot(A, PNS, ANS), pixel_foot(Ptm, PNS, ANS)) * s;
  o[6] = distance(pixel_foot(Ptm, PNS, ANS), pixel_foot(UMo, PNS, ANS)) * s;
  o[7] = distance(pixel_foot(A, PNS, ANS), pixel_foot(UMo, PNS, ANS)) * s;
  o[8] = distance(U1, pixel_foot(U1, PNS, ANS)) * s;
  o[9] = distance(UMo, pixel_foot(UMo, PNS, ANS)) * s;
  o[10] = distance(U1, UMo) * s;
  o[11] = distance(Cd, Gn) * s;
  o[12] = distance(Go, pixel_foot(Pog, GoL, Me)) * s;
  o[13] = distance(Cd, Go) * s;
  o[14] = distance(L1, pixel_foot(L1, GoL, Me)) * s;
  o[15] = distance(LMo, pixel_foot(LMo, GoL, Me)) * s;
  o[16] = distance(L1, LMo) * s;
  o += 17;

  // 1: angles
  o[0] = turn(Or, Po, N, Pog);
  o[1] = turn(A, Pog, N, A);
  o[2] = -turn(B, A, Pog, N);
  o[3] = turn(S, Gn, Po, Or);
  o[4] = turn(Po, Or, S, N);
  o[5] = turn(N, S, N, A);
  o[6] = turn(N, S, N, B);
  o[7] = o[5] - o[6];
  o[8] = turn(N, S, N, Pog);
  o[9] = turn(PNS, ANS, S, N);
  o[10] = fh * turn(Or, Po, ANS, PNS);
  o[11] = turn(GoL, Me, S, N);
  o[12] = turn(GoL, Me, Po, Or);
  o[13] = turn(Ar, GoP, S, N);
  o[14] = turn(Ar, GoP, Po, Or);
  o[15] = turn(GoL, Me, GoP, Ar);
  o[16] = turn(N, S, U1R, U1);
  o[17] = turn(Or, Po, U1R, U1);
  o[18] = turn(L1R, L1, Me, GoL);
  o[19] = turn(U1R, U1, L1R, L1);
  const Spot Mi = pixel_middle(L1, U1), Mm = pixel_middle(LMo, UMo);
  o[20] = turn(Mm, Mi, S, N);
  o[21] = turn(Mm, Mi, Po, Or);
  o += 22;

  // 2: facial axis and its kin
  o[0] = turn(N, Ba, PT, crossing(N, PogR, Me, GoL));
  o[1] = turn(Or, Po, N, PogR);
  o[2] = turn(GoL, Me, Po, Or);
  o[3] = turn(Xi, PM, Xi, ANS);
  o[4] = turn(Xi, DC, PM, Xi);
  o[5] = turn(Xi, PM, Ba, N);
  o[6] = ahead(A, pixel_foot(A, N, PogR), s);
  o[7] = ahead(L1, pixel_foot(L1, A, PogR), s);
  o[8] = turn(L1, L1R, A, PogR);
  const Spot CF = pixel_foot(PT, Po, Or);
  o[9] = distance(UMoD, pixel_foot(UMoD, PT, CF)) * s;
  o[10] = ahead(TLL, pixel_foot(TLL, TN, TC), s);
  o[11] = turn(Po, Or, Ba, N);
  o[12] = distance(N, crossing(Ba, N, PT, Gn)) * s;
  o[13] = distance(crossing(GoL, Me, Ar, GoP), foot(PT, Po, Or)) * s;
  o[14] = turn(Or, Po, CF, Xi);
  o[15] = -distance(Po, CF) * s;
  o[16] = distance(Xi, PM) * s;
  const Spot below_nasion = pixel_foot(N, Po, Or);
  o[17] = ahead(A, pixel_foot(A, N, below_nasion), s);
  o[18] = ahead(PogR, pixel_foot(PogR, N, below_nasion), s);
  o += 19;

  // 3: from the articulare
  o[0] = turn(Ar, Gn, Po, Or);
  o[1] = fh * turn(Or, Po, ANS, PNS);
  o[2] = turn(GoL, Me, Po, Or);
  o[3] = turn(PNS, Ar, ANS, PNS);
  o[4] = turn(GoL, Me, GoP, Ar);
  o[5] = -turn(UMo, U1, UMo, L1);
  o[6] = turn(UMo, U1, Po, Or);
  o[7] = turn(UMo, L1, Po, Or);
  o[8] = turn(Ar, UMo, Ar, PNS);
  o[9] = turn(Ar, Go, Ar, UMo);
  o[10] = turn(Ar, U1, Ar, ANS);
  o[11] = turn(Ar, Gn, Ar, L1);
  o += 12;

  // 4: against N-A and N-B
  o[0] = turn(N, S, N, A);
  o[1] = turn(N, S, N, B);
  o[2] = o[0] - o[1];
  o[3] = turn(N, S, N, D);
  o[4] = ahead(U1C, pixel_foot(U1C, N, A), s);
  o[5] = turn(N, A, U1R, U1);
  o[6] = ahead(L1C, pixel_foot(L1C, N, B), s);
  o[7] = turn(L1R, L1, B, N);
  o[8] = ahead(Pog, pixel_foot(Pog, N, B), s);
  o[9] = turn(U1, U1R, L1, L1R);
  o[10] = turn(Mm, Mi, S, N);
  o[11] = turn(Go, Gn, S, N);
  o[12] = distance(S, pixel_foot(Pog, S, N)) * s;
  o[13] = ahead(S, pixel_foot(CdE, S, N), s);
  o[14] = turn(GoL, Me, Po, Or);
  o[15] = turn(L1R, L1, Me, GoL);
  o[16] = turn(Or, Po, L1, L1R);
  o += 17;

  // 5: profile and denture
  o[0] = turn(Pog, A, A, N);
  o[1] = turn(N, S, N, A);
  o[2] = turn(N, S, N, B);
  o[3] = o[1] - o[2];
  o[4] = turn(Go, Gn, S, N);
  o[5] = turn(Or, Po, N, Pog);
  o[6] = turn(GoL, Me, Po, Or);
  o[7] = turn(S, Gn, Po, Or);
  o[8] = turn(N, S, N, Gn);
  o[9] = turn(S, N, U1, U1R);
  o[10] = turn(U1, U1R, L1, L1R);
  o[11] = turn(L1R, L1, Gn, Go);
  const Spot Mi_back = pixel_middle(U1, L1), Mm_back = pixel_middle(UMo, LMo);
  o[12] = turn(Mi_back, Mm_back, L1, L1R);
  o[13] = turn(Mm_back, Mi_back, B, A);
  o[14] = ahead(U1, pixel_foot(U1, N, Pog), s);
  o += 15;

  // 6: dysplasia indicators
  o[0] = turn(Or, Po, N, Pog);
  o[1] = -turn(B, A, Pog, N);
  o[2] = turn(PNS, ANS, Po, Or);
  o[3] = turn(B, A, Me, GoL);
  o[4] = turn(U1, U1R, L1, L1R);
  o[5] = ahead(TUL, pixel_foot(TUL, TN, TC), s);
  o[6] = ahead(TLL, pixel_foot(TLL, TN, TC), s);
  o[7] = o[0] + o[1] + o[2];
  o[8] = o[2] + o[3];
  o[9] = o[7] + o[8];
  o[10] = o[9] - (130 - o[4]) / 5 - (o[5] + o[6]);
  o += 11;

  // 7: polygon
  o[0] = turn(S, Ar, S, N);
  o[1] = turn(Ar, GoP, Ar, S);
  o[2] = turn(GoL, Me, GoP, Ar);
  o[3] = o[0] + o[1] + o[2];
  o[4] = distance(S, N) * s;
  o[5] = distance(S, Ar) * s;
  o[6] = turn(Go, N, Go, Ar);
  o[7] = turn(Go, Me, Go, N);
  const Spot ramus_go = crossing(Ar, GoP, Me, GoL);
  o[8] = distance(Ar, ramus_go) * s;
  o[9] = distance(Me, ramus_go) * s;
  o[10] = o[9] / o[4];
  o[11] = turn(N, S, N, A);
  o[12] = turn(N, S, N, B);
  o[13] = o[11] - o[12];
  o[14] = turn(GoL, Me, S, N);
  o[15] = turn(S, Gn, S, N);
  o[16] = distance(S, ramus_go) * s;
  o[17] = distance(N, Me) * s;
  o[18] = o[16] / o[17];
  o[19] = turn(N, S, N, Pog);
  o[20] = turn(N, A, A, Pog);
  o[21] = turn(GoL, Me, {(LMo.x + UMo.x) / 2, (LMo.y + UMo.y) / 2}, {(L1.x + U1.x) / 2, (L1.y + U1.y) / 2});
  o[22] = turn(U1R, U1, L1R, L1);
  o[23] = turn(L1R, L1, Me, GoL);
  o[24] = distance(L1, foot(L1, GoL, Me)) * s;
  o[25] = turn(N, S, U1R, U1);
  o[26] = ahead(U1, foot(U1, N, Pog), s);
  o[27] = ahead(L1, foot(L1, N, Pog), s);
  o[28] = ahead(TLL, foot(TLL, TN, TC), s);
  o[29] = ahead(TUL, foot(TUL, TN, TC), s);
  o += 30;

  // 8: effective lengths
  o[0] = distance(ANS, Me) * s;
  o[1] = distance(Cd, A) * s;
  o[2] = distance(Cd, Gn) * s;
  o[3] = o[2] - o[1];
  const Spot AO = pixel_foot(A, Mi_back, Mm_back), BO = pixel_foot(B, Mi_back, Mm_back);
  o[4] = (BO.x < AO.x ? 1 : -1) * distance(AO, BO) * s;
  return v;
}

}  // namespace support
