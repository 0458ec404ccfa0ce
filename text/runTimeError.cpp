#include "text/runTimeError.h"

#include <new>
#include <utility>

namespace brasquelin {

std::string_view description(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::invalidCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::overflow:
            return "Overflow";
        case ErrorNumber::outOfMemory:
            return "Out of memory";
        case ErrorNumber::subscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::typeMismatch:
            return "Type mismatch";
        case ErrorNumber::userInterrupt:
            return "User interrupt occurred";
        case ErrorNumber::fileNotFound:
            return "File not found";
        case ErrorNumber::deviceError:
            return "Device I/O error";
        case ErrorNumber::diskFull:
            return "Disk full";
        case ErrorNumber::inputPastEnd:
            return "Input past end of file";
        case ErrorNumber::permissionDenied:
            return "Permission denied";
        case ErrorNumber::pathFileAccess:
            return "Path/File access error";
        case ErrorNumber::pathNotFound:
            return "Path not found";
    }
    return "Application-defined or object-defined error";
}

namespace {

std::string atLine(int line) {
    return line > 0 ? " at line " + std::to_string(line) : std::string();
}

}  // namespace

RunTimeError::RunTimeError(ErrorNumber number, std::string path, int line)
    : std::runtime_error(std::string(description(number))), number_(number), path_(std::move(path)), line_(line) {}

RunTimeError RunTimeError::ofWriting() const {
    RunTimeError error = *this;
    error.ofWriting_ = true;
    return error;
}

RunTimeError RunTimeError::because(std::string cause) const {
    RunTimeError error = *this;
    error.cause_ = std::move(cause);
    return error;
}

RunTimeError RunTimeError::about(const std::string& path) const {
    RunTimeError error = *this;
    if (error.path_.empty()) error.path_ = path;
    return error;
}

RunTimeError RunTimeError::at(std::string_view path, int line) const {
    RunTimeError error = *this;
    if (error.path_.empty()) error.line_ = line;
    if (error.path_.empty()) error.path_ = path;
    return error;
}

RunTimeError RunTimeError::whollyAbout(const std::string& path) const {
    RunTimeError error = *this;
    error.path_ = path;
    return error;
}

std::string RunTimeError::report(std::string_view context) const {
    std::string text = "Error " + std::to_string(static_cast<int>(number_)) + " : " + what();
    text += context;
    return cause_.empty() ? text : text + "\r\n" + cause_;
}

std::string RunTimeError::reportWhileLoading(std::string_view handlerPath, int handlerLine) const {
    const std::string handler(handlerPath);
    if (path_.empty() && handler.empty()) return report();
    const bool ownFile = !path_.empty() && path_ != handler;
    std::string context = std::string("\r\nWhile ") + (ofWriting_ ? "writting '" : "loading '");
    if (!ownFile) return report(context + handler + "'" + atLine(line_ > 0 ? line_ : handlerLine));
    context += path_ + "'" + atLine(line_);
    if (!handler.empty()) context += "\r\nFrom file '" + handler + "'" + atLine(handlerLine);
    return report(context);
}

RunTimeError currentRunTimeError() {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RunTimeError(ErrorNumber::outOfMemory);
    } catch (const std::length_error&) {
        return RunTimeError(ErrorNumber::outOfMemory);
    } catch (const std::exception& error) {
        return RunTimeError(ErrorNumber::invalidCall).because(error.what());
    }
}

}  // namespace brasquelin
