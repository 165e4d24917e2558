#pragma once
// The application object. A program declares one: `CWinApp theApp;` or `CWinApp theApp("Name");`.
//
// Its profile is one ini file, "<application name>.ini" in the platform's configuration folder. It is read
// once, at the first look-up; every change is written at once, in a single step. Sections and entries are
// compared with letter case ignored. All profile functions may be called from several threads.

#include <mutex>
#include <string>

#include "tool/framework/files/ini_document.h"
#include "tool/framework/text/CString.h"
#include "tool/framework/types.h"

class CWinApp {
 public:
  /// Becomes the application object until it is destroyed. Without a name the program's file title is used.
  explicit CWinApp(const char *name = nullptr);
  virtual ~CWinApp();
  CWinApp(const CWinApp &) = delete;
  CWinApp &operator=(const CWinApp &) = delete;

  virtual BOOL InitInstance() { return TRUE; }
  virtual int ExitInstance() { return 0; }

  /// The fallback when the entry is missing (null: empty).
  CString GetProfileString(const char *section, const char *entry, const char *fallback = nullptr);
  /// The whole number the entry starts with; the fallback when it is missing or empty.
  UINT GetProfileInt(const char *section, const char *entry, int fallback);
  /// A null value removes the entry, a null entry the section. FALSE when the file could not be written (the
  /// value holds for this run all the same) or the names cannot be kept.
  BOOL WriteProfileString(const char *section, const char *entry, const char *value);
  BOOL WriteProfileInt(const char *section, const char *entry, int value);

  /// From now on the profile lives in memory alone, empty at first.
  void UseMemoryProfile();
  /// From now on the profile is the file at a native path.
  void UseProfileFile(std::string native_path);

  const std::string &application_name() const { return name_; }

 protected:
  struct LibraryOwned {};
  /// The stand-in for programs without an application object: a memory profile, not registered.
  explicit CWinApp(LibraryOwned);

 private:
  enum class Store { default_file, named_file, memory };

  void load();
  bool save();

  CWinApp *before_ = nullptr;  ///< the application object that this one has taken the place of
  bool registered_ = false;
  std::string name_;
  std::mutex mutex_;
  Store store_ = Store::default_file;
  std::string path_;  ///< native; empty: nowhere to keep it
  bool loaded_ = false;
  framework::IniDocument document_;

  friend CWinApp *AfxGetApp();
};

/// The application object; a library-owned one with a memory profile when the program has none. Never null.
CWinApp *AfxGetApp();
