#include "basic/RunTimeError.h"

#include <cerrno>

namespace korvel {

namespace {

int numberOfErrno(int errorCode) {
    switch (errorCode) {
    case ENOENT: return errors::fileNotFound;
    case ENOTDIR:
    case ELOOP: return errors::pathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case ETXTBSY: return errors::permissionDenied;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ: return errors::badFileNameOrNumber;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return errors::diskFull;
    case EIO: return errors::deviceIoError;
    default: return errors::pathFileAccessError;
    }
}

} // namespace

RunTimeError runTimeErrorOfErrno(int errorCode) {
    return RunTimeError(numberOfErrno(errorCode));
}

} // namespace korvel
