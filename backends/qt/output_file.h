#pragma once
// A file that appears when it is complete, or not at all. Private to the back end.

#include <QSaveFile>
#include <string>

#include "backends/qt/conversions.h"

namespace qt_backend {

/// Written beside its place and moved there by commit().
class OutputFile {
 public:
  explicit OutputFile(const std::string &path_utf8) : path_(path_utf8), file_(utf8_to_qt(path_utf8)) {}

  bool open() { return file_.open(QIODevice::WriteOnly); }
  bool commit() { return file_.commit(); }
  QSaveFile &device() { return file_; }
  /// In words that a user understands.
  std::string reason() const { return "cannot write " + path_ + ": " + file_.errorString().toStdString(); }

 private:
  std::string path_;
  QSaveFile file_;
};

}  // namespace qt_backend
