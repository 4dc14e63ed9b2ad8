// How long the real editor takes for 10 MB: loading and showing, a typed character, a snapshot. Needs a
// display.
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "desktop/toolkit/WxDocumentEditor.h"
#include "desktop/toolkit/text.h"
#include "desktop/toolkit/userLocale.h"
#include "richtext/rtf.h"

namespace {

constexpr std::size_t kSize = 10'000'000;

double Milliseconds(const std::function<void()>& action) {
  const auto begin = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

long ResidentKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6));
  }
  return 0;
}

void Show(wxWindow& window) {
  window.Refresh();
  window.Update();
  for (int i = 0; i < 5; ++i) wxTheApp->SafeYield(nullptr, false);
}

void Tell(const char* what, double milliseconds, const char* limit) {
  std::cout << what << ": " << static_cast<long>(milliseconds + 0.5) << " ms (limit " << limit << ")\n";
}

std::string Plain() {
  std::string text;
  while (text.size() < kSize)
    text += "Die Größe der Übung überrascht: „Grüße“ aus Köln, 10 € für zwölf Boxkämpfer.\n";
  return text;
}

std::string Rtf() {
  std::string text =
      "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red200\\green0\\blue0;}";
  while (text.size() < kSize)
    text +=
        "Die Gr\\'f6\\'dfe der \\b \\'dcbung\\b0  \\'fcberrascht: \\cf1 Gr\\'fc\\'dfe\\cf0  aus K\\'f6ln, "
        "zehn "
        "\\i "
        "Mark\\i0  f\\'fcr zw\\'f6lf Boxk\\'e4mpfer.\\par\n";
  return text + "}";
}

}  // namespace

int main(int argc, char** argv) {
  using namespace lorelin;
  if (argc != 2) return 2;
  const bool rich = std::string(argv[1]) == "rtf";
  SetUserLocale();
  wxApp::SetInstance(new wxApp);
  int none = 0;
  if (!wxEntryStart(none, static_cast<wxChar**>(nullptr))) return 1;
  const std::string file =
      (std::filesystem::temp_directory_path() /
       ("lorelin-bench-" + std::to_string(::wxGetProcessId()) + (rich ? ".rtf" : ".txt")))
          .string();
  std::ofstream(file, std::ios::binary) << (rich ? Rtf() : Plain());
  auto* const frame = new wxFrame(nullptr, wxID_ANY, "Messung", wxDefaultPosition, wxSize(1000, 700));
  auto* const editor = new WxDocumentEditor(frame);
  frame->Show();
  Show(*frame);
  const long before = ResidentKilobytes();
  Tell(rich ? "10 MB of RTF loaded and shown" : "10 MB of text loaded and shown", Milliseconds([&] {
         editor->LoadFile(file);
         Show(*frame);
       }),
       "1000 ms");
  std::cout << "  memory: " << static_cast<double>(ResidentKilobytes() - before) * 1024 / kSize
            << " times the file (limit 12)\n";
  editor->SetInsertionPoint(100);
  double worst = 0;
  for (int i = 0; i < 40; ++i) {
    worst = std::max(worst, Milliseconds([&] {
                       editor->WriteText("x");
                       Show(*frame);
                     }));
  }
  Tell("a typed character, the worst of 40", worst, "50 ms");
  std::string rtf;
  Tell("its snapshot, without writing", Milliseconds([&] { rtf = editor->RichText(); }), "none");
  std::filesystem::remove(file);
  frame->Destroy();
  wxEntryCleanup();
  return 0;
}
