#include "tool/framework/ui/CWinApp.h"

#include <atomic>

#include "tool/framework/files/file_system.h"
#include "tool/framework/files/native_path.h"
#include "tool/framework/files/read_file.h"
#include "tool/framework/platform.h"
#include "tool/framework/text/decimal.h"

namespace {

constinit std::atomic<CWinApp *> current_application{nullptr};

/// The program's file name without folder and extension, for an application without a name of its own.
std::string program_title() {
  std::string path = framework::exact_native_path(framework::platform().module_path());
  path.erase(0, path.rfind('/') + 1);
  return path.substr(0, path.rfind('.'));
}

std::string_view view_of(const char *text) {
  return text ? text : "";
}

}  // namespace

CWinApp::CWinApp(const char *name)
    : before_(current_application.exchange(this)), registered_(true), name_(view_of(name)) {}

CWinApp::CWinApp(LibraryOwned) : store_(Store::memory), loaded_(true) {}

CWinApp::~CWinApp() {
  if (!registered_) return;
  CWinApp *self = this;
  if (current_application.compare_exchange_strong(self, before_)) return;
  for (CWinApp *later = current_application.load(); later; later = later->before_)
    if (later->before_ == this) later->before_ = before_;
}

CWinApp *AfxGetApp() {
  if (CWinApp *application = current_application.load(std::memory_order_acquire)) return application;
  static CWinApp stand_in{CWinApp::LibraryOwned()};
  return &stand_in;
}

void CWinApp::load() {
  if (loaded_) return;
  loaded_ = true;
  if (store_ == Store::default_file) {
    if (name_.empty()) name_ = program_title();
    const std::string folder = framework::platform().configuration_folder();
    path_ = folder.empty() || name_.empty() ? "" : folder + "/" + name_ + ".ini";
  }
  const auto text = framework::read_whole_native_file(path_.c_str());
  document_ = framework::IniDocument(text.value_or(std::string()));
  if (!text && framework::file_system().status(path_.c_str()))
    path_.clear();  // unreadable: never overwrite it
}

bool CWinApp::save() {
  if (store_ == Store::memory) return true;
  if (path_.empty()) return false;
  return framework::make_folders(path_.substr(0, path_.rfind('/'))) &&
         framework::replace_file(path_, document_.text());
}

CString CWinApp::GetProfileString(const char *section, const char *entry, const char *fallback) {
  const std::lock_guard lock(mutex_);
  load();
  const auto value = document_.find(view_of(section), view_of(entry));
  return value ? CString(framework::unprotected_value(*value)) : CString(fallback);
}

UINT CWinApp::GetProfileInt(const char *section, const char *entry, int fallback) {
  const std::lock_guard lock(mutex_);
  load();
  const auto value = document_.find(view_of(section), view_of(entry));
  return static_cast<UINT>(value && !value->empty() ? framework::whole_number(*value) : fallback);
}

BOOL CWinApp::WriteProfileString(const char *section, const char *entry, const char *value) {
  if (!section) return FALSE;
  const std::lock_guard lock(mutex_);
  load();
  if (!entry)
    document_.remove_section(section);
  else if (!value)
    document_.remove(section, entry);
  else if (!document_.set(section, entry, framework::protected_value(value)))
    return FALSE;
  return save();
}

BOOL CWinApp::WriteProfileInt(const char *section, const char *entry, int value) {
  return WriteProfileString(section, entry, std::to_string(value).c_str());
}

void CWinApp::UseMemoryProfile() {
  const std::lock_guard lock(mutex_);
  store_ = Store::memory;
  loaded_ = true;
  document_ = framework::IniDocument();
}

void CWinApp::UseProfileFile(std::string native_path) {
  const std::lock_guard lock(mutex_);
  store_ = Store::named_file;
  path_ = std::move(native_path);
  loaded_ = false;
}
