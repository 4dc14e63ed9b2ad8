#include "app/MainWindow.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/RuntimeError.h"

namespace lorelin {
namespace {

constexpr int kEscapeKey = 27;
constexpr int kF4Key = 115;

}  // namespace

void MainWindow::Load() {
  LoadFor(false);
}

void MainWindow::LoadFor(bool text) {
  if (std::exchange(loaded_, true)) return;
  RunSteps(parts_.log, "Laden", parts_.loadSequence(text));
}

void MainWindow::Textmode() {
  LoadFor(true);
  parts_.modes.Textmode();
}

void MainWindow::InteractiveMode() {
  Load();
  parts_.modes.InteractiveMode();
}

void MainWindow::ExitLo() {
  if (parts_.documents.MayExit()) CloseRequested();
}

void MainWindow::RunCommand(std::string_view command) {
  Run(command, [&] {
    if (!parts_.commands.Run(command)) parts_.log.Write("Unbekannter Befehl: " + std::string(command));
  });
}

void MainWindow::Run(std::string_view name, const std::function<void()>& effect) {
  try {
    effect();
  } catch (const RuntimeError& error) {
    parts_.messageBoxes.Show(std::string(error.what()) + " (" + std::to_string(error.Number()) + ")",
                             "Fehler", MessageIcon::Exclamation, MessageButtons::Ok);
  } catch (const std::exception& error) {
    parts_.log.Write(std::string(name) + ": " + error.what());
    parts_.messageBoxes.Show(error.what(), "Fehler", MessageIcon::Exclamation, MessageButtons::Ok);
  }
}

void MainWindow::ToolbarClicked(std::string_view key) {
  const auto buttons = ToolbarButtons();
  const auto found =
      std::find_if(buttons.begin(), buttons.end(), [&](const auto& b) { return b.key == key; });
  if (found != buttons.end() && !key.empty()) RunCommand(found->command);
}

bool MainWindow::KeyPressed(int code) {
  if (code == kEscapeKey) {
    parts_.interpreter.Cancel();
    RunCommand("Stop");
    return true;
  }
  if (code == kF4Key) {
    if (!parts_.shell.OpenFolder(parts_.programFolder)) parts_.log.Write("Kein Dateimanager für F4");
    return true;
  }
  return false;
}

void MainWindow::EditorChanged(std::size_t characters) {
  parts_.statusBar.SetFirstPanel(std::to_string(characters) + " Zeichen.");
  parts_.documents.Changed();
  parts_.recovery.Changed();
}

void MainWindow::CloseRequested(bool forced) {
  if (closing_ || (!forced && !MayClose())) return;
  closing_ = true;
  parts_.interpreter.Cancel();
  RunSteps(parts_.log, "Schließen", parts_.closeSequence(forced));
  parts_.view.EndProgram();
}

bool MainWindow::MayClose() {
  return parts_.mayClose() && parts_.recovery.MayGo();
}

void MainWindow::Unloaded() {
  parts_.interpreter.Cancel();
  if (std::exchange(closing_, true)) return;
  parts_.view.EndProgram();
}

}  // namespace lorelin
