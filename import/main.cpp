#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/consoleAnswers.h"
#include "import/confinement.h"
#include "import/importAnswer.h"
#include "import/readDocument.h"

namespace {

using lorelin::ImportRequest;

constexpr int kSeconds = 9;

std::optional<ImportRequest> ReadArguments(int argc, char** argv) {
  ImportRequest request;
  int next = 1;
  for (; next < argc && std::string_view(argv[next]) != "--"; ++next) {
    const std::string_view argument = argv[next];
    if (argument == "--article") {
      request.articleOnly = true;
    } else if (argument == "--recognise") {
      request.recognisePages = true;
    } else if (argument == "--source" && next + 1 < argc) {
      request.source = argv[++next];
    } else {
      return {};
    }
  }
  if (next + 2 != argc) return {};
  request.path = argv[next + 1];
  return request;
}

// False when nobody reads any more.
bool Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t size = write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(size));
  }
  return true;
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
    "  lorelin-import [--article] [--recognise] [--source ADRESSE] -- DATEI\n"
    "\n"
    "Optionen:\n"
    "  --article         nimmt von einer Webseite nur den Artikel\n"
    "  --recognise       erkennt den Text auf Bildern von Seiten\n"
    "  --source ADRESSE  woher die Webseite kommt\n"
    "  --help            zeigt diese Hilfe\n"
    "  --version         nennt die Version\n"
    "\n"
    "Der Prozess kann nichts schreiben und nichts aus dem Netz holen; Speicher und Zeit sind begrenzt.\n";

// lorelin-import [--article] [--recognise] [--source ADDRESS] -- FILE: writes the document of the file for
// the program that reads its output.
int main(int argc, char** argv) {
  if (lorelin::AnswerOnConsole(argc, argv, kHelp)) return 0;
  const auto request = ReadArguments(argc, argv);
  if (!request) {
    std::fputs("lorelin-import is started by lorelin and lorelin-cli.\n", stderr);
    return 2;
  }
  // Whoever no longer reads ends the writing, not the process.
  std::signal(SIGPIPE, SIG_IGN);
  lorelin::Confine(request->path, request->recognisePages);
  lorelin::GiveComputingTime(kSeconds);
  const std::string answer = Answer(*request);
  lorelin::GiveComputingTime(0);
  return Write("answer " + std::to_string(answer.size()) + "\n") && Write(answer) ? 0 : 1;
}
