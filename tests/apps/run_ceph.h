#pragma once
// Runs the built program as its users do.

#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace support {

struct Outcome {
  int exit_code;
  std::string out, err;
};

inline std::string shell_word(const std::string &text) {
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return word + "'";
}

/// The exit code of shell text; -1 when it ends by a signal.
inline int run_shell(const std::string &text) {
  // NOLINTNEXTLINE(cert-env33-c): pipes and redirections are what is tested
  const int status = std::system(text.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// `redirection` is shell text behind the command, `environment` before it.
inline Outcome run_ceph(const std::vector<std::string> &words, const std::string &redirection = "",
                        const std::string &environment = "") {
  const TemporaryFolder folder;
  std::string command = environment + " " + shell_word(CEPH_PROGRAM);
  for (const std::string &word : words) command += ' ' + shell_word(word);
  command +=
      " >" + shell_word(folder.path("out")) + " 2>" + shell_word(folder.path("err")) + ' ' + redirection;
  const int code = run_shell(command);
  return {code, folder.read("out"), folder.read("err")};
}

inline std::string sample(const std::string &name) {
  return TOOL_SOURCE_DIR "/data/samples/" + name;
}

}  // namespace support
