#include <wx/app.h>

#include <memory>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/consoleAnswers.h"
#include "base/paths.h"
#include "desktop/frmXMGR.h"
#include "desktop/toolkit/WxEventPump.h"
#include "desktop/toolkit/WxMessageBoxes.h"
#include "desktop/toolkit/toolkit.h"
#include "desktop/toolkit/userLocale.h"
#include "ports/Platform.h"

namespace lorelin {
namespace {

// The extension manager: a program of its own, since it changes what Lorelin itself only reads.
class ManagerApp final : public wxApp {
 public:
  ManagerApp()
      : services_(MakePlatformServices(false)), access_(*services_.registry, *services_.fileWriter) {}

  bool OnInit() override {
    SetAppDisplayName("Lorelin");
    PrepareToolkit(*services_.log);
    services_.automation->WhileWaiting([] {
      WxEventPump::Repaint();
      return true;
    });
    window_ = new FrmXMGR(
        {.registrations = registrations_,
         .automation = *services_.automation,
         .messageBoxes = messageBoxes_,
         .shipped = {{.name = "Abkürzungen", .objectName = "org.lorelin.Abkuerzungen", .install = [this] {
                        Install("lorelin-abkuerzungen");
                      }}}});
    messageBoxes_.SetParent(window_);
    window_->Show();
    // Nobody has to wait for the window while objects are created.
    CallAfter([this] {
      TellRegistryNotice();
      window_->Check();
    });
    return true;
  }

  int OnExit() override {
    ReleaseToolkit();
    return wxApp::OnExit();
  }

 private:
  void TellRegistryNotice() {
    if (services_.registryNotice.empty()) return;
    messageBoxes_.Show(services_.registryNotice, "Lorelin", MessageIcon::Exclamation, MessageButtons::Ok);
    services_.registry->ConfirmLoss();
  }

  void Install(const std::string& program) {
    const std::string folder = PathText(NativePath(services_.paths.programFile).parent_path());
    try {
      services_.launcher->Start({JoinPath(folder, {program}), "--install"});
    } catch (const RuntimeError& error) {
      services_.log->Write(program + ": " + error.what());
    }
  }

  PlatformServices services_;
  ClsRegistryAccess access_;
  Registrations registrations_{access_};
  WxMessageBoxes messageBoxes_;
  FrmXMGR* window_ = nullptr;  // deletes itself when it is closed
};

}  // namespace
}  // namespace lorelin

namespace {

constexpr std::string_view kHelp =
    "XMGR verwaltet die Erweiterungen von Lorelin: Programme, die jeden Text sehen, bevor er vorgelesen "
    "wird.\n"
    "\n"
    "  XMGR  öffnet das Fenster\n"
    "\n"
    "Optionen:\n"
    "  --help     zeigt diese Hilfe\n"
    "  --version  nennt die Version\n";

}  // namespace

int main(int argc, char** argv) {
  if (lorelin::AnswerOnConsole(argc, argv, kHelp)) return 0;
  lorelin::SetUserLocale();
  wxApp::SetInstance(new lorelin::ManagerApp);
  return wxEntry(argc, argv);
}
