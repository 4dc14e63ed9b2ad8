#include <wx/app.h>
#include <wx/filesys.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>
#include <wx/webview.h>

// What a program with the same toolkit needs at least to show a window with a text control and a page: the
// peer that Lorelin's own start is measured against. The page's path is the argument.
class BareApp final : public wxApp {
 public:
  bool OnInit() override {
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Bare", wxDefaultPosition, wxSize(1000, 680));
    frame->CreateToolBar();
    frame->CreateStatusBar();
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    auto* const text =
        new wxTextCtrl(frame, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE | wxTE_RICH2);
    text->Hide();
    sizer->Add(text, 1, wxEXPAND);
    sizer->Add(wxWebView::New(frame, wxID_ANY, wxFileSystem::FileNameToURL(wxFileName(argv[1]))), 1,
               wxEXPAND);
    frame->SetSizer(sizer);
    frame->Show();
    return true;
  }
};

wxIMPLEMENT_APP(BareApp);
