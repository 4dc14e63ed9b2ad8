#pragma once

#include <filesystem>
#include <string>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/commandVoices.h"
#include "tests/support/naturalVoices.h"

namespace lorelin {

// A user's data with voices that programs speak, for the engines that are started meanwhile.
class CommandData {
 public:
  explicit CommandData(const std::filesystem::path& voices = engine::TestCommandVoices()) {
    std::filesystem::create_directories(folder_.File("lorelin"));
    std::filesystem::create_directory_symlink(voices, folder_.File("lorelin/voices"));
  }

 private:
  TemporaryFolder folder_;
  engine::ChangedVariable home_{"LORELIN_HOME", ""};
  engine::ChangedVariable data_{"XDG_DATA_HOME", folder_.Path()};
};

}  // namespace lorelin
