#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "base/paths.h"
#include "engine/OnnxRuntime.h"
#include "engine/naturalVoices.h"

namespace lorelin::engine {

// Where the stand-in voices lie (tools/make-test-voices).
inline std::filesystem::path TestVoices() {
  return LORELIN_TEST_VOICES;
}

// The runtime as it was installed before a test moved the folders; "" where there is none.
inline const std::filesystem::path& InstalledRuntime() {
  static const std::filesystem::path runtime = OnnxRuntime::Find(RuntimeFolders());
  return runtime;
}

// An environment variable that is another one as long as the object lives.
class ChangedVariable {
 public:
  ChangedVariable(const char* name, const std::string& value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    setenv(name, value.c_str(), 1);
  }
  ~ChangedVariable() {
    if (before_) {
      setenv(name_, before_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  ChangedVariable(const ChangedVariable&) = delete;
  ChangedVariable& operator=(const ChangedVariable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace lorelin::engine

// Nothing can be spoken without it; "tools/fetch-runtime" gets it.
#define SKIP_WITHOUT_RUNTIME() \
  if (lorelin::engine::InstalledRuntime().empty()) GTEST_SKIP() << "there is no ONNX Runtime"
