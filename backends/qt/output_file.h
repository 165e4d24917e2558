#pragma once
// A file that appears when it is complete, or not at all. Private to the back end.

#include <QBuffer>
#include <string>

namespace qt_backend {

class OutputFile {
 public:
  explicit OutputFile(std::string path_utf8) : path_(std::move(path_utf8)) {}

  /// False when the file could not be written here: there is no such folder, no right to write, a folder,
  /// pipe or device of this name, which the complete file would replace. Nothing is left behind.
  bool open();
  /// Takes what is to be in the file, in memory: of a failed write of its own, a painter tells nobody.
  QIODevice &content() { return content_; }
  /// Writes the content beside the file's place and moves it there.
  bool commit();
  /// What failed, in words that a user understands.
  std::string reason() const { return "cannot write " + path_ + ": " + reason_; }

 private:
  std::string path_;
  std::string reason_;
  QBuffer content_;
};

}  // namespace qt_backend
