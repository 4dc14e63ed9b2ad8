#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace lorelin {

// Numbers of the run-time errors that the program raises or reports.
enum class ErrorNumber : std::int32_t {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  TypeMismatch = 13,
  OutOfStringSpace = 14,
  BadFileName = 52,
  FileNotFound = 53,
  FileAlreadyOpen = 55,
  DeviceError = 57,
  DiskFull = 61,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  InvalidFileFormat = 321,
  InvalidPropertyValue = 380,
  CannotCreateObject = 429,
  NoSuchMethod = 438,
  AutomationFailed = 440,
};

// The German text that a person reads for the number.
[[nodiscard]] std::string ErrorText(ErrorNumber number);

// The run-time error of the whole program. what() is the German description.
class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(ErrorNumber number) : RuntimeError(number, ErrorText(number)) {}
  RuntimeError(ErrorNumber number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  [[nodiscard]] std::int32_t Number() const { return static_cast<std::int32_t>(number_); }

 private:
  ErrorNumber number_;
};

}  // namespace lorelin
