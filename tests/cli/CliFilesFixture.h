#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "cli/Failure.h"
#include "cli/LoadedDocument.h"
#include "cli/files.h"
#include "tests/support/FakeImportProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin::cli {

class CliFiles : public testing::Test {
 protected:
  // The code and the text that `work` fails with.
  static std::string Ending(const std::function<void()>& work) {
    try {
      work();
      return "(gelungen)";
    } catch (const Failure& failure) {
      return std::to_string(static_cast<int>(failure.Code())) + ": " + failure.what();
    }
  }
  std::string Reading(const std::string& path) {
    return Ending([&] { (void)LoadSpeakable(path, importer_); });
  }
  std::string Writing(const std::string& target, const std::string& input = "-") {
    return Ending([&] { RequireTarget(target, input); });
  }
  std::string Path(const std::string& name) { return folder_.File(name); }
  static bool Exists(const std::string& path) { return std::filesystem::exists(path); }

  TemporaryFolder folder_;
  FakeImportProcess importer_;
};

}  // namespace lorelin::cli
