#include "export/SoundExport.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/sizeText.h"
#include "base/textEncoding.h"
#include "export/fileNames.h"
#include "export/soundFormats.h"
#include "richtext/rtf.h"
#include "speech/voiceSettings.h"

namespace lorelin {
namespace {

constexpr std::size_t kJobs = 2;

std::string Counted(long long count, const char* one, const char* several) {
  return count == 1 ? one : std::to_string(count) + " " + several;
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\n") == std::string_view::npos;
}

std::size_t CountOf(const std::vector<ExportItem>& items, ExportState state) {
  return static_cast<std::size_t>(
      std::count_if(items.begin(), items.end(), [&](const ExportItem& item) { return item.state == state; }));
}

}  // namespace

SoundExport::SoundExport(Parts parts)
    : parts_(std::move(parts)),
      preparation_(parts_.preparation),
      queue_(parts_.rendering, parts_.files, parts_.preparation.clock, kJobs) {}

void SoundExport::Tell(const std::string& text) {
  parts_.messageBoxes.Show(text, "Als Tondatei exportieren", MessageIcon::Exclamation, MessageButtons::Ok);
}

std::optional<ExportOffer> SoundExport::Offer() {
  if (const std::string missing = parts_.rendering.Missing(); !missing.empty()) {
    Tell(missing);
    return std::nullopt;
  }
  const std::string text = parts_.document.Text();
  if (IsBlank(text)) {
    Tell("Das Dokument ist leer: Es gibt nichts zu exportieren.");
    return std::nullopt;
  }
  const DocumentInfo info = parts_.info();
  std::int32_t speed = 25;
  try {
    speed = StoredNumber(parts_.preparation.settings, setting::Speed);
  } catch (const RuntimeError& error) {
    Tell(error.what());
    return std::nullopt;
  }
  return ExportOffer{.title = info.title.empty() ? parts_.name() : info.title,
                     .author = info.author,
                     .length = EstimatedLength(CharacterCount(text), speed),
                     .files = ChaptersForFiles(info.chapters, text).size()};
}

bool SoundExport::Start(const ExportOrder& order) {
  std::error_code error;
  std::filesystem::create_directories(NativePath(order.folder), error);
  if (order.folder.empty() || !std::filesystem::is_directory(NativePath(order.folder), error)) {
    Tell("Den Ordner „" + order.folder + "“ gibt es nicht, und er ließ sich nicht anlegen.");
    return false;
  }
  DocumentInfo info = parts_.info();
  info.title = order.title;
  info.author = order.author;
  try {
    std::string written = parts_.document.Text();
    std::vector<TextRun> formats = order.choices.book ? FormatsOf(written) : std::vector<TextRun>();
    const auto text = preparation_.TextOf(std::move(written), std::move(info), std::move(formats));
    if (!text) return false;
    std::vector<PlannedFile> files = PlanExport(text, order.choices, order.folder, parts_.name());
    MakeTargetsDistinct(files);
    if (!MayReplace(files)) return false;
    queue_.Add(std::move(files), preparation_.Voice());
    return true;
  } catch (const RuntimeError& problem) {
    Tell(problem.what());
    return false;
  }
}

// None when the editor shows the text otherwise than it says it.
std::vector<TextRun> SoundExport::FormatsOf(const std::string& written) {
  RichText formatted = ReadRtf(parts_.document.RichText());
  return formatted.text == written ? std::move(formatted.runs) : std::vector<TextRun>();
}

bool SoundExport::MayReplace(const std::vector<PlannedFile>& files) {
  std::vector<std::string> there;
  for (const PlannedFile& file : files) {
    if (FileExists(file.target)) there.push_back(file.name);
    if (file.subtitles && FileExists(SubtitlePath(file))) there.push_back(SubtitlePath(file));
  }
  if (there.empty()) return true;
  const std::string question =
      there.size() == 1 ? "„" + there.front() + "“ ist schon vorhanden. Soll die Datei ersetzt werden?"
                        : std::to_string(there.size()) + " der Dateien sind schon vorhanden, zum Beispiel „" +
                              there.front() + "“. Sollen sie ersetzt werden?";
  return parts_.messageBoxes.Show(question, "Als Tondatei exportieren", MessageIcon::Question,
                                  MessageButtons::YesNo) == MessageAnswer::Yes;
}

bool SoundExport::MayClose() {
  if (!queue_.Busy()) return true;
  return parts_.messageBoxes.Show(
             "Es werden noch Tondateien exportiert. Soll das Programm trotzdem beendet werden? Was fertig "
             "ist, "
             "bleibt.",
             "Als Tondatei exportieren", MessageIcon::Question, MessageButtons::YesNo) == MessageAnswer::Yes;
}

std::string NameForFiles(const std::string& documentFile) {
  return documentFile.empty() ? "Sprachausgabe" : PathText(NativePath(documentFile).stem());
}

std::string QualityText(SoundFormat format, SoundQuality quality, std::chrono::seconds length) {
  const std::string size = "etwa " + SizeText(EstimatedBytes(length, format, quality));
  return NameOf(format).hasQualities ? std::string(NameOf(quality)) + ", " + size : size;
}

std::string LengthText(std::chrono::seconds length) {
  const long long minutes = (length.count() + 30) / 60;
  if (minutes == 0) return "weniger als eine Minute";
  const long long hours = minutes / 60;
  if (hours == 0) return "etwa " + Counted(minutes, "eine Minute", "Minuten");
  std::string text = "etwa " + Counted(hours, "eine Stunde", "Stunden");
  if (minutes % 60 != 0) text += " " + Counted(minutes % 60, "eine Minute", "Minuten");
  return text;
}

std::string StateText(const ExportItem& item) {
  switch (item.state) {
    case ExportState::Waiting:
      return "wartet";
    case ExportState::Running:
      return std::to_string(static_cast<int>(item.done * 100)) + " %";
    case ExportState::Done:
      return "fertig";
    case ExportState::Cancelled:
      return "abgebrochen";
    case ExportState::Failed:
      break;
  }
  return item.result.problem;
}

std::string QueueText(const std::vector<ExportItem>& items, std::optional<std::chrono::seconds> left) {
  if (items.empty()) return "Es werden keine Tondateien exportiert.";
  const std::size_t done = CountOf(items, ExportState::Done);
  const std::size_t failed = CountOf(items, ExportState::Failed);
  std::string text = std::to_string(done) + " von " +
                     Counted(static_cast<long long>(items.size()), "1 Datei", "Dateien") + " fertig";
  if (failed > 0) text += ", " + std::to_string(failed) + " nicht gelungen";
  if (AnyLeft(items) && left) text += ", noch " + LengthText(*left);
  return text + ".";
}

}  // namespace lorelin
