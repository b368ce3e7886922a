#include "basic/RunTimeError.h"

#include <cerrno>
#include <utility>

namespace korvel {

namespace {

const char* descriptionOf(int number) {
    switch (number) {
    case errors::invalidProcedureCall: return "Invalid procedure call or argument";
    case errors::overflow: return "Overflow";
    case errors::subscriptOutOfRange: return "Subscript out of range";
    case errors::typeMismatch: return "Type mismatch";
    case errors::badFileNameOrNumber: return "Bad file name or number";
    case errors::fileNotFound: return "File not found";
    case errors::fileAlreadyOpen: return "File already open";
    case errors::deviceIoError: return "Device I/O error";
    case errors::diskFull: return "Disk full";
    case errors::inputPastEndOfFile: return "Input past end of file";
    case errors::permissionDenied: return "Permission denied";
    case errors::pathFileAccessError: return "Path/File access error";
    case errors::pathNotFound: return "Path not found";
    case errors::unsupportedProperty: return "Object doesn't support this property or method";
    case errors::printerError: return "Printer error";
    default: return "Application-defined or object-defined error";
    }
}

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

RunTimeError::RunTimeError(int failureNumber, std::string failureDescription)
    : number(failureNumber), description(std::move(failureDescription)) {}

RunTimeError::RunTimeError(int failureNumber) : RunTimeError(failureNumber, descriptionOf(failureNumber)) {}

std::string RunTimeError::message() const {
    return "Run-time error '" + std::to_string(number) + "':\n\n" + description;
}

RunTimeError runTimeErrorOfErrno(int errorCode) {
    return RunTimeError(numberOfErrno(errorCode));
}

} // namespace korvel
