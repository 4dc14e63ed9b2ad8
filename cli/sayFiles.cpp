#include "cli/sayFiles.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <thread>

#include "base/TaskPump.h"
#include "base/paths.h"
#include "cli/Failure.h"
#include "cli/LoadedDocument.h"
#include "cli/TerminalLine.h"
#include "cli/chosenVoice.h"
#include "cli/files.h"
#include "cli/interruption.h"
#include "cli/overrideSettings.h"
#include "export/ExportPreparation.h"
#include "export/ExportQueue.h"
#include "export/soundFormats.h"
#include "ports/Platform.h"

namespace lorelin::cli {
namespace {

namespace fs = std::filesystem;

SoundFormat FormatOf(const SoundOptions& sound) {
  if (sound.format) return *sound.format;
  return SoundFormatNamed(PathText(NativePath(sound.output).extension())).value_or(SoundFormat::Mp3);
}

bool IsFolder(const Options& options) {
  std::error_code error;
  const std::string& output = options.sound.output;
  return options.inputs.size() > 1 || options.sound.fileForEachChapter || output.ends_with('/') ||
         fs::is_directory(NativePath(output), error);
}

void RequireFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(NativePath(folder), error);
  if (fs::is_directory(NativePath(folder), error)) return;
  throw Failure(ExitCode::NoTarget, "Der Ordner „" + folder + "“ lässt sich nicht anlegen.");
}

void Complain(const std::string& text) {
  if (!text.empty()) std::cerr << "lorelin-cli: " << text << '\n';
}

// A line on standard error, when that is a terminal.
class ProgressLine {
 public:
  void Show(const ExportQueue& queue) {
    const auto now = std::chrono::steady_clock::now();
    if (!line_.Wanted() || now < next_) return;
    next_ = now + std::chrono::milliseconds(250);
    const std::vector<ExportItem> items = queue.Items();
    const auto whole = std::count_if(items.begin(), items.end(),
                                     [](const ExportItem& item) { return item.state == ExportState::Done; });
    line_.Show(std::to_string(whole) + " von " + std::to_string(items.size()) + " Dateien, " +
               std::to_string(static_cast<int>(DoneOf(items) * 100)) + " %" + TimeText(queue.TimeLeft()));
  }

 private:
  static std::string TimeText(std::optional<std::chrono::seconds> left) {
    if (!left) return {};
    std::array<char, 48> text{};
    const long long all = left->count();
    std::snprintf(text.data(), text.size(), ", noch %lld:%02lld:%02lld", all / 3600, all / 60 % 60, all % 60);
    return text.data();
  }

  TerminalLine line_;
  std::chrono::steady_clock::time_point next_ = std::chrono::steady_clock::now() + std::chrono::seconds(1);
};

// The program's objects, in the order in which they need each other.
class Export {
 public:
  explicit Export(const Options& options)
      : options_(options), services_(MakePlatformServices(options.verbose)) {
    if (!services_.registryNotice.empty()) std::cerr << services_.registryNotice << '\n';
  }

  ExitCode Run() {
    const std::string missing = services_.soundRendering->Missing();
    if (!missing.empty()) throw Failure(ExitCode::NotToTheEnd, missing);
    ChooseVoice();
    std::vector<PlannedFile> files = Plan();
    if (files.empty()) return code_;
    MakeTargetsDistinct(files);
    ExportQueue queue(*services_.soundRendering, *services_.fileWriter, *services_.clock,
                      static_cast<std::size_t>(options_.sound.jobs));
    queue.Add(std::move(files), preparation_.Voice());
    WaitFor(queue);
    for (const ExportItem& item : queue.Items()) Account(item);
    return code_;
  }

  void Print(std::ostream& out) {
    const LoadedDocument document = LoadDocument(options_.input, *services_.importer);
    const auto text = preparation_.TextOf(document.text, document.info);
    const std::string& spoken = text ? text->spoken.Text() : document.text;
    const std::size_t begin = spoken.find_first_not_of(" \n");
    if (begin == std::string::npos) return;
    out << spoken.substr(begin, spoken.find_last_not_of(" \n") - begin + 1) << '\n';
  }

 private:
  void ChooseVoice() {
    Options chosen = options_;
    if (options_.voice || !options_.voiceName.empty()) {
      const auto renderer = services_.soundRendering->Make(pump_);
      chosen = WithChosenVoice(options_, renderer->Voice());
    }
    OverrideSettings(settings_, chosen);
  }

  // A failure of one of several files does not keep the others.
  std::vector<PlannedFile> Plan() {
    const bool folder = IsFolder(options_);
    if (folder) RequireFolder(options_.sound.output);
    std::vector<PlannedFile> planned;
    for (const std::string& input : options_.inputs) {
      try {
        std::vector<PlannedFile> files = PlanInput(input, folder);
        planned.insert(planned.end(), files.begin(), files.end());
      } catch (const Failure& failure) {
        if (options_.inputs.size() == 1) throw;
        Complain(failure.what());
        Note(failure.Code());
      }
    }
    return planned;
  }

  std::vector<PlannedFile> PlanInput(const std::string& input, bool folder) {
    LoadedDocument document = LoadSpeakable(input, *services_.importer);
    const SoundOptions& sound = options_.sound;
    if (!sound.title.empty()) document.info.title = sound.title;
    if (!sound.author.empty()) document.info.author = sound.author;
    if (!sound.language.empty()) document.info.language = sound.language;
    const auto text =
        preparation_.TextOf(std::move(document.text), std::move(document.info), std::move(document.formats));
    if (!text) throw Interruption{};
    const ExportChoices choices{.format = FormatOf(sound),
                                .quality = sound.quality,
                                .fileForEachChapter = sound.fileForEachChapter,
                                .subtitles = sound.subtitles,
                                .book = sound.book};
    std::vector<PlannedFile> files = folder ? PlanExport(text, choices, sound.output, document.name)
                                            : std::vector{PlanOneFile(text, choices, sound.output)};
    for (const PlannedFile& file : files) {
      RequireTarget(file.target, input);
      if (file.subtitles) RequireTarget(SubtitlePath(file), input);
    }
    return files;
  }

  void WaitFor(const ExportQueue& queue) {
    ProgressLine line;
    while (queue.Busy()) {
      ThrowIfInterrupted();
      line.Show(queue);
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }

  void Account(const ExportItem& item) {
    if (item.state != ExportState::Failed) return;
    Complain("„" + item.target + "“: " + item.result.problem);
    Note(item.result.end == RenderingEnd::NotWritten ? ExitCode::NoTarget : ExitCode::NotToTheEnd);
  }

  void Note(ExitCode code) {
    if (code_ == ExitCode::Done) code_ = code;
  }

  const Options& options_;
  PlatformServices services_;
  TaskPump pump_;
  SettingsStore settings_{*services_.registry};
  ModAddin extensions_{*services_.registry, *services_.fileWriter, *services_.automation, *services_.log};
  Pronunciations pronunciations_{settings_, *services_.fileWriter, *services_.log,
                                 services_.paths.settingsFolder};
  ExportPreparation preparation_{{.settings = settings_,
                                  .extensions = extensions_,
                                  .pronunciations = pronunciations_,
                                  .clock = *services_.clock}};
  ExitCode code_ = ExitCode::Done;
};

}  // namespace

ExitCode SayIntoFiles(const Options& options) {
  return Export(options).Run();
}

ExitCode PrintText(const Options& options) {
  Export(options).Print(std::cout);
  return ExitCode::Done;
}

}  // namespace lorelin::cli
