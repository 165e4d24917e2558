#include "tool/framework/files/CFile.h"

#include <cerrno>

#include "tool/framework/files/attributes.h"
#include "tool/framework/files/file_system.h"
#include "tool/framework/files/last_error.h"
#include "tool/framework/files/native_path.h"

namespace {

using framework::FileStatus;
using framework::OpenMode;
using framework::SeekFrom;

CFileException error_for(int reason, const CString &path) {
  SetLastError(static_cast<DWORD>(reason));
  return CFileException(CFileException::OsErrorToCause(reason), reason, path.str());
}

[[noreturn]] void fail(int reason, const CString &path) {
  throw error_for(reason, path);
}

OpenMode open_mode(UINT flags) {
  const UINT access = flags & 3U;
  OpenMode mode;
  mode.read = access != CFile::modeWrite;
  mode.write = access != CFile::modeRead;
  mode.create = (flags & CFile::modeCreate) != 0;
  mode.truncate = mode.create && (flags & CFile::modeNoTruncate) == 0;
  return mode;
}

SeekFrom seek_origin(UINT from) {
  return from == CFile::begin ? SeekFrom::begin : from == CFile::current ? SeekFrom::current : SeekFrom::end;
}

/// Opens and refuses folders; -1 with errno set.
int open_file(const char *path, UINT flags) {
  const OpenMode mode = open_mode(flags);
  const std::string native =
      mode.create ? framework::native_path_for_writing(path) : framework::native_path(path);
  const int handle = framework::file_system().open(native.c_str(), mode);
  if (handle < 0) return -1;
  const auto status = framework::file_system().status(handle);
  if (status && !status->is_folder) return handle;
  framework::file_system().close(handle);
  errno = EISDIR;
  return -1;
}

CFileStatus translated(const FileStatus &status, const char *path) {
  CFileStatus result;
  result.m_ctime = status.changed;
  result.m_mtime = status.modified;
  result.m_atime = status.accessed;
  result.m_size = status.size;
  result.m_attribute = static_cast<BYTE>(framework::attributes_of(status, path) & 0x3FU);
  result.m_szFullName = path;
  return result;
}

}  // namespace

CFile::CFile(const char *path, UINT flags) {
  CFileException error;
  if (!CFile::Open(path, flags, &error)) throw CFileException(error);
}

CFile::~CFile() {
  CFile::Abort();
}

BOOL CFile::Open(const char *path, UINT flags, CFileException *error) {
  Abort();
  path_ = path;
  handle_ = open_file(path_, flags);
  if (handle_ >= 0) return TRUE;
  const CFileException reason = error_for(errno, path_);
  if (error) *error = reason;
  return FALSE;
}

void CFile::Close() {
  const int handle = handle_;
  handle_ = -1;
  if (handle >= 0 && !framework::file_system().close(handle)) fail(errno, path_);
}

void CFile::Abort() {
  if (handle_ >= 0) framework::file_system().close(handle_);
  handle_ = -1;
}

UINT CFile::Read(void *data, UINT size) {
  if (size == 0) return 0;
  const std::ptrdiff_t count = framework::read_fully(handle_, data, size);
  if (count < 0) fail(errno, path_);
  return static_cast<UINT>(count);
}

void CFile::Write(const void *data, UINT size) {
  if (size > 0 && !framework::write_fully(handle_, data, size)) fail(errno, path_);
}

void CFile::Flush() {
  if (handle_ >= 0 && !framework::file_system().flush(handle_)) fail(errno, path_);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from) {
  const std::int64_t position = framework::file_system().seek(handle_, offset, seek_origin(from));
  if (position < 0) fail(errno, path_);
  return static_cast<ULONGLONG>(position);
}

ULONGLONG CFile::GetPosition() const {
  const std::int64_t position = framework::file_system().seek(handle_, 0, SeekFrom::current);
  if (position < 0) fail(errno, path_);
  return static_cast<ULONGLONG>(position);
}

ULONGLONG CFile::GetLength() const {
  const auto status = framework::file_system().status(handle_);
  if (!status) fail(errno, path_);
  return status->size;
}

void CFile::SetLength(ULONGLONG length) {
  if (!framework::file_system().resize(handle_, length)) fail(errno, path_);
}

BOOL CFile::GetStatus(CFileStatus &status) const {
  const auto found = framework::file_system().status(handle_);
  if (!found) return FALSE;
  status = translated(*found, path_);
  return TRUE;
}

BOOL CFile::GetStatus(const char *path, CFileStatus &status) {
  const auto found = framework::file_system().status(framework::native_path(path ? path : "").c_str());
  if (!found) return FALSE;
  status = translated(*found, path);
  return TRUE;
}

CString CFile::GetFileName() const {
  return CString(framework::file_name(path_.view()));
}

void CFile::Remove(const char *path) {
  const std::string native = framework::native_path(path ? path : "");
  const auto status = framework::file_system().status(native.c_str());
  if (!status) fail(errno, path);
  if (status->is_folder || status->read_only) fail(EACCES, path);
  if (!framework::file_system().remove_file(native.c_str())) fail(errno, path);
}

void CFile::Rename(const char *from, const char *to) {
  const std::string source = framework::native_path(from ? from : "");
  const std::string target = framework::native_path_for_writing(to ? to : "");
  const bool only_letter_case = source == target;  // the new name differs in nothing else
  if (!only_letter_case && framework::file_system().status(target.c_str())) fail(EEXIST, to);
  const std::string new_name = only_letter_case ? framework::exact_native_path(to) : target;
  if (!framework::file_system().rename(source.c_str(), new_name.c_str())) fail(errno, from);
}
