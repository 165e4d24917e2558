#include "tool/api/CTools.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "tool/env/files.h"
#include "tool/env/path.h"
#include "tool/env/settings.h"
#include "tool/env/text.h"
#include "tool/framework/files/last_error.h"
#include "tool/framework/files/registry.h"
#include "tool/framework/text/copy_text.h"
#include "tool/framework/ui/message_box.h"

namespace {

constexpr std::size_t longest_key = 50;

std::string_view view_of(const char *text) {
  return text ? text : "";
}

/// Into a buffer that the caller made large enough and that may hold the source too; without a terminator.
void put_bytes(std::string_view text, char *buffer) {
  if (buffer && !text.empty()) std::memmove(buffer, text.data(), text.size());
}

/// The same with a terminator; the length.
int put_text(std::string_view text, char *buffer) {
  if (!buffer) return 0;
  put_bytes(text, buffer);
  buffer[text.size()] = '\0';
  return static_cast<int>(text.size());
}

void split_line(std::string_view line, char *key, char *value) {
  const env::KeyValue parts = env::split_at_equals(line);
  const std::string value_text(parts.value);  // the buffers may be those of the line
  put_bytes(parts.key.substr(0, longest_key), key);
  put_text(value_text, value);
}

/// One write; a failure shows a message and gives 0.
int write_bytes(CFile *file, std::string_view bytes) {
  if (!file) return 0;
  try {
    file->Write(bytes.data(), static_cast<UINT>(bytes.size()));
    return 1;
  } catch (const CException &) {
    AfxMessageBox("Disk Full", MB_OK);
    return 0;
  }
}

}  // namespace

// Settings and window positions

const char *CTools::GetExecutionFileDirectoryPath(int up) {
  static std::array<char, MAX_PATH> path;
  framework::copy_text(env::application_folder(up != 0), path.data(), MAX_PATH);
  return path.data();
}

CString CTools::GetIniFileName(int up) {
  return CString(env::application_folder(up != 0) + std::string(env::settings_file));
}

int CTools::GetProfileIntEx(const char *section, const char *key, int fallback, const char *file) {
  return env::profile_number(section, key, fallback, file);
}

void CTools::WriteProfileIntEx(const char *section, const char *key, int value, const char *file) {
  env::write_profile_number(section, key, value, file);
}

CString CTools::RegReadString(const char *name) {
  return CString(framework::read_registry_text(env::registry_key, view_of(name)).value_or(std::string()));
}

int CTools::RegWriteString(const char *name, char *data, DWORD size) {
  if (!framework::open_registry_key(env::registry_key)) return 0;
  const std::string_view bytes = data ? std::string_view(data, size) : std::string_view();
  framework::write_registry_text(env::registry_key, view_of(name), bytes.substr(0, bytes.find('\0')));
  return 1;
}

void CTools::LoadWindowPos(CWnd *window, const char *prefix) {
  if (window) env::load_window_position(*window, view_of(prefix));
}

void CTools::SaveWindowPos(CWnd *window, const char *prefix) {
  if (window) env::save_window_position(*window, view_of(prefix));
}

CString CTools::GetTracoraTempPath() {
  return CString(env::scratch_folder());
}

// Files and folders

int CTools::ExistFile(const char *path) {
  return env::file_exists(path);
}

DWORD CTools::GetFileSize(const char *path) {
  return env::file_size(path);
}

void CTools::FileRemove(const char *path) {
  env::remove_file(path);
}

int CTools::fCopyNonrFile(const char *source, const char *target, int failIfExists) {
  return env::copy_file_writable(source, target, failIfExists != 0);
}

int CTools::MkDir(const char *path) {
  return env::make_folders(path);
}

int CTools::DirectoryCopy(CString &source, CString &target) {
  return env::copy_tree(source, target);
}

int CTools::CopyFolderFile(const char *target, const char *source) {
  return env::copy_folder_files(source, target);
}

void CTools::DeleteFolder(const char *path) {
  env::delete_folder(path);
}

void CTools::_DeleteFolder(const char *path) {
  env::empty_folder(path);
}

int CTools::WriteFile(CFile *file, const char *text) {
  return write_bytes(file, view_of(text));
}

int CTools::WriteFileB(CFile *file, void *data, DWORD size) {
  return write_bytes(file, {static_cast<const char *>(data), data ? size : 0});
}

// Text and numbers

void CTools::StrCut(char *source, char *target, int start, int count) {
  const std::string_view text = view_of(source);
  const std::size_t begin = std::min(static_cast<std::size_t>(std::max(start, 0)), text.size());
  put_text(text.substr(begin, static_cast<std::size_t>(std::max(count, 0))), target);
}

void CTools::And_Check(char *source, char *target) {
  put_text(env::doubled_ampersands(view_of(source)), target);
}

void CTools::Del_Space(char *text) {
  if (text) text[env::without_trailing_blanks(text).size()] = '\0';
}

int CTools::IsNull(unsigned char *data, unsigned int size) {
  return !data || std::all_of(data, data + size, [](unsigned char byte) { return byte == 0; });
}

void CTools::Div_Str(const char *line, char *key, char *value) {
  split_line(view_of(line), key, value);
}

void CTools::Div_Str(const CString &line, char *key, char *value) {
  split_line(line.GetString(), key, value);
}

void CTools::Div_StrFree(const char *line, char *key, char *value) {
  const env::KeyValue parts = env::split_at_equals(view_of(line));
  if (!parts.has_separator) return split_line(view_of(line), key, value);
  const std::string printed = env::printed_without_arguments(parts.value);
  put_bytes(parts.key, key);
  put_text(printed, value);
}

CString CTools::GetLineText(char *text, int *consumed, int max) {
  const std::size_t most = std::min(static_cast<std::size_t>(std::max(max, 0)), env::longest_line);
  const std::size_t available = text ? strnlen(text, most) : 0;
  const env::TextLine line = env::read_line({text, available}, most);
  if (consumed) *consumed = static_cast<int>(line.consumed);
  return line.text.empty() ? CString('\0') : CString(line.text);
}

int CTools::LastDelimAdd(char *path) {
  if (!path) return 0;
  return put_text(*path == '\0' ? "\\" : env::with_trailing_delimiter(path), path);
}

int CTools::LastDelimAdd(CString &path) {
  path = env::with_trailing_delimiter(path.GetString());
  return path.GetLength();
}

int CTools::LastDelimDel(char *path) {
  return path ? put_text(env::without_trailing_delimiter(path), path) : 0;
}

int CTools::LastDelimDel(CString &path) {
  path = env::without_trailing_delimiter(path.GetString());
  return path.GetLength();
}

CString CTools::GetFileTitle(const char *path) {
  return CString(env::file_title(view_of(path)));
}

CString CTools::GetFileExt(const char *path) {
  return CString(env::file_extension(view_of(path)));
}

int CTools::IsNum(const char *text) {
  return env::is_number(view_of(text));
}

CString CTools::FtoA(double value, int digits) {
  return CString(env::number_text(value, digits));
}

void CTools::GetLastErrMessage() {
  AfxMessageBox(framework::error_text(GetLastError()).c_str(), MB_ICONHAND);
}

void CTools::Debug(char *, int) {}
