#pragma once
// Texts that a reader of tracings must refuse, naming the fault, its place and what would be right.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "apps/common/tracing_file.h"

namespace support {

struct RefusedText {
  std::string text;
  const char *fault, *where, *right;  ///< parts of the three
};

template <typename Read>
void expect_refused(Read read, std::span<const RefusedText> rows) {
  for (const RefusedText &row : rows) {
    SCOPED_TRACE(row.text.substr(0, 300));
    try {
      read(row.text);
      ADD_FAILURE() << "was read";
    } catch (const app::InputError &error) {
      EXPECT_THAT(error.fault(), testing::HasSubstr(row.fault));
      EXPECT_THAT(error.where(), testing::HasSubstr(row.where));
      EXPECT_THAT(error.right(), testing::HasSubstr(row.right));
    }
  }
}

}  // namespace support
