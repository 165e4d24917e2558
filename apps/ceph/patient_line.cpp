#include "apps/ceph/patient_line.h"

#include "apps/ceph/patient_report.h"

namespace app {

std::string patient_line(const TracingFile &tracing) {
  std::string line;
  for (const Fact &fact : PatientContext(tracing, PatientOptions{}).facts()) {
    if (fact.key == "scale" || fact.key == "magnification") continue;
    if (!line.empty()) line += ", ";
    line += fact.key == "film" ? "film " + fact.text : fact.text;
  }
  return line;
}

}  // namespace app
