#include "cli/LoadedDocument.h"

#include <iostream>
#include <utility>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "cli/Failure.h"
#include "cli/files.h"
#include "cli/interruption.h"
#include "import/importAnswer.h"
#include "import/importFormats.h"
#include "richtext/chapters.h"
#include "richtext/rtf.h"

namespace lorelin::cli {
namespace {

Failure Unreadable(const std::string& input, const std::string& reason) {
  return {ExitCode::NoInput, "„" + input + "“ kann nicht gelesen werden: " + reason};
}

ImportedDocument Import(const std::string& input, ImportProcess& importer) {
  ImportProcess::Job job;
  job.path = input;
  const ImportProcess::Answer answer = importer.Run(job, [](int) {
    ThrowIfInterrupted();
    return true;
  });
  if (!answer.problem.empty()) throw Unreadable(input, answer.problem);
  try {
    return ReadImportAnswer(answer.bytes);
  } catch (const RuntimeError& error) {
    throw Unreadable(input, error.what());
  }
}

}  // namespace

LoadedDocument LoadDocument(const std::string& input, ImportProcess& importer) {
  LoadedDocument document;
  document.name = input == "-" ? "Text" : PathText(NativePath(input).stem());
  if (input != "-" && IsImportable(input)) {
    ImportedDocument imported = Import(input, importer);
    if (!imported.notice.empty()) std::cerr << imported.notice << '\n';
    document.text = std::move(imported.text.text);
    document.formats = std::move(imported.text.runs);
    document.info = std::move(imported.info);
    return document;
  }
  document.text = ReadText(input);
  if (IsRtf(document.text)) {
    RichText formatted = ReadRtf(document.text);
    document.info.chapters = ChaptersOf(formatted);
    document.text = std::move(formatted.text);
    document.formats = std::move(formatted.runs);
  }
  return document;
}

LoadedDocument LoadSpeakable(const std::string& input, ImportProcess& importer) {
  LoadedDocument document = LoadDocument(input, importer);
  RequireSpeakable(document.text);
  return document;
}

}  // namespace lorelin::cli
