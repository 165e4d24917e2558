#pragma once
// Runs the built program as its users do.

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>

namespace test {

struct Outcome {
  int exit_code;
  std::string out, err;
};

inline std::string shell_word(const std::string &text) {
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return word + "'";
}

inline std::string read_file(const std::string &path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

/// A folder of its own that goes away with the object.
class Scratch {
 public:
  Scratch() {
    std::string name = (std::filesystem::temp_directory_path() / "ceph_test_XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  Scratch(const Scratch &) = delete;
  Scratch &operator=(const Scratch &) = delete;

  std::string path(const std::string &name) const { return folder_ + '/' + name; }
  std::string write(const std::string &name, const std::string &text) const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }

 private:
  std::string folder_;
};

/// `redirection` is shell text after the command, for instance "< file".
inline Outcome run_ceph(std::initializer_list<std::string> words, const std::string &redirection = "",
                        const std::string &environment = "") {
  const Scratch scratch;
  const std::string out = scratch.path("out"), err = scratch.path("err");
  std::string command = environment + " " + shell_word(CEPH_PROGRAM);
  for (const std::string &word : words) command += ' ' + shell_word(word);
  command += " >" + shell_word(out) + " 2>" + shell_word(err) + ' ' + redirection;
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_file(out), read_file(err)};
}

inline std::string sample(const std::string &name) {
  return TOOL_SOURCE_DIR "/data/samples/" + name;
}
inline std::string data() {
  return TOOL_SOURCE_DIR "/data/ANAITEM";
}

}  // namespace test
