#include "base/RuntimeError.h"

namespace base {

std::string DescriptionOf(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::InvalidProcedureCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::OutOfMemory:
            return "Out of memory";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::BadFileName:
            return "Bad file name or number";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::DeviceIoError:
            return "Device I/O error";
        case ErrorNumber::FileAlreadyExists:
            return "File already exists";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::InputPastEndOfFile:
            return "Input past end of file";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::PathFileAccessError:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::InvalidPropertyValue:
            return "Invalid property value";
        case ErrorNumber::KeyNotUnique:
            return "This key is already associated with an element of this collection";
        case ErrorNumber::InvalidPicture:
            return "Invalid picture";
        case ErrorNumber::PrinterError:
            return "Printer error";
    }
    return "Application-defined or object-defined error";
}

}  // namespace base
