#include "platform/base/runtime_error.h"

#include <utility>

namespace vandrel {

RuntimeError::RuntimeError(int number) : RuntimeError(number, runtimeErrorDescription(number)) {}

RuntimeError::RuntimeError(int number, std::wstring description)
    : number_(number), description_(std::move(description))
{}

std::wstring runtimeErrorDescription(int number)
{
    namespace e = error_number;
    switch (number) {
    case e::invalidCall: return L"Invalid procedure call or argument";
    case e::overflow: return L"Overflow";
    case e::outOfMemory: return L"Out of memory";
    case e::typeMismatch: return L"Type mismatch";
    case e::internalError: return L"Internal error";
    case e::badFileName: return L"Bad file name or number";
    case e::fileNotFound: return L"File not found";
    case e::deviceError: return L"Device I/O error";
    case e::fileAlreadyExists: return L"File already exists";
    case e::diskFull: return L"Disk full";
    case e::permissionDenied: return L"Permission denied";
    case e::diskNotReady: return L"Disk not ready";
    case e::pathFileAccess: return L"Path/File access error";
    case e::pathNotFound: return L"Path not found";
    case e::objectNotSet: return L"Object variable or With block variable not set";
    case e::invalidPropertyValue: return L"Invalid property value";
    case e::noSuchFormat: return L"Specified format doesn't match format of data";
    case e::clipboardBusy: return L"Can't open Clipboard";
    case e::invalidDialogFileName: return L"Invalid filename";
    case e::cancelled: return L"Cancel was selected.";
    case e::malformedUrl: return L"URL is malformed";
    case e::unsupportedProtocol: return L"Protocol not supported for this method";
    case e::cannotConnect: return L"Unable to connect to remote host";
    case e::requestFailed: return L"Unable to complete request";
    case e::stillExecuting: return L"Still executing last request";
    case e::requestTimedOut: return L"Request timed out";
    default: return L"Application-defined or object-defined error";
    }
}

} // namespace vandrel
