#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/Checksums.h"

namespace lorelin {

// Steps of size and cost, not only of sound.
enum class VoiceQuality { VeryLow, Low, Medium, High };

// By its name in voices' files: "x_low", "low", "medium", "high".
[[nodiscard]] std::optional<VoiceQuality> QualityNamed(std::string_view text);

struct CatalogueFile {
  std::string path;  // below the address of all voices, as it is written in an address
  std::uintmax_t bytes = 0;
  std::string checksum;  // hexadecimal, small letters

  [[nodiscard]] ChecksumKind Kind() const;
};

// A voice that can be downloaded.
struct CatalogueVoice {
  std::string name;  // of its files: "de_DE-thorsten-medium"
  std::string language;
  std::string speaker;
  VoiceQuality quality = VoiceQuality::Medium;
  int speakers = 1;
  CatalogueFile model;
  CatalogueFile description;  // the JSON beside it

  [[nodiscard]] std::uintmax_t Bytes() const { return model.bytes + description.bytes; }
  // Of the card that tells where the voice comes from and its licence.
  [[nodiscard]] std::string CardPath() const;
};

struct Catalogue {
  // German first, then English, then the others by their names; within a language by speaker and quality.
  std::vector<CatalogueVoice> voices;
  std::vector<std::string> problems;  // German sentences about lines that were left out

  // The voice with this name, without regard to case; null when there is none.
  [[nodiscard]] const CatalogueVoice* Find(std::string_view name) const;
};

// A catalogue's text: a voice a line, columns parted by tabs, as its head says.
[[nodiscard]] Catalogue ReadCatalogue(std::string_view text);

// The text of the catalogue that the program brings along (packaging/voices.tsv).
[[nodiscard]] std::string_view ShippedCatalogueText();

// Whether it can be the name of a voice's files: letters, digits, "_", "-" and ".", none in front.
[[nodiscard]] bool IsVoiceName(std::string_view name);

}  // namespace lorelin
