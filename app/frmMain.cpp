#include "app/frmMain.h"

#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/statusbr.h>
#include <wx/toolbar.h>

#include <utility>

#include "app/MainWindow.h"
#include "platform/wx/accessibility.h"
#include "platform/wx/icons.h"
#include "platform/wx/text.h"

namespace lorelin {
namespace {

constexpr int kEscapeCode = 27;
constexpr int kF4Code = 115;
constexpr int kClipboardInterval = 1500;  // milliseconds
constexpr int kTitleInterval = 500;

wxString MenuLabel(const MenuEntry& entry) {
  wxString label = ToWx(entry.caption);
  if (!entry.shortcut.empty()) label += "\t" + ToWx(entry.shortcut);
  return label;
}

// The two modes show which of them is on.
wxItemKind KindOf(const MenuEntry& entry) {
  return entry.name == "mnuTextmode" || entry.name == "mnuInternet" ? wxITEM_CHECK : wxITEM_NORMAL;
}

// The code by which the system knows the key, for the keys that the window itself takes; 0 for the others.
int WindowKey(const wxKeyEvent& event) {
  if (event.HasAnyModifiers()) return 0;
  if (event.GetKeyCode() == WXK_ESCAPE) return kEscapeCode;
  return event.GetKeyCode() == WXK_F4 ? kF4Code : 0;
}

}  // namespace

FrmMain::FrmMain(const std::string& filterFolder, std::function<void()> endProgram, Log& log)
    : wxFrame(nullptr, wxID_ANY, "Lorelin", wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE,
              "frmMain"),
      endProgram_(std::move(endProgram)),
      tmrClipboard_(this),
      tmrWinTasks_(this) {
  SetIcons(wxIconBundle(Icon("lorelin", 64).GetIcon(FromDIP(wxSize(64, 64)))));
  BuildMenus();
  BuildToolbar();
  BuildStatusBar();
  BuildPanes(filterFolder, log);
  SetMinClientSize(FromDIP(wxSize(560, 360)));
  SetSize(FromDIP(wxSize(1000, 680)));
  Bind(wxEVT_CHAR_HOOK, &FrmMain::OnCharHook, this);
  Bind(wxEVT_CLOSE_WINDOW, &FrmMain::OnClose, this);
}

FrmMain::~FrmMain() {
  if (window_ != nullptr) window_->Unloaded();
}

void FrmMain::BuildMenus() {
  auto* const bar = new wxMenuBar;
  for (const Menu& menu : MainMenus()) {
    auto* const entries = new wxMenu;
    for (const MenuEntry& entry : menu.entries) {
      if (entry.command.empty()) {
        entries->AppendSeparator();
        continue;
      }
      const int id = wxWindow::NewControlId();
      menuIds_.emplace(entry.name, id);
      entries->Append(id, MenuLabel(entry), wxEmptyString, KindOf(entry));
      Bind(
          wxEVT_MENU, [this, command = entry.command](wxCommandEvent&) { window_->RunCommand(command); }, id);
    }
    bar->Append(entries, ToWx(menu.caption));
  }
  SetMenuBar(bar);
}

void FrmMain::BuildToolbar() {
  wxToolBar* const bar = CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | wxTB_TEXT, wxID_ANY, "Toolbar1");
  for (const ToolbarButton& button : ToolbarButtons()) {
    if (button.key.empty()) {
      bar->AddSeparator();
      continue;
    }
    const int id = wxWindow::NewControlId();
    toolIds_.emplace(button.key, id);
    bar->AddTool(id, ToWx(button.key), Icon(button.icon, 24), ToWx(button.tooltip));
    Bind(
        wxEVT_TOOL, [this, key = button.key](wxCommandEvent&) { window_->ToolbarClicked(key); }, id);
  }
  bar->Realize();
  SetAccessibleName(*bar, "Werkzeugleiste");
}

void FrmMain::BuildStatusBar() {
  wxStatusBar* const bar = CreateStatusBar(2, wxSTB_DEFAULT_STYLE, wxID_ANY, "StatusBar1");
  const int widths[] = {FromDIP(140), -1};
  bar->SetStatusWidths(2, widths);
  bar->SetStatusText("0 Zeichen.", 0);
}

void FrmMain::BuildPanes(const std::string& filterFolder, Log& log) {
  splitter_ = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                   wxSP_LIVE_UPDATE | wxSP_NOBORDER);
  ctlTask_ = new WxTaskPane(splitter_);
  auto* const place = new wxPanel(splitter_);
  rtfText_ = new WxDocumentEditor(place);
  wbBrowser_ = new WxBrowserPane(place, filterFolder, log);
  wbBrowser_->Hide();
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(rtfText_, wxSizerFlags(1).Expand());
  sizer->Add(wbBrowser_, wxSizerFlags(1).Expand());
  place->SetSizer(sizer);
  splitter_->SetMinimumPaneSize(FromDIP(140));
  splitter_->SplitVertically(ctlTask_, place, FromDIP(220));
  rtfText_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
    if (window_ != nullptr) window_->EditorChanged(rtfText_->CharacterCount());
  });
}

void FrmMain::OnCharHook(wxKeyEvent& event) {
  const int code = WindowKey(event);
  if (code == 0 || !window_->KeyPressed(code)) event.Skip();
}

void FrmMain::OnClose(wxCloseEvent&) {
  window_->CloseRequested();
}

void FrmMain::ShowEditor(bool visible) {
  rtfText_->Show(visible);
  rtfText_->GetParent()->Layout();
}

void FrmMain::ShowBrowser(bool visible) {
  wbBrowser_->Show(visible);
  wbBrowser_->GetParent()->Layout();
}

void FrmMain::FocusEditor() {
  rtfText_->SetFocus();
}

void FrmMain::CheckMenuEntry(std::string_view name, bool checked) {
  if (const auto found = menuIds_.find(name); found != menuIds_.end())
    GetMenuBar()->Check(found->second, checked);
}

void FrmMain::EnableToolbarButton(std::string_view key, bool enabled) {
  if (const auto found = toolIds_.find(key); found != toolIds_.end())
    GetToolBar()->EnableTool(found->second, enabled);
}

// The frame keeps its toolbar as wide as itself; this settles its height for the font in use.
void FrmMain::StretchToolbar() {
  SendSizeEvent();
}

void FrmMain::EnableTimer(WatchTimer timer, bool enabled) {
  wxTimer& target = timer == WatchTimer::Clipboard ? tmrClipboard_ : tmrWinTasks_;
  if (enabled) {
    target.Start(timer == WatchTimer::Clipboard ? kClipboardInterval : kTitleInterval);
  } else {
    target.Stop();
  }
}

void FrmMain::SetTitle(std::string_view title) {
  wxFrame::SetTitle(ToWx(title));
}

void FrmMain::ShowWindow() {
  Show();
  Raise();
}

void FrmMain::HideWindow() {
  Hide();
}
void FrmMain::SetMessage(std::string_view text) {
  SetStatusText(ToWx(text), 1);
}
void FrmMain::SetFirstPanel(std::string_view text) {
  SetStatusText(ToWx(text), 0);
}

}  // namespace lorelin
