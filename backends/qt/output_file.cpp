#include "backends/qt/output_file.h"

#include <QFileInfo>
#include <QSaveFile>

#include "backends/qt/conversions.h"

namespace qt_backend {

bool OutputFile::open() {
  const QFileInfo target(utf8_to_qt(path_));
  if (target.exists() && !target.isFile()) {
    reason_ = target.isDir() ? "it is a folder" : "it is no plain file";
    return false;
  }
  QSaveFile trial(target.filePath());
  if (!trial.open(QIODevice::WriteOnly)) {
    reason_ = trial.errorString().toStdString();
    return false;
  }
  trial.cancelWriting();
  return content_.open(QIODevice::WriteOnly);
}

bool OutputFile::commit() {
  content_.close();
  QSaveFile file(utf8_to_qt(path_));
  // Qt's own commit overlooks that its last flush failed.
  const bool whole =
      file.open(QIODevice::WriteOnly) && file.write(content_.data()) == content_.size() && file.flush();
  if (!whole) {
    reason_ = file.errorString().toStdString();
    file.cancelWriting();
    return false;
  }
  if (file.commit()) return true;
  reason_ = file.errorString().toStdString();
  return false;
}

}  // namespace qt_backend
