#pragma once
// How the program ends. docs/ceph.md explains the codes to its users.

#include <stdexcept>
#include <string>

namespace app {

enum class ExitCode : int {
  done = 0,
  negative =
      1,      ///< the answer is no: a value asked for cannot be formed, faults were found, lines were skipped
  usage = 2,  ///< the command line is wrong, or names an analysis or item that does not exist
  bad_input = 3,   ///< a tracing file cannot be read
  bad_data = 4,    ///< the analysis-item folder or one of its files cannot be read
  bad_output = 5,  ///< the result cannot be written
};

/// Ends the program with a message: "what; where; what would be right".
class CommandError : public std::runtime_error {
 public:
  CommandError(ExitCode code, const std::string &message) : std::runtime_error(message), code_(code) {}
  ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

}  // namespace app
