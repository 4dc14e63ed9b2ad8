#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

// A natural voice that is installed: a model and its description.
struct InstalledVoice {
  std::string name;                  // of its files: "de_DE-thorsten-medium"
  std::string folder;                // where they lie, UTF-8
  std::vector<std::string> offered;  // the names under which the speech engine offers it, one a speaker
  std::string language;              // "de-de"
  std::string quality;               // "medium"
  bool own = false;                  // lies in the user's folder, from where it may be removed
};

// Port: natural voices as this system's speech engine finds them. User-interface thread only.
class NaturalVoices {
 public:
  virtual ~NaturalVoices() = default;
  // Why natural voices cannot speak here, as a German sentence that also says what helps; "" when they can.
  [[nodiscard]] virtual std::string Obstacle() const = 0;
  // Whether there is any use in installing one: else they are not made for this system.
  [[nodiscard]] virtual bool Supported() const = 0;
  // Where the user's own voices lie, UTF-8; it need not exist.
  [[nodiscard]] virtual std::string OwnFolder() const = 0;
  // In the order in which the engine offers them.
  [[nodiscard]] virtual std::vector<InstalledVoice> Installed() const = 0;
  // What is wrong with a voice's description (JSON), as the end of a German sentence; "" for a good one.
  [[nodiscard]] virtual std::string Problem(std::string_view description) const = 0;
};

}  // namespace lorelin
