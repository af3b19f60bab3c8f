#pragma once

#include <stdexcept>
#include <string>

namespace base {

// Numbers of the errors that the program reports to its user. The numbers and the descriptions
// appear in message boxes, so they never change.
enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    BadFileName = 52,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    InvalidPropertyValue = 380,
    KeyNotUnique = 457,
    InvalidPicture = 481,
    PrinterError = 482,
};

// The description of the error that the user sees, for example "Overflow".
std::string DescriptionOf(ErrorNumber number);

// A failure that a handler may trap and report in its own words. If no handler traps it, the
// runtime reports it and ends the program in an orderly way.
class RuntimeError : public std::runtime_error {
  public:
    explicit RuntimeError(ErrorNumber number)
        : std::runtime_error(DescriptionOf(number)), errorNumber(number) {}

    int number() const { return static_cast<int>(errorNumber); }
    std::string description() const { return what(); }
    bool operator==(ErrorNumber other) const { return errorNumber == other; }

  private:
    ErrorNumber errorNumber;
};

}  // namespace base
