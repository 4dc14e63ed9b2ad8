#include "documents/Recovery.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/textEncoding.h"
#include "richtext/rtf.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLookedAt = 16384;  // bytes of a file that hold its first words
constexpr std::size_t kBeginning = 40;    // characters
constexpr std::size_t kNameLength = 19;   // "2026-11-21 05-10-33"

constexpr std::string_view kUnfinished = ".lorelin-";  // of a process that was killed while it wrote
constexpr std::string_view kNotice = "recovery";

std::string ReasonOf(const std::error_code& error) {
  if (error == std::errc::no_space_on_device) return ErrorText(ErrorNumber::DiskFull);
  const bool refused = error == std::errc::permission_denied || error == std::errc::read_only_file_system;
  return ErrorText(refused ? ErrorNumber::PermissionDenied : ErrorNumber::PathFileAccess);
}

// The fonts and colours come first in a file; a text begins within the first pages of it.
std::string BeginningOf(const std::string& file) {
  std::ifstream stream(NativePath(file), std::ios::binary);
  std::string bytes(kLookedAt, '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  const std::string text = ReadRtf(bytes).text;
  std::string line;
  for (const char c : text) {
    const bool blank = static_cast<unsigned char>(c) <= ' ';
    if (!blank) line += c;
    if (blank && !line.empty() && line.back() != ' ') line += ' ';
  }
  const std::string_view rest = FromCharacter(line, kBeginning);
  return rest.empty() ? line : line.substr(0, line.size() - rest.size()) + "…";
}

// "2026-11-21 05-10-33" as people write it.
std::string TimeOf(const std::string& name) {
  if (name.size() < kNameLength) return {};
  return name.substr(8, 2) + "." + name.substr(5, 2) + "." + name.substr(0, 4) + " " + name.substr(11, 2) +
         ":" + name.substr(14, 2);
}

std::string NameOf(const std::string& path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace

Recovery::~Recovery() {
  if (writing_.valid()) writing_.wait();
  std::error_code error;
  if (!outdated_.empty()) fs::remove(NativePath(outdated_), error);
}

// Only one window runs at a time, and it has written nothing yet.
void Recovery::RemoveUnfinished() {
  std::error_code error;
  std::vector<fs::path> unfinished;
  for (fs::directory_iterator entry(NativePath(parts_.folder), error), end; !error && entry != end;
       entry.increment(error)) {
    if (PathText(entry->path().filename()).starts_with(kUnfinished)) unfinished.push_back(entry->path());
  }
  for (const fs::path& file : unfinished) fs::remove(file, error);
}

void Recovery::Start() {
  RemoveUnfinished();
  std::vector<std::string> names = parts_.fileSearch.FilesMatching(JoinPath(parts_.folder, {"*.rtf"}));
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) AddLeftover(JoinPath(parts_.folder, {name}));
}

void Recovery::AddLeftover(const std::string& file) {
  leftovers_.insert(leftovers_.begin(), {file, BeginningOf(file), TimeOf(NameOf(file))});
  while (leftovers_.size() > kMostLeftovers) {
    Remove(leftovers_.back().file);
    leftovers_.pop_back();
  }
  TellLeftoversChanged();
}

void Recovery::Changed() {
  changed_ = true;
  if (replacing_ == 0) typed_ = true;
  Schedule();
}

void Recovery::Schedule() {
  if (!std::exchange(scheduled_, true)) parts_.scheduleSnapshot();
}

void Recovery::SnapshotDue() {
  scheduled_ = false;
  if (IsWriting()) return Schedule();
  FinishWriting();
  if (changed_) Snapshot();
}

std::string Recovery::NewName() const {
  const LocalTime now = parts_.clock.Now();
  std::array<char, 32> stamp{};
  (void)std::snprintf(stamp.data(), stamp.size(), "%04d-%02d-%02d %02d-%02d-%02d", now.year % 10000,
                      now.month % 100, now.day % 100, now.hour % 100, now.minute % 100, now.second % 100);
  std::string path = JoinPath(parts_.folder, {std::string(stamp.data()) + ".rtf"});
  std::error_code error;
  for (int number = 2; fs::exists(NativePath(path), error); ++number) {
    path = JoinPath(parts_.folder, {std::string(stamp.data()) + " " + std::to_string(number) + ".rtf"});
  }
  return path;
}

// Looked at again when the next one is due: whether it was written shows only then.
void Recovery::Snapshot() {
  FinishWriting();
  changed_ = false;
  if (parts_.editor.IsEmpty()) return Forget();
  try {
    if (current_.empty()) {
      if (const auto error = MakePrivateFolder(NativePath(parts_.folder)); error) {
        throw fs::filesystem_error("Ordner", NativePath(parts_.folder), error);
      }
      current_ = NewName();
    }
    writing_ = std::async(
        std::launch::async, [&files = parts_.files, path = current_, text = parts_.editor.RichTextLater()] {
          files.Replace(path, text());
          std::error_code error;
          fs::permissions(NativePath(path), fs::perms::owner_read | fs::perms::owner_write, error);
        });
    Schedule();
  } catch (const fs::filesystem_error& error) {
    Failed(ReasonOf(error.code()));
  } catch (const std::exception& error) {
    Failed(error.what());
  }
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the task owns what it was given

void Recovery::TellLeftoversChanged() const {
  if (leftoversChanged_) leftoversChanged_();
}

void Recovery::FinishWriting() {
  if (!writing_.valid()) return;
  if (!outdated_.empty()) return FinishOutdated();
  try {
    writing_.get();
    kept_ = true;
    Safe();
  } catch (const std::exception& error) {
    Failed(error.what());
  }
}

// The text has gone meanwhile, and nobody misses its file.
void Recovery::FinishOutdated() {
  writing_.wait();
  writing_ = {};
  Remove(std::exchange(outdated_, {}));
}

// Once is enough, however often it is tried again.
void Recovery::Failed(const std::string& reason) {
  changed_ = true;
  Schedule();
  if (failure_ == reason) return;
  failure_ = reason;
  parts_.log.Write("Sicherung des Textes: " + reason);
  parts_.statusBar.SetNotice(
      kNotice, "Ihr Text ist nicht gegen Verlust gesichert: " + reason + ". Bitte speichern Sie ihn.");
}

// The document has no snapshot any more.
void Recovery::Forget() {
  FinishWriting();
  if (std::exchange(kept_, false)) Remove(current_);
  current_.clear();
  Safe();
}

// The same without waiting for what is being written: a script may set one long text after the other.
void Recovery::ForgetSoon() {
  if (!IsWriting()) return Forget();
  if (outdated_.empty()) outdated_ = current_;
  kept_ = false;
  current_.clear();
  Safe();
}

bool Recovery::IsWriting() const {
  return writing_.valid() && writing_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void Recovery::Safe() {
  if (!std::exchange(failure_, {}).empty()) parts_.statusBar.SetNotice(kNotice, "");
}

void Recovery::Remove(const std::string& file) {
  std::error_code error;
  fs::remove(NativePath(file), error);
  if (error) parts_.log.Write(file + ": " + error.message());
}

void Recovery::Saved() {
  Forget();
  typed_ = false;
  changed_ = false;
}

// A text that no user wrote, as a script sets thousands of, is not worth a file.
bool Recovery::MayGo() {
  if (!typed_) return true;
  FinishWriting();
  if (changed_) Snapshot();
  FinishWriting();
  return !changed_ || unwanted_ || MayLose();
}

bool Recovery::MayLose() {
  return parts_.messageBoxes.Show("Ihr nicht gespeicherter Text konnte nicht gesichert werden: " + failure_ +
                                      ".\n\nMöchten Sie ihn trotzdem verwerfen?",
                                  "Frage", MessageIcon::Question,
                                  MessageButtons::YesNo) == MessageAnswer::Yes;
}

void Recovery::BeforeReplacing() {
  if (replacing_ == 0 && !MayGo()) {
    throw RuntimeError(ErrorNumber::PathFileAccess, "Der bisherige Text ist nicht gesichert");
  }
  ++replacing_;
}

void Recovery::AfterReplacing(bool replaced) {
  if (--replacing_ > 0 || !replaced) return;
  unwanted_ = false;
  const bool typed = std::exchange(typed_, false);
  if (typed && std::exchange(kept_, false)) AddLeftover(current_);
  ForgetSoon();
}

void Recovery::Adopt(const std::string& file) {
  Changed();
  const auto found = std::find_if(leftovers_.begin(), leftovers_.end(),
                                  [&](const Leftover& leftover) { return leftover.file == file; });
  // The text that was there before may have taken the last place.
  if (found == leftovers_.end()) return;
  Forget();
  current_ = file;
  kept_ = true;
  leftovers_.erase(found);
  TellLeftoversChanged();
}

void Recovery::DiscardLeftovers() {
  for (const Leftover& leftover : leftovers_) Remove(leftover.file);
  leftovers_.clear();
  TellLeftoversChanged();
}

}  // namespace lorelin
