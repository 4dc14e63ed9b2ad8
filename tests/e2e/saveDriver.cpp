// Saves "neu" as the given file between two marks on standard output, then prints the message boxes: the
// system calls in between are those of a save.
#include <unistd.h>

#include <iostream>

#include "documents/Documents.h"
#include "platform/common/AtomicFileWriter.h"
#include "tests/support/FakeImportProcess.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"

int main(int argc, char** argv) {
  using namespace lorelin;
  if (argc != 2) return 2;
  CallLog calls;
  FakeLog log;
  FakeRegistry registry;
  FakeAutomation automation;
  FakeDocumentEditor editor(calls);
  FakeFileDialogs dialogs;
  FakeMessageBoxes boxes;
  FakeStatusBar statusBar;
  FakeEventPump pump;
  FakeImportProcess importer;
  FakeProgressWindow progress;
  FakeClock clock;
  DocumentImport import(importer, progress, clock);
  AtomicFileWriter files;
  ModAddin extensions(registry, files, automation, log);
  Documents documents({.editor = editor,
                       .fileDialogs = dialogs,
                       .files = files,
                       .messageBoxes = boxes,
                       .statusBar = statusBar,
                       .pump = pump,
                       .import = import,
                       .extensions = extensions,
                       .log = log});
  editor.text = "neu";
  dialogs.answer = argv[1];
  (void)!write(STDOUT_FILENO, "begin\n", 6);
  documents.SaveDoc();
  (void)!write(STDOUT_FILENO, "end\n", 4);
  for (const auto& box : boxes.boxes) std::cout << box.title << ": " << box.text << '\n';
  std::cout << (documents.Modified() ? "modified" : "saved") << '\n';
  return 0;
}
