// A failure of the run-time: a number and its description. One that no trap catches ends the program with
// "Run-time error 'N':" and the description (see toolkit/Handlers).
#pragma once

#include <stdexcept>
#include <string>

namespace korvel {

struct RunTimeError : std::exception {
    RunTimeError(int failureNumber, std::string failureDescription);
    // With the description that belongs to the number; an unknown one has "Application-defined or
    // object-defined error".
    explicit RunTimeError(int failureNumber);

    const char* what() const noexcept override { return description.c_str(); }
    // "Run-time error 'N':", an empty line, the description.
    std::string message() const;

    int number;
    std::string description;
};

namespace errors {
inline constexpr int invalidProcedureCall = 5;
inline constexpr int overflow = 6;
inline constexpr int outOfMemory = 7;
inline constexpr int subscriptOutOfRange = 9;
inline constexpr int typeMismatch = 13;
inline constexpr int badFileNameOrNumber = 52;
inline constexpr int fileNotFound = 53;
inline constexpr int fileAlreadyOpen = 55;
inline constexpr int deviceIoError = 57;
inline constexpr int diskFull = 61;
inline constexpr int inputPastEndOfFile = 62;
inline constexpr int permissionDenied = 70;
inline constexpr int pathFileAccessError = 75;
inline constexpr int pathNotFound = 76;
inline constexpr int unsupportedProperty = 438;
inline constexpr int printerError = 482;
} // namespace errors

// The run-time's error for a failed system call (errno) on a file.
RunTimeError runTimeErrorOfErrno(int errorCode);

} // namespace korvel
