#pragma once
// Runs ceph inside the test's process.

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "apps/ceph/program.h"

namespace support {

/// What a stream receives during the lifetime.
class CapturedStream {
 public:
  explicit CapturedStream(std::ostream &stream) : stream_(stream), before_(stream.rdbuf(text_.rdbuf())) {}
  ~CapturedStream() { stream_.rdbuf(before_); }
  CapturedStream(const CapturedStream &) = delete;
  CapturedStream &operator=(const CapturedStream &) = delete;
  std::string text() const { return text_.str(); }

 private:
  std::ostream &stream_;
  std::ostringstream text_;
  std::streambuf *before_;
};

struct ProgramOutcome {
  int exit_code;
  std::string out;
  std::string err;
};

inline ProgramOutcome run_ceph(const std::vector<std::string> &arguments) {
  std::vector<const char *> argv{"ceph"};
  for (const std::string &argument : arguments) argv.push_back(argument.c_str());
  const CapturedStream out(std::cout), err(std::cerr);
  const int code = app::run_program(static_cast<int>(argv.size()), argv.data());
  return {code, out.text(), err.text()};
}

}  // namespace support
