#include "basic/RunTimeError.h"

#include <utility>

namespace korvel {

namespace {

const char* descriptionOf(int number) {
    switch (number) {
    case errors::invalidProcedureCall: return "Invalid procedure call or argument";
    case errors::overflow: return "Overflow";
    case errors::outOfMemory: return "Out of memory";
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

} // namespace

RunTimeError::RunTimeError(int failureNumber, std::string failureDescription)
    : number(failureNumber), description(std::move(failureDescription)) {}

RunTimeError::RunTimeError(int failureNumber) : RunTimeError(failureNumber, descriptionOf(failureNumber)) {}

std::string RunTimeError::message() const {
    return "Run-time error '" + std::to_string(number) + "':\n\n" + description;
}

} // namespace korvel
