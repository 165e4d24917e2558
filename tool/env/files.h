#pragma once
// File and folder chores. Paths are code page 932, folders with or without a trailing delimiter. True: done.

#include <cstdint>

namespace env {

/// Whether the status of a file or folder can be read.
bool file_exists(const char *path);
/// Bytes; 0 when the file cannot be opened.
std::uint32_t file_size(const char *path);
/// Removes a file that exists. A read-only one stays.
void remove_file(const char *path);

/// Copies one file. `fail_if_exists`: leave an existing target alone and fail.
bool copy_file(const char *source, const char *target, bool fail_if_exists);
/// The same, and makes the copy writable.
bool copy_file_writable(const char *source, const char *target, bool fail_if_exists);

/// Creates a folder and every missing parent; true when it is there afterwards.
bool make_folders(const char *path);
/// Copies a folder with everything in it over what the target holds already; stops at the first failure.
/// Copying a folder into itself fails.
bool copy_tree(const char *source, const char *target);
/// Copies the plain files of one folder, neither hidden nor system files nor folders. The source stays the
/// current folder afterwards. Stops at the first failure.
bool copy_folder_files(const char *source, const char *target);
/// Deletes a folder with its contents as far as possible: read-only files stay, and so do the folders that
/// hold them. Symbolic links are removed, never followed.
void delete_folder(const char *path);
/// Only the contents.
void empty_folder(const char *path);

}  // namespace env
