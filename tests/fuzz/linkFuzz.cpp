#include <string>

#include "app/browserLinks.h"
#include "base/text.h"
#include "tests/fuzz/input.h"
#include "tests/support/FakePorts.h"

using lorelin::fuzz::Hold;

namespace {

// What became of one link.
struct Outcome {
  lorelin::CallLog log;
  lorelin::FakeLog programLog;
  lorelin::FakeMainView view{log};
  lorelin::FakeDocumentEditor editor{log};
  lorelin::FakeMessageBoxes messageBoxes;
  lorelin::FakeShell shell;
  int commands = 0;
  int spoken = 0;
  bool cancelled = false;

  void Follow(std::string& address) {
    lorelin::BrowserLinks links({.view = view,
                                 .editor = editor,
                                 .messageBoxes = messageBoxes,
                                 .shell = shell,
                                 .log = programLog,
                                 .textmode = [this] { ++commands; },
                                 .openDoc = [this] { ++commands; },
                                 .showHomePage = [this] { ++commands; },
                                 .speak = [this] { ++spoken; }});
    cancelled = links.BeforeNavigate(address);
  }
};

bool IsWebAddress(std::string_view address) {
  const std::string lower = lorelin::LowerAscii(address.substr(0, 8));
  return lower.starts_with("http://") || lower.starts_with("https://");
}

void CheckCommand(const std::string& before, const Outcome& outcome) {
  Hold(outcome.cancelled && outcome.commands <= 1 && outcome.spoken == 0 && outcome.shell.opened.empty());
  Hold(outcome.editor.text.empty());
  const bool known =
      before.starts_with("lo:Go(") || before.starts_with("lo:Open(") || before.starts_with("lo:Speak(");
  Hold((outcome.commands == 1) == known);
}

void CheckSpeech(const std::string& before, const Outcome& outcome) {
  std::string text = before.substr(6);
  lorelin::ReplaceAll(text, "%20", " ");
  Hold(outcome.cancelled && outcome.spoken == 1 && outcome.commands == 0 && outcome.editor.text == text);
  Hold(outcome.shell.opened.empty() && outcome.messageBoxes.boxes.empty());
}

void CheckOther(const std::string& before, const std::string& after, const Outcome& outcome, bool agreed) {
  const bool web = IsWebAddress(before);
  Hold(after == before && outcome.cancelled == web && outcome.commands == 0 && outcome.spoken == 0);
  Hold(outcome.messageBoxes.boxes.size() == (web ? 1U : 0U) && outcome.editor.text.empty());
  Hold(outcome.shell.opened.size() == (web && agreed ? 1U : 0U));
}

}  // namespace

// A link runs one command, or speaks, or asks before it goes to the web, or does nothing at all.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lorelin::fuzz::Input input(data, size);
  const bool agreed = input.Byte() % 2 == 0;
  Outcome outcome;
  outcome.messageBoxes.answers.push_back(agreed ? lorelin::MessageAnswer::Yes : lorelin::MessageAnswer::No);
  const std::string before(input.Rest());
  std::string after = before;
  outcome.Follow(after);
  if (before.starts_with("lo:")) {
    CheckCommand(before, outcome);
  } else if (before.starts_with("speak:")) {
    CheckSpeech(before, outcome);
  } else {
    CheckOther(before, after, outcome, agreed);
  }
  return 0;
}
