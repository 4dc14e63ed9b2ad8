#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace lorelin {

// The user's folder of voices, and what the files of a voice are called there: "NAME.onnx" and
// "NAME.onnx.json", the card "NAME.txt"; what is not whole yet ends in ".part".
class VoiceFolder {
 public:
  // UTF-8; it need not exist.
  explicit VoiceFolder(const std::string& folder);

  [[nodiscard]] std::filesystem::path Model(std::string_view name) const { return File(name, ".onnx"); }
  [[nodiscard]] std::filesystem::path Description(std::string_view name) const {
    return File(name, ".onnx.json");
  }
  [[nodiscard]] std::filesystem::path Card(std::string_view name) const { return File(name, ".txt"); }
  [[nodiscard]] static std::filesystem::path Part(const std::filesystem::path& file);

  // Makes it with its parents; false when that fails.
  [[nodiscard]] bool Make() const;
  [[nodiscard]] bool Has(std::string_view name) const;
  // What has arrived of a voice that is not whole.
  [[nodiscard]] std::uintmax_t PartBytes(std::string_view name) const;
  // Bytes that can be stored there; a great many when nobody knows.
  [[nodiscard]] std::uintmax_t Space() const;
  // The card's text; "" when there is none.
  [[nodiscard]] std::string CardText(std::string_view name) const;
  // Puts what is whole under its name, the model last. Answers what failed.
  [[nodiscard]] std::error_code PutInPlace(std::string_view name) const;
  // The parts of a voice alone, or all of it; answers what failed.
  void RemoveParts(std::string_view name) const;
  [[nodiscard]] std::error_code Remove(std::string_view name) const;

 private:
  [[nodiscard]] std::filesystem::path File(std::string_view name, std::string_view ending) const;

  std::filesystem::path folder_;
};

// 0 for a file that is not there.
[[nodiscard]] std::uintmax_t FileBytes(const std::filesystem::path& file);

}  // namespace lorelin
