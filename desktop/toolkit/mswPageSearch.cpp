#include "desktop/toolkit/pageSearch.h"

namespace lorelin {

bool FindInPage(wxWebView& view, const wxString& text, bool matchCase, bool backwards) {
  int flags = wxWEBVIEW_FIND_WRAP | wxWEBVIEW_FIND_HIGHLIGHT_RESULT;
  if (matchCase) flags |= wxWEBVIEW_FIND_MATCH_CASE;
  if (backwards) flags |= wxWEBVIEW_FIND_BACKWARDS;
  return view.Find(text, flags) != wxNOT_FOUND;
}

}  // namespace lorelin
