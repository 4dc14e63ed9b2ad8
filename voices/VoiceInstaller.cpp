#include "voices/VoiceInstaller.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <utility>

#include "base/paths.h"
#include "base/sizeText.h"
#include "base/textEncoding.h"
#include "voices/voiceTexts.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;
using Kind = VoiceOutcome::Kind;

constexpr std::uintmax_t kMostCardBytes = 1U << 16;
constexpr std::uintmax_t kReserve = 20'000'000;  // what the disk keeps free

VoiceOutcome Failed(std::string text) {
  return {Kind::Failed, std::move(text)};
}

VoiceOutcome OutcomeOf(const DownloadEnd& end) {
  switch (end.kind) {
    case DownloadEnd::Kind::Complete:
      return {};
    case DownloadEnd::Kind::Cancelled:
      return {Kind::Cancelled, ""};
    case DownloadEnd::Kind::Cut:
      return Failed(
          "Die Verbindung kam nicht zustande oder brach ab. Was schon da ist, bleibt; der nächste Versuch "
          "macht dort weiter.");
    case DownloadEnd::Kind::Refused:
      return Failed("Der Server hat diese Datei nicht (" + end.detail + ").");
    case DownloadEnd::Kind::TooLarge:
      return Failed("Die Datei ist größer, als die Stimmenliste sagt. Sie wurde nicht übernommen.");
    case DownloadEnd::Kind::DiskFull:
      return {
          Kind::NoRoom,
          "Der Datenträger ist voll. Schaffen Sie Platz; der nächste Versuch macht an dieser Stelle weiter."};
    case DownloadEnd::Kind::NotWritable:
      return {Kind::NoRoom, "Der Ordner für die Stimmen lässt sich nicht beschreiben (" + end.detail + ")."};
    case DownloadEnd::Kind::Busy:
      return Failed("Diese Stimme wird gerade von einem anderen Programm heruntergeladen.");
    case DownloadEnd::Kind::Impossible:
      return Failed("Herunterladen geht hier nicht: " + end.detail + ".");
  }
  return Failed(end.detail);
}

bool IsPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("/-._~").find(c) != std::string_view::npos;
}

}  // namespace

std::string AddressPath(std::string_view path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string address;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (IsPlain(c)) {
      address.push_back(c);
    } else {
      address.append({'%', kDigits[byte / 16U], kDigits[byte % 16U]});
    }
  }
  return address;
}

VoiceInstaller::VoiceInstaller(Parts parts) : parts_(std::move(parts)), folder_(parts_.folder) {
  if (!parts_.room) parts_.room = [this] { return folder_.Space(); };
}

std::string VoiceInstaller::Address(const std::string& path) const {
  const bool ends = parts_.address.ends_with('/');
  return parts_.address + (ends ? "" : "/") + AddressPath(path);
}

VoiceOutcome VoiceInstaller::Fetch(const CatalogueFile& file, const fs::path& target,
                                   const std::function<bool(std::uintmax_t)>& keepGoing) {
  return OutcomeOf(parts_.downloader.Resume(Address(file.path), PathText(target), file.bytes, keepGoing));
}

// A card has no known size and no checksum: it is fetched anew each time.
VoiceOutcome VoiceInstaller::FetchCard(const CatalogueVoice& voice, std::string& card,
                                       const KeepGoing& keepGoing) {
  if (!folder_.Make()) return OutcomeOf({DownloadEnd::Kind::NotWritable, parts_.folder});
  const fs::path part = VoiceFolder::Part(folder_.Card(voice.name));
  std::error_code error;
  fs::remove(part, error);
  VoiceOutcome outcome = Fetch({voice.CardPath(), kMostCardBytes, {}}, part,
                               [&](std::uintmax_t there) { return keepGoing(there, kMostCardBytes); });
  if (outcome.Done()) {
    std::ifstream stream(part, std::ios::binary);
    card = DecodeText(std::string(std::istreambuf_iterator<char>(stream), {}));
  }
  fs::remove(part, error);
  return outcome;
}

VoiceOutcome VoiceInstaller::CheckRoom(const CatalogueVoice& voice) const {
  const std::uintmax_t there = folder_.PartBytes(voice.name);
  const std::uintmax_t needed = voice.Bytes() - std::min(there, voice.Bytes()) + kReserve;
  const std::uintmax_t room = parts_.room();
  if (room >= needed) return {};
  return {Kind::NoRoom, "Auf dem Datenträger ist zu wenig Platz: Gebraucht werden noch " + SizeText(needed) +
                            ", frei sind " + SizeText(room) + "."};
}

VoiceOutcome VoiceInstaller::FetchAndCheck(const CatalogueFile& file, const fs::path& part,
                                           const std::function<bool(std::uintmax_t)>& keepGoing) {
  if (FileBytes(part) != file.bytes) {
    if (VoiceOutcome outcome = Fetch(file, part, keepGoing); !outcome.Done()) return outcome;
  }
  bool cancelled = false;
  const auto sum = parts_.checksums.OfFile(PathText(part), file.Kind(), [&] {
    cancelled = cancelled || !keepGoing(file.bytes);
    return !cancelled;
  });
  if (cancelled) return {Kind::Cancelled, ""};
  if (FileBytes(part) == file.bytes && sum == file.checksum) return {};
  std::error_code error;
  fs::remove(part, error);
  parts_.log.Write("Stimme: Prüfsumme von " + file.path + " ist " + sum.value_or("(nicht lesbar)") +
                   " statt " + file.checksum);
  return Failed(
      "Die Datei kam nicht so an, wie die Stimmenliste sagt (Prüfsumme falsch). Sie wurde verworfen.");
}

VoiceOutcome VoiceInstaller::FetchBoth(const CatalogueVoice& voice, const KeepGoing& keepGoing) {
  const std::uintmax_t all = voice.Bytes();
  VoiceOutcome outcome = FetchAndCheck(voice.description, VoiceFolder::Part(folder_.Description(voice.name)),
                                       [&](std::uintmax_t there) { return keepGoing(there, all); });
  if (!outcome.Done()) return outcome;
  return FetchAndCheck(voice.model, VoiceFolder::Part(folder_.Model(voice.name)),
                       [&](std::uintmax_t there) { return keepGoing(voice.description.bytes + there, all); });
}

void VoiceInstaller::KeepCard(const CatalogueVoice& voice, const std::string& card) const {
  if (card.empty()) return;
  std::ofstream stream(folder_.Card(voice.name), std::ios::binary | std::ios::trunc);
  stream << card;
  if (!stream.flush()) parts_.log.Write("Stimme: Die Karte von " + voice.name + " ließ sich nicht ablegen");
}

VoiceOutcome VoiceInstaller::Install(const CatalogueVoice& voice, const std::string& card,
                                     const KeepGoing& keepGoing) {
  if (!folder_.Make()) return OutcomeOf({DownloadEnd::Kind::NotWritable, parts_.folder});
  if (VoiceOutcome outcome = CheckRoom(voice); !outcome.Done()) return outcome;
  if (VoiceOutcome outcome = FetchBoth(voice, keepGoing); !outcome.Done()) return outcome;
  KeepCard(voice, card);
  if (const std::error_code error = folder_.PutInPlace(voice.name)) {
    return OutcomeOf({DownloadEnd::Kind::NotWritable, error.message()});
  }
  parts_.log.Write("Stimme: " + voice.name + " ist installiert");
  return {};
}

VoiceOutcome VoiceInstaller::Remove(const std::string& name) {
  if (const std::error_code error = folder_.Remove(name)) {
    return Failed("Die Stimme lässt sich nicht entfernen: " + error.message() + ".");
  }
  parts_.log.Write("Stimme: " + name + " ist entfernt");
  return {};
}

}  // namespace lorelin
