#include "export/RenderedBook.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

#include "base/StoredZip.h"
#include "base/paths.h"
#include "base/unfinishedName.h"
#include "export/TextRendering.h"
#include "export/bookFiles.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

// The sound of a part until it is in the book; goes with the object.
class PartFile {
 public:
  PartFile(const std::string& book, std::size_t number)
      : path_(UnfinishedName(NativePath(book + "." + std::to_string(number + 1) + ".mp3"))) {
    Remove();
  }
  ~PartFile() { Remove(); }
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;
  [[nodiscard]] std::string Path() const { return PathText(path_); }

 private:
  void Remove() const {
    std::error_code error;
    std::filesystem::remove(path_, error);
  }

  std::filesystem::path path_;
};

// A random UUID (RFC 4122, version 4).
std::string NewIdentifier() {
  std::random_device random;
  std::array<unsigned, 8> words{};
  for (unsigned& word : words) word = random() & 0xFFFFU;
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "urn:uuid:%04x%04x-%04x-4%03x-%04x-%04x%04x%04x", words[0],
                words[1], words[2], words[3] & 0xFFFU, (words[4] & 0x3FFFU) | 0x8000U, words[5], words[6],
                words[7]);
  return text.data();
}

class BookRendering {
 public:
  BookRendering(const PlannedFile& file, const ExportVoice& voice, SoundRendering& rendering,
                RenderingProgress& progress)
      : file_(file), voice_(voice), rendering_(rendering), progress_(progress) {
    book_.title = file.tags.title.empty() ? PathText(NativePath(file.target).stem()) : file.tags.title;
    book_.author = file.tags.author;
    book_.language = file.tags.language;
    book_.identifier = NewIdentifier();
    book_.modified = std::chrono::system_clock::now();
    book_.chapters = file.text->info.chapters;
  }

  // Why it is not whole; nothing when it is.
  std::optional<RenderingResult> Run() {
    for (const PlannedFile& part : PartsOf(file_, ChaptersForFiles(book_.chapters, file_.text->written))) {
      auto problem = Render(part);
      if (problem) return problem;
    }
    return std::nullopt;
  }
  void Write(FileWriter& files) {
    StoredZip archive;
    for (BookFile& file : MakeBookFiles(book_)) archive.Add(file.name, std::move(file.bytes));
    for (std::size_t i = 0; i < book_.parts.size(); ++i) {
      if (book_.parts[i].Length() > milliseconds(0)) archive.AddFile(SoundNameOf(i), sounds_[i]->Path());
    }
    files.Join(file_.target, archive.Finish());
  }

 private:
  std::optional<RenderingResult> Render(const PlannedFile& part) {
    const PartFile& sound = *sounds_.emplace_back(std::make_unique<PartFile>(file_.target, sounds_.size()));
    TextRendering rendering(part, voice_, rendering_, progress_, part.written.begin);
    const std::optional<EndOfText> end = rendering.Run(sound.Path());
    if (!end) return RenderingResult{RenderingEnd::Cancelled, {}};
    if (!end->complete) return RenderingResult{RenderingEnd::CutShort, end->reason};
    book_.parts.push_back(
        {part.tags.title, MakeSpokenParagraphs(file_.text->written, part.written, rendering.Words(),
                                               end->length, book_.chapters, file_.text->formats)});
    return std::nullopt;
  }

  const PlannedFile& file_;
  const ExportVoice& voice_;
  SoundRendering& rendering_;
  RenderingProgress& progress_;
  SpokenBook book_;
  std::vector<std::unique_ptr<PartFile>> sounds_;
};

}  // namespace

RenderingResult RenderBook(const PlannedFile& file, const ExportVoice& voice, SoundRendering& rendering,
                           FileWriter& files, RenderingProgress& progress) {
  BookRendering book(file, voice, rendering, progress);
  if (const auto problem = book.Run()) return *problem;
  book.Write(files);
  return {};
}

}  // namespace lorelin
