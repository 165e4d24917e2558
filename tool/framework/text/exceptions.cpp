#include "tool/framework/text/exceptions.h"

#include <cerrno>

int CFileException::OsErrorToCause(int os_error) {
  switch (os_error) {
    case 0:
      return none;
    case ENOENT:
      return fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return badPath;
    case EMFILE:
    case ENFILE:
      return tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EEXIST:
      return accessDenied;
    case EBADF:
      return invalidFile;
    case ESPIPE:
    case EINVAL:
      return badSeek;
    case EIO:
      return hardIO;
    case EBUSY:
    case ETXTBSY:
      return sharingViolation;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return diskFull;
    default:
      return genericException;
  }
}
