#include "platform/posix/systemError.h"

#include <cerrno>
#include <string>

namespace brasquelin {

ErrorNumber errorNumberOf(int error, FileUse use) {
    switch (error) {
        case ENOENT:
            return use == FileUse::reading ? ErrorNumber::fileNotFound : ErrorNumber::pathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case ETXTBSY:
            return ErrorNumber::permissionDenied;
        case ENOTDIR:
            return ErrorNumber::pathNotFound;
        case ENOSPC:
        case EDQUOT:
            return ErrorNumber::diskFull;
        case EIO:
            return ErrorNumber::deviceError;
        default:
            return ErrorNumber::pathFileAccess;
    }
}

void raise(int error, FileUse use, std::string_view path) {
    const RunTimeError raised(errorNumberOf(error, use), std::string(path));
    throw use == FileUse::writing ? raised.ofWriting() : raised;
}

}  // namespace brasquelin
