#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "base/consoleAnswers.h"
#include "base/paths.h"
#include "import/confinement.h"
#include "import/importAnswer.h"
#include "import/processStart.h"
#include "import/readDocument.h"

namespace {

using lorelin::ImportRequest;

constexpr int kSeconds = 9;

std::optional<ImportRequest> ReadArguments(const std::vector<std::string>& arguments) {
  ImportRequest request;
  std::size_t next = 0;
  for (; next < arguments.size() && arguments[next] != "--"; ++next) {
    const std::string& argument = arguments[next];
    if (argument == "--article") {
      request.articleOnly = true;
    } else if (argument == "--recognise") {
      request.recognisePages = true;
    } else if (argument == "--source" && next + 1 < arguments.size()) {
      request.source = arguments[++next];
    } else if (argument == "--charset" && next + 1 < arguments.size()) {
      request.charset = arguments[++next];
    } else {
      return {};
    }
  }
  if (next + 2 != arguments.size()) return {};
  request.path = arguments[next + 1];
  return request;
}

// False when nobody reads any more.
bool Write(std::string_view bytes) {
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() && std::fflush(stdout) == 0;
}

std::string Answer(const ImportRequest& request) {
  try {
    return lorelin::WriteImportAnswer(lorelin::ReadDocument(
        request, [](int percent) { (void)Write("progress " + std::to_string(percent) + "\n"); }));
  } catch (const lorelin::RuntimeError& error) {
    return lorelin::WriteImportProblem(error.what());
  } catch (const std::bad_alloc&) {
    return lorelin::WriteImportProblem(
        "Das Dokument ist zu umfangreich, um geöffnet zu werden: Es braucht zu viel Arbeitsspeicher.");
  } catch (const std::exception&) {
    return lorelin::WriteImportProblem(
        "Die Datei ließ sich nicht einlesen. Wahrscheinlich ist sie beschädigt; bitte öffnen Sie eine andere "
        "Kopie.");
  }
}

}  // namespace

constexpr std::string_view kHelp =
    "lorelin-import liest ein Dokument und schreibt es für lorelin und lorelin-cli auf; diese starten es "
    "selbst.\n"
    "\n"
    "  lorelin-import [--article] [--recognise] [--source ADRESSE] [--charset NAME] -- DATEI\n"
    "\n"
    "Optionen:\n"
    "  --article         nimmt von einer Webseite nur den Artikel\n"
    "  --recognise       erkennt den Text auf Bildern von Seiten\n"
    "  --source ADRESSE  woher die Webseite kommt\n"
    "  --charset NAME    in welcher Kodierung sie laut ihrem Server geschrieben ist\n"
    "  --help            zeigt diese Hilfe\n"
    "  --version         nennt die Version\n"
    "\n";

// lorelin-import [--article] [--recognise] [--source ADDRESS] [--charset NAME] -- FILE: writes the document
// of the file for the program that reads its output.
int main(int argc, char** argv) {
  if (lorelin::AnswerOnConsole(argc, argv, std::string(kHelp) + lorelin::kConfinementText)) return 0;
  const auto request = ReadArguments(lorelin::StartProcess(argc, argv));
  if (!request) {
    std::fputs("lorelin-import is started by lorelin and lorelin-cli.\n", stderr);
    return 2;
  }
  lorelin::Confine(lorelin::NativePath(request->path), request->recognisePages);
  lorelin::GiveComputingTime(kSeconds);
  const std::string answer = Answer(*request);
  lorelin::GiveComputingTime(0);
  return Write("answer " + std::to_string(answer.size()) + "\n") && Write(answer) ? 0 : 1;
}
