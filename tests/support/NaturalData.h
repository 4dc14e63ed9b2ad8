#pragma once

#include <filesystem>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/naturalVoices.h"

namespace lorelin {

// A user's data with the stand-in voices and the runtime, for the engines that are started meanwhile.
class NaturalData {
 public:
  explicit NaturalData(bool withRuntime = true) {
    std::filesystem::create_directories(folder_.File("lorelin"));
    std::filesystem::create_directory_symlink(engine::TestVoices(), folder_.File("lorelin/voices"));
    if (withRuntime && !runtime_.empty())
      std::filesystem::create_directory_symlink(runtime_.parent_path(), folder_.File("lorelin/runtime"));
  }

 private:
  const std::filesystem::path runtime_ = engine::InstalledRuntime();  // found before the folders are others
  TemporaryFolder folder_;
  engine::ChangedVariable home_{"LORELIN_HOME", ""};
  engine::ChangedVariable data_{"XDG_DATA_HOME", folder_.Path()};
};

}  // namespace lorelin
