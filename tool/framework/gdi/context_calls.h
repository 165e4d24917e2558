#pragma once
// For the files that implement CDC.

#include "tool/framework/gdi/CDC.h"
#include "tool/framework/gdi/device_context.h"

/// Changes the output context and, where it is another one, the attribute context, whose answer counts.
template <typename Change>
auto CDC::change_both(Change change) {
  framework::DeviceContext &output = context();
  framework::DeviceContext &questions = attributes();
  auto result = change(output);
  if (&questions != &output) result = change(questions);
  return result;
}
