#include "desktop/frmAbout.h"

#include <wx/button.h>
#include <wx/image.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>

#include <algorithm>

#include "base/version.h"
#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/icons.h"
#include "desktop/toolkit/plainText.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kWidth = 420;
constexpr int kPictureHeight = 90;

}  // namespace

std::string VersionLabel(int major, int minor) {
  return "Version " + std::to_string(major) + "." + std::to_string(minor) + ".1";
}

FrmAbout::FrmAbout(wxWindow* parent, const std::string& pictureFile)
    : wxDialog(parent, wxID_ANY, ToWx("Über Lorelin"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE, "frmAbout") {
  const int gap = FromDIP(16);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(new wxStaticBitmap(this, wxID_ANY, Icon("lorelin", 64)), wxSizerFlags().Border(wxRIGHT, gap));
  auto* const texts = new wxBoxSizer(wxVERTICAL);
  auto* const name = NewPlainText(this, "Lorelin");
  name->SetFont(name->GetFont().Bold().Scaled(1.6F));
  texts->Add(name);
  texts->Add(NewPlainText(this, ToWx(VersionLabel(kVersionMajor, kVersionMinor)), 0, "lblVersion"),
             wxSizerFlags().Border(wxTOP, gap / 4));
  texts->Add(
      NewPlainText(this, ToWx("Liest Texte vor.\nFreie Software unter der GPL, Version 3 oder später.")),
      wxSizerFlags().Border(wxTOP, gap / 2));
  line->Add(texts, wxSizerFlags(1));
  sizer->Add(line, wxSizerFlags().Expand().Border(wxALL, gap));
  auto* const ok = new wxButton(this, wxID_OK, ToWx("&Schließen"));
  ok->SetDefault();
  sizer->Add(ok, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  if (wxImage image; image.LoadFile(ToWx(pictureFile))) {
    auto* const picture = new wxStaticBitmap(
        this, wxID_ANY,
        wxBitmap(image.Rescale(std::max(sizer->CalcMin().x, FromDIP(kWidth)), FromDIP(kPictureHeight))),
        wxDefaultPosition, wxDefaultSize, 0, "picAbout");
    SetAccessibleName(*picture, "Bild");
    picture->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { EndModal(wxID_OK); });
    sizer->Prepend(picture);
  }
  SetSizerAndFit(sizer);
  SetMinClientSize(FromDIP(wxSize(kWidth, -1)));
  Fit();
  CentreOnParent();
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent&) { EndModal(wxID_OK); });
  ok->SetFocus();
}

}  // namespace lorelin
