#pragma once

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/dialog.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <chrono>
#include <string>
#include <vector>

#include "ports/EventPump.h"
#include "ports/MessageBoxes.h"
#include "voices/DownloadPace.h"
#include "voices/VoiceLibrary.h"

namespace lorelin {

// The dialog in which natural voices are looked for, fetched and removed.
class FrmMoreVoices final : public wxDialog {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    VoiceLibrary& voiceLibrary;
    MessageBoxes& messageBoxes;
    EventPump& pump;
  };

  FrmMoreVoices(wxWindow* parent, Parts parts);

  // Whether voices came or went.
  [[nodiscard]] bool Changed() const { return changed_; }

 private:
  void BuildList(wxSizer& sizer);
  void BuildProgress(wxSizer& sizer);
  void BuildButtons(wxSizer& sizer);
  void Fill(const std::string& select);
  [[nodiscard]] const VoiceLibrary::Entry* Selected() const;
  void SelectionChanged();
  void Download();
  [[nodiscard]] VoiceOutcome Fetch(const CatalogueVoice& voice);
  [[nodiscard]] bool Agrees(const CatalogueVoice& voice, const std::string& card);
  void Remove();
  // Shows how far it is and lets events in; false when the user does not want to go on.
  bool Turn(std::uintmax_t there, std::uintmax_t all);
  void SetBusy(bool busy);
  void Tell(const std::string& text);
  void CancelOrClose();

  Parts parts_;
  std::vector<VoiceLibrary::Entry> shown_;
  bool changed_ = false;
  bool busy_ = false;
  bool cancelled_ = false;
  bool closes_ = false;  // when what is under way has ended
  int toldPercent_ = 0;
  DownloadPace pace_;
  std::chrono::steady_clock::time_point next_{};
  wxTextCtrl* filter_ = nullptr;
  wxDataViewListCtrl* list_ = nullptr;
  wxStaticText* hint_ = nullptr;
  wxStaticText* status_ = nullptr;
  wxGauge* gauge_ = nullptr;
  wxButton* download_ = nullptr;
  wxButton* cancel_ = nullptr;
  wxButton* remove_ = nullptr;
};

}  // namespace lorelin
