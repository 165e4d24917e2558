#pragma once
// A lateral tracing of an adult, face to the right, 0.1 mm per pixel, with every landmark in a plausible
// place.

#include "tool/analysis/landmarks.h"
#include "tool/analysis/records.h"

namespace support {

inline tagPOINTLAT lateral_film() {
  using namespace analysis::lateral;
  tagPOINTLAT film{};
  film.scale = 0.1;
  const auto place = [&](Landmark k, int x, int y) { film.pt[analysis::first_landmark_entry + k] = {x, y}; };
  place(S, 900, 800);
  place(N, 1593, 702);
  place(SB, 960, 830);
  place(Or, 1512, 1003);
  place(ANS, 1600, 1212);
  place(A, 1571, 1267);
  place(U1C, 1602, 1408);
  place(U1, 1618, 1495);
  place(U1R, 1523, 1258);
  place(L1, 1592, 1481);
  place(L1R, 1498, 1684);
  place(L1C, 1584, 1525);
  place(B, 1524, 1673);
  place(PM, 1527, 1722);
  place(PogR, 1541, 1789);
  place(Pog, 1543, 1795);
  place(Gn, 1521, 1842);
  place(Me, 1483, 1858);
  place(GoL, 912, 1610);
  place(Go, 871, 1562);
  place(GoP, 852, 1498);
  place(Ar, 801, 1103);
  place(DC, 803, 1021);
  place(Cd, 812, 992);
  place(Po, 752, 1012);
  place(Ba, 722, 1188);
  place(PT, 1098, 1001);
  place(Ptm, 1092, 1048);
  place(PNS, 1089, 1223);
  place(Xi, 929, 1389);
  place(UMoD, 1203, 1452);
  place(UMo, 1274, 1458);
  place(PMo, 1390, 1470);
  place(LMo, 1289, 1447);
  place(LMoD, 1233, 1439);
  place(Ns, 1652, 711);
  place(TN, 1787, 1123);
  place(SN, 1702, 1215);
  place(TUL, 1722, 1364);
  place(Sto, 1691, 1432);
  place(TLL, 1698, 1521);
  place(TC, 1652, 1801);
  place(D, 1487, 1767);
  place(CdE, 776, 1042);
  place(UMoR, 1262, 1297);
  place(LMoR, 1248, 1602);
  place(PTV, 1068, 1051);
  place(Gl, 1682, 611);
  place(Mes, 1481, 1908);
  place(Pogs, 1593, 1825);
  place(Vmi, 1678, 1541);
  return film;
}

}  // namespace support
