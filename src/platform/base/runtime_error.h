#pragma once

#include <exception>
#include <string>

namespace vandrel {

// The platform's run-time error numbers.
// Contract: users see these numbers, with the platform's own descriptions.
namespace error_number {
inline constexpr int invalidCall = 5;
inline constexpr int overflow = 6;
inline constexpr int outOfMemory = 7;
inline constexpr int typeMismatch = 13;
inline constexpr int internalError = 51;
inline constexpr int badFileName = 52;
inline constexpr int fileNotFound = 53;
inline constexpr int deviceError = 57;
inline constexpr int fileAlreadyExists = 58;
inline constexpr int diskFull = 61;
inline constexpr int permissionDenied = 70;
inline constexpr int diskNotReady = 71;
inline constexpr int pathFileAccess = 75;
inline constexpr int pathNotFound = 76;
inline constexpr int objectNotSet = 91;
inline constexpr int invalidPropertyValue = 380;
inline constexpr int noSuchFormat = 461;
inline constexpr int clipboardBusy = 521;
inline constexpr int invalidDialogFileName = 20477;
inline constexpr int cancelled = 32755;
inline constexpr int malformedUrl = 35752;
inline constexpr int unsupportedProtocol = 35753;
inline constexpr int cannotConnect = 35754;
inline constexpr int requestFailed = 35756;
inline constexpr int requestTimedOut = 35761;
inline constexpr int stillExecuting = 35764;
} // namespace error_number

// The program's only failure type. One that no command handles is shown in the run-time error box (see
// guarded.h), after which the program carries on.
class RuntimeError : public std::exception {
  public:
    explicit RuntimeError(int number);
    RuntimeError(int number, std::wstring description);

    int number() const noexcept { return number_; }
    const std::wstring& description() const noexcept { return description_; }
    const char* what() const noexcept override { return "run-time error"; }

  private:
    int number_;
    std::wstring description_;
};

// The platform's own description of a run-time error.
std::wstring runtimeErrorDescription(int number);

} // namespace vandrel
