#include "documents/DocumentImport.h"

#include "base/RuntimeError.h"
#include "documents/LateProgress.h"
#include "import/importAnswer.h"
#include "import/importFormats.h"
#include "richtext/rtf.h"

namespace lorelin {

ImportedDocument DocumentImport::Run(const ImportProcess::Job& job) {
  LateProgress progress(progress_, clock_);
  const auto* const text =
      job.recognisePages ? "Der Text der Seiten wird erkannt …" : "Das Dokument wird gelesen …";
  const ImportProcess::Answer answer =
      process_.Run(job, [&](int percent) { return progress.Show(text, percent < 0 ? 0 : percent / 100.0); });
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
