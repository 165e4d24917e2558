#pragma once
// The patient in one line, for the head of a picture.

#include <string>

#include "apps/common/tracing_file.h"

namespace app {

/// Name, sex, age and date of the film as far as they are known, UTF-8.
std::string patient_line(const TracingFile &tracing);

}  // namespace app
