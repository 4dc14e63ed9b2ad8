#include "documents/DocumentImport.h"

#include <chrono>

#include "base/RuntimeError.h"
#include "import/importAnswer.h"
#include "import/importFormats.h"
#include "richtext/rtf.h"

namespace lorelin {
namespace {

constexpr auto kPatience = std::chrono::milliseconds(400);  // what is shorter shows no window

// The window goes whatever happens.
class Shown {
 public:
  explicit Shown(ProgressWindow& window) : window_(window) {}
  ~Shown() {
    if (open_) window_.Close();
  }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

  bool Show(std::string_view text, int percent) {
    open_ = true;
    return window_.Show(text, percent < 0 ? 0 : percent / 100.0);
  }

 private:
  ProgressWindow& window_;
  bool open_ = false;
};

}  // namespace

ImportedDocument DocumentImport::Run(const ImportProcess::Job& job) {
  Shown shown(progress_);
  const auto begin = clock_.Steady();
  const auto* const text =
      job.recognisePages ? "Der Text der Seiten wird erkannt …" : "Das Dokument wird gelesen …";
  const ImportProcess::Answer answer = process_.Run(
      job, [&](int percent) { return clock_.Steady() - begin < kPatience || shown.Show(text, percent); });
  if (!answer.problem.empty()) throw RuntimeError(ErrorNumber::InvalidFileFormat, answer.problem);
  if (answer.bytes.empty()) throw RuntimeError(ErrorNumber::Cancelled);
  return ReadImportAnswer(answer.bytes);
}

void DocumentImport::Show(const std::string& path, DocumentEditor& editor) {
  if (!IsImportable(path)) {
    editor.LoadFile(path);
  } else {
    editor.ShowRichText(WriteRtf(Run({.path = path}).text));
  }
}

}  // namespace lorelin
