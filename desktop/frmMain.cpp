#include "desktop/frmMain.h"

#include <wx/display.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/toolbar.h>

#include <algorithm>
#include <utility>

#include "app/WindowModules.h"
#include "app/windowPlacement.h"
#include "desktop/frmFind.h"
#include "desktop/toolkit/DropTarget.h"
#include "desktop/toolkit/fontScale.h"
#include "desktop/toolkit/icons.h"
#include "desktop/toolkit/menuAccelerators.h"
#include "desktop/toolkit/statusBar.h"
#include "desktop/toolkit/text.h"
#include "desktop/toolkit/toolBar.h"

namespace lorelin {
namespace {

constexpr int kEscapeCode = 27;
constexpr int kF4Code = 115;
constexpr int kClipboardInterval = 1500;  // milliseconds
constexpr int kTitleInterval = 500;
constexpr int kSnapshotDelay = 5000;
const wxSize kUsualSize(1000, 680);
constexpr double kWidestTasks = 0.34;  // of the window's width, to begin with

// Name first, since menus and screen readers begin there.
std::string ShortPath(const std::string& path) {
  const auto separator = path.find_last_of("/\\");
  if (separator == std::string::npos) return path;
  return path.substr(separator + 1) + " – " + path.substr(0, separator);
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
      tmrWinTasks_(this),
      snapshot_(this),
      menu_(*this, MenuCommands()) {
  SetIcons(wxIconBundle(Icon("lorelin", 64).GetIcon(FromDIP(wxSize(64, 64)))));
  BuildToolbar();
  BuildStatusBar();
  BuildPanes(filterFolder, log);
  SetMinClientSize(FromDIP(wxSize(560, 360)));
  SetSize(ScaledByFont(*this, kUsualSize));
  Bind(wxEVT_CHAR_HOOK, &FrmMain::OnCharHook, this);
  Bind(wxEVT_TIMER, [this](wxTimerEvent& event) {
    if (modules_ == nullptr) return;
    const wxTimer* const timer = &event.GetTimer();
    modules_->timers.Ticked(timer == &tmrClipboard_  ? WatchTimer::Clipboard
                            : timer == &tmrWinTasks_ ? WatchTimer::WindowTitle
                                                     : WatchTimer::Snapshot);
  });
  Bind(wxEVT_CLOSE_WINDOW, &FrmMain::OnClose, this);
  Bind(wxEVT_ACTIVATE, &FrmMain::OnActivate, this);
}

FrmMain::~FrmMain() {
  if (modules_ != nullptr) modules_->window.Unloaded();
}

MainMenu::Commands FrmMain::MenuCommands() {
  return {.run = [this](std::string_view command) { modules_->window.RunCommand(command); },
          .possible =
              [this](std::string_view command) {
                return modules_ == nullptr ? std::nullopt : modules_->commands.IsPossible(command);
              }};
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
        wxEVT_TOOL, [this, key = button.key](wxCommandEvent&) { modules_->window.ToolbarClicked(key); }, id);
    menu_.Bind(id, button.command);
  }
  bar->Realize();
  FinishToolbar(*bar, "Werkzeugleiste");
}

void FrmMain::BuildStatusBar() {
  MakeStatusBar(*this, "100000000 Zeichen.")->SetStatusText("0 Zeichen.", 0);
  placeLine_ = std::make_unique<PlaceLine>(*GetStatusBar());
  SetStatusBarPane(-1);  // the menus have no help texts that would wipe out what stands there
}

void FrmMain::BuildPanes(const std::string& filterFolder, Log& log) {
  splitter_ = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                   wxSP_LIVE_UPDATE | wxSP_NOBORDER);
  wxWindow* const side = BuildSide();
  auto* const place = new wxPanel(splitter_);
  rtfText_ = new WxDocumentEditor(place);
  wbBrowser_ = new WxBrowserPane(place, filterFolder, log);
  wbBrowser_->Hide();
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(rtfText_, wxSizerFlags(1).Expand());
  sizer->Add(wbBrowser_, wxSizerFlags(1).Expand());
  place->SetSizer(sizer);
  splitter_->SetMinimumPaneSize(FromDIP(140));
  const int tasksWidth = ctlTask_->GetTextExtent(ToWx("Sprachausgabe als WAV speichern")).x + FromDIP(56);
  const int most = static_cast<int>(ScaledByFont(*this, kUsualSize).x * kWidestTasks);
  splitter_->SplitVertically(side, place, std::min(most, std::max(FromDIP(220), tasksWidth)));
  AcceptFiles(*rtfText_);
  AcceptFiles(*wbBrowser_);
  wbBrowser_->OnViewMade([this](wxWindow& view) { AcceptFiles(view); });
  AcceptFiles(*this);  // and whatever in it has none of its own
  AcceptFiles(*GetToolBar());
  AcceptFiles(*GetStatusBar());
  rtfText_->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) { ShowEditorMenu(event); });
  rtfText_->Bind(wxEVT_LEFT_DOWN, &FrmMain::OnEditorClick, this);
  FollowText();
}

wxWindow* FrmMain::BuildSide() {
  auto* const side = new wxPanel(splitter_);
  side->SetSizer(new wxBoxSizer(wxVERTICAL));
  ctlTask_ = new WxTaskPane(side);
  side->GetSizer()->Add(ctlTask_, wxSizerFlags(1).Expand());
  chapters_ = new WxChapterPane(side);
  side->GetSizer()->Add(chapters_, wxSizerFlags(1).Expand());
  return side;
}

void FrmMain::FollowText() {
  rtfText_->Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
    event.Skip();
    if (modules_ == nullptr) return;
    modules_->window.EditorChanged(rtfText_->CharacterCount());
    modules_->chapters.Edited(rtfText_->CharacterCount());
  });
  const auto caret = [this](wxEvent& event) {
    event.Skip();
    CallAfter([this] {
      if (modules_ != nullptr) modules_->chapters.CaretMoved();
    });
  };
  rtfText_->Bind(wxEVT_KEY_UP, caret);
  rtfText_->Bind(wxEVT_LEFT_UP, caret);
}

void FrmMain::PointAt(const wxPoint& place) {
  long position = 0;
  if (rtfText_->HitTest(place, &position) != wxTE_HT_UNKNOWN) rtfText_->SetInsertionPoint(position);
}

void FrmMain::OnEditorClick(wxMouseEvent& event) {
  if (!event.ControlDown() || modules_ == nullptr) return event.Skip();
  PointAt(event.GetPosition());
  modules_->window.RunCommand("ReadFromHere");
}

// By the keyboard it opens at the caret.
void FrmMain::ShowEditorMenu(const wxContextMenuEvent& event) {
  wxPoint place = rtfText_->ScreenToClient(event.GetPosition());
  if (event.GetPosition() == wxDefaultPosition) {
    place = rtfText_->PositionToCoords(rtfText_->GetInsertionPoint());
    if (place.y < 0 || place.y > rtfText_->GetClientSize().y) place = wxPoint(0, 0);
    place.y += rtfText_->GetCharHeight();
  }
  if (event.GetPosition() != wxDefaultPosition && !rtfText_->HasSelection()) PointAt(place);
  const std::unique_ptr<wxMenu> menu = menu_.ForEditor();
  rtfText_->PopupMenu(menu.get(), place);
}

// What is nothing but an address is opened.
void FrmMain::TakeText(const std::string& text) {
  if (IsWebAddress(text)) {
    CallAfter([this, text] { modules_->addresses.Open(text); });
  } else if (!ShowsPage()) {
    rtfText_->ReplaceSelection(text);
  }
}

// Only the first of several files: there is one document. A voice is more than one.
void FrmMain::TakeFiles(const std::vector<std::string>& paths) {
  if (!modules_->edges.takeVoice(paths)) modules_->opening.Open(paths.front());
}

void FrmMain::AcceptFiles(wxWindow& window) {
  window.SetDropTarget(
      new DropTarget({.files = [this](const auto& paths) { CallAfter([this, paths] { TakeFiles(paths); }); },
                      .text = [this](const std::string& text) { TakeText(text); }}));
}

void FrmMain::OnCharHook(wxKeyEvent& event) {
  const int code = WindowKey(event);
  if (code != 0 && modules_->window.KeyPressed(code)) return;
  if (!RunMenuKey(*this, event)) event.Skip();
}

// Behind the event: what follows may ask something.
void FrmMain::OnActivate(wxActivateEvent& event) {
  event.Skip();
  if (!event.GetActive()) return;
  CallAfter([this] {
    if (modules_ != nullptr) modules_->documents.LookAtFile();
  });
}

void FrmMain::OnClose(wxCloseEvent& event) {
  modules_->window.CloseRequested(!event.CanVeto());
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
  menu_.Check(name, checked);
}

void FrmMain::EnableCommand(std::string_view command, bool enabled) {
  for (const ToolbarButton& button : ToolbarButtons()) {
    if (button.command == command && !button.key.empty())
      GetToolBar()->EnableTool(toolIds_.at(std::string(button.key)), enabled);
  }
  menu_.Enable(command, enabled);
}

// The frame keeps its toolbar as wide as itself; this settles its height for the font in use.
void FrmMain::StretchToolbar() {
  SendSizeEvent();
}

void FrmMain::EnableTimer(WatchTimer timer, bool enabled) {
  wxTimer& target = timer == WatchTimer::Clipboard     ? tmrClipboard_
                    : timer == WatchTimer::WindowTitle ? tmrWinTasks_
                                                       : snapshot_;
  if (!enabled) return target.Stop();
  if (timer == WatchTimer::Snapshot) {
    target.StartOnce(kSnapshotDelay);
  } else {
    target.Start(timer == WatchTimer::Clipboard ? kClipboardInterval : kTitleInterval);
  }
}

void FrmMain::SetTitle(std::string_view title) {
  wxFrame::SetTitle(ToWx(title));
}

void FrmMain::SetRecentFiles(const std::vector<std::string>& paths) {
  wxMenu& menu = menu_.Recent();
  while (menu.GetMenuItemCount() > 0) menu.Destroy(menu.FindItemByPosition(0));
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const wxString caption =
        wxString::Format("&%zu ", i + 1) + wxControl::EscapeMnemonics(ToWx(ShortPath(paths[i])));
    const wxMenuItem& item = *menu.Append(wxID_ANY, caption);
    menu.Bind(
        wxEVT_MENU, [this, i](wxCommandEvent&) { CallAfter([this, i] { modules_->opening.OpenRecent(i); }); },
        item.GetId());
  }
  if (paths.empty()) menu.Append(wxID_ANY, "(noch keine)")->Enable(false);
}

void FrmMain::Undo() {
  rtfText_->Undo();
}
void FrmMain::Redo() {
  rtfText_->Redo();
}

bool FrmMain::CanUndo() {
  return rtfText_->IsShown() && rtfText_->CanUndo();
}
bool FrmMain::CanRedo() {
  return rtfText_->IsShown() && rtfText_->CanRedo();
}
bool FrmMain::HasSelection() {
  return rtfText_->IsShown() && rtfText_->HasSelection();
}

void FrmMain::SelectAll() {
  if (rtfText_->IsShown()) return rtfText_->SelectAll();
  wbBrowser_->SelectAll();
}

void FrmMain::ShowSearch(bool replace) {
  if (frmFind_ == nullptr) frmFind_ = new FrmFind(this, *rtfText_, *wbBrowser_);
  frmFind_->Open(replace);
}

void FrmMain::SearchAgain() {
  if (frmFind_ == nullptr || !frmFind_->SearchAgain()) ShowSearch(false);
}

void FrmMain::SetZoom(int steps) {
  rtfText_->SetZoom(steps);
  wbBrowser_->SetZoom(steps);
}

std::string FrmMain::Placement() {
  const wxRect place = GetRect();
  return PlacementText({.x = place.x,
                        .y = place.y,
                        .width = place.width,
                        .height = place.height,
                        .maximized = IsMaximized(),
                        .sash = splitter_->GetSashPosition()});
}

// A place on a screen that has gone, or too small to be found, is not taken.
void FrmMain::Place(std::string_view placement) {
  const auto kept = ParsePlacement(placement);
  if (!kept) return;
  const wxRect place(kept->x, kept->y, kept->width, kept->height);
  const bool seen = wxDisplay::GetFromPoint(place.GetTopLeft() + wxPoint(place.width / 2, 10)) != wxNOT_FOUND;
  if (seen && place.width >= GetMinWidth() && place.height >= GetMinHeight()) SetSize(place);
  if (kept->maximized) Maximize();
  if (kept->sash >= splitter_->GetMinimumPaneSize() && kept->sash < place.width)
    splitter_->SetSashPosition(kept->sash);
}

void FrmMain::ShowWindow() {
  Show();
  Raise();
}

void FrmMain::HideWindow() {
  Hide();
}
void FrmMain::SetMessage(std::string_view text) {
  ShowStatus(*GetStatusBar(), ToWx(text));
}
std::string FrmMain::Message() {
  return FromWx(GetStatusBar()->GetStatusText(1));
}
void FrmMain::SetNotice(std::string_view name, std::string_view text) {
  notices_.insert_or_assign(std::string(name), std::string(text));
  std::string all;
  for (const auto& [_, notice] : notices_) {
    if (!notice.empty()) all += (all.empty() ? "" : "  ·  ") + notice;
  }
  ShowNotice(*GetStatusBar(), ToWx(all));
}
void FrmMain::SetFirstPanel(std::string_view text) {
  SetStatusText(ToWx(text), 0);
}

}  // namespace lorelin
