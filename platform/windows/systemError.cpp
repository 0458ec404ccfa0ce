#include "platform/windows/systemError.h"

#include <windows.h>

namespace brasquelin {

ErrorNumber fileErrorOf(unsigned long code) {
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_INVALID_NAME:
            return ErrorNumber::fileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_DIRECTORY:
            return ErrorNumber::pathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return ErrorNumber::permissionDenied;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return ErrorNumber::diskFull;
        default:
            return ErrorNumber::pathFileAccess;
    }
}

ErrorNumber startErrorOf(unsigned long code) {
    constexpr unsigned long elevationRequired = 740;  // not named by every toolchain
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_DIRECTORY:
            return ErrorNumber::fileNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_BAD_EXE_FORMAT:
        case ERROR_EXE_MACHINE_TYPE_MISMATCH:
        case elevationRequired:
        case ERROR_SHARING_VIOLATION:
            return ErrorNumber::permissionDenied;
        default:
            return ErrorNumber::invalidCall;
    }
}

}  // namespace brasquelin
