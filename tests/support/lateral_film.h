#pragma once
// A lateral tracing of an adult, face to the right, 0.1 mm per pixel, with every landmark in a plausible
// place.

#include "tool/analysis/landmarks.h"
#include "tool/analysis/records.h"

namespace support {

inline tagPOINTLAT lateral_film() {
  using namespace analysis::lateral;
  struct Placed {
    Landmark landmark;
    POINT position;
  };
  tagPOINTLAT film{};
  film.scale = 0.1;
  for (const Placed &point :
       {Placed{S, {900, 800}},      Placed{N, {1593, 702}},     Placed{SB, {960, 830}},
        Placed{Or, {1512, 1003}},   Placed{ANS, {1600, 1212}},  Placed{A, {1571, 1267}},
        Placed{U1C, {1602, 1408}},  Placed{U1, {1618, 1495}},   Placed{U1R, {1523, 1258}},
        Placed{L1, {1592, 1481}},   Placed{L1R, {1498, 1684}},  Placed{L1C, {1584, 1525}},
        Placed{B, {1524, 1673}},    Placed{PM, {1527, 1722}},   Placed{PogR, {1541, 1789}},
        Placed{Pog, {1543, 1795}},  Placed{Gn, {1521, 1842}},   Placed{Me, {1483, 1858}},
        Placed{GoL, {912, 1610}},   Placed{Go, {871, 1562}},    Placed{GoP, {852, 1498}},
        Placed{Ar, {801, 1103}},    Placed{DC, {803, 1021}},    Placed{Cd, {812, 992}},
        Placed{Po, {752, 1012}},    Placed{Ba, {722, 1188}},    Placed{PT, {1098, 1001}},
        Placed{Ptm, {1092, 1048}},  Placed{PNS, {1089, 1223}},  Placed{Xi, {929, 1389}},
        Placed{UMoD, {1203, 1452}}, Placed{UMo, {1274, 1458}},  Placed{PMo, {1390, 1470}},
        Placed{LMo, {1289, 1447}},  Placed{LMoD, {1233, 1439}}, Placed{Ns, {1652, 711}},
        Placed{TN, {1787, 1123}},   Placed{SN, {1702, 1215}},   Placed{TUL, {1722, 1364}},
        Placed{Sto, {1691, 1432}},  Placed{TLL, {1698, 1521}},  Placed{TC, {1652, 1801}},
        Placed{D, {1487, 1767}},    Placed{CdE, {776, 1042}},   Placed{UMoR, {1262, 1297}},
        Placed{LMoR, {1248, 1602}}, Placed{PTV, {1068, 1051}},  Placed{Gl, {1682, 611}},
        Placed{Mes, {1481, 1908}},  Placed{Pogs, {1593, 1825}}, Placed{Vmi, {1678, 1541}}})
    film.pt[analysis::first_landmark_entry + point.landmark] = point.position;
  return film;
}

}  // namespace support
