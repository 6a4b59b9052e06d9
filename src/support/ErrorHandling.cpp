#include "support/ErrorHandling.h"

#include <new>
#include <utility>

namespace gazetteer {
namespace {

std::string ErrorBlock(const host::Failure& failure) {
    return "\r\nError Number \r\n\t" + std::to_string(failure.number) + "\r\nDescription\r\n\t" +
           failure.description + "\r\n\r\n";
}

// The line number is that of the raise, so only the first exit reports it.
std::string TakeLocation(const char* procedure, const char* label, host::Failure& failure) {
    return std::string(procedure) + ' ' + label + ' ' +
           FormatErrorLine(std::exchange(failure.line, 0));
}

}  // namespace

void Raise(const std::string& source, const std::string& description, std::source_location where) {
    Raise(kOwnError, source, description, where);
}

void Raise(std::int32_t number, const std::string& source, const std::string& description,
           std::source_location where) {
    host::Failure failure(number, source, description);
    failure.line = static_cast<int>(where.line());
    throw failure;
}

host::Failure CurrentFailure() {
    try {
        throw;
    } catch (const host::Failure& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return {host::kFailureOutOfMemory, "", "Out of memory."};
    } catch (const std::exception& exception) {
        return {host::kFailureUnspecified, "", exception.what()};
    } catch (...) {
        return {host::kFailureUnspecified, "", "Unspecified error."};
    }
}

std::string FormatErrorLine(std::int32_t line) {
    return line == 0 ? std::string() : "Line : " + std::to_string(line);
}

void PassOn(const char* procedure, const char* label) {
    host::Failure failure = CurrentFailure();
    const std::string where = TakeLocation(procedure, label, failure);
    ReportError(nullptr, false, where, std::move(failure));
    std::terminate();  // ReportError raises for every inner procedure.
}

void ShowAtTop(host::IHostDialogs& dialogs, const char* procedure, const char* label) noexcept {
    try {
        host::Failure failure = CurrentFailure();
        const std::string where = TakeLocation(procedure, label, failure);
        ReportError(&dialogs, true, where, std::move(failure));
    } catch (...) {
        // There is no way to report that the error dialog failed.
    }
}

void ReportError(host::IHostDialogs* dialogs, bool isTop, const std::string& where,
                 host::Failure failure) {
    // The flag is part of the failure, so that a swallowed failure leaves no state behind for the
    // next one.
    if (!std::exchange(failure.errorBlockAdded, true)) failure.description = ErrorBlock(failure);
    if (isTop) {
        ShowErrorDialog(*dialogs, where, failure);
        return;
    }
    failure.description = '\t' + where + "\r\n" + failure.description;
    throw failure;
}

void ShowErrorDialog(host::IHostDialogs& dialogs, const std::string& where,
                     const host::Failure& failure) {
    dialogs.Beep();
    dialogs.MessageBox(
        {.title = "Unexpected Program Error",
         .text = "An error has occured in the application.   Record the call stack sequence\r\n"
                 "and the description of the error.\r\n\r\nError Call Stack Sequence \r\n\t" +
                 where + "\r\n" + failure.description,
         .style = host::kWarningOk,
         .failure = &failure});
}

}  // namespace gazetteer
