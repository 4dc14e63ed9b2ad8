#pragma once

#include <string>

#include "desktop/toolkit/WxProgressWindow.h"
#include "documents/richTextFile.h"

namespace lorelin {

// Shows how far the loading of a long document is; nothing is shown for a short one. User-interface thread
// only.
class Loading {
 public:
  explicit Loading(const std::string& path);
  // Of one that was read already, and is not long.
  Loading() = default;

  // The document, read beside the window. Throws like ReadRichTextFile, and as Advance does.
  [[nodiscard]] StoredRichText Read();
  // The part `done` (0 to 1) of it is in its place. Throws RuntimeError when the user has cancelled.
  void Advance(double done);

 private:
  void ShowShare(double share);

  std::string path_;
  bool long_ = false;
  WxProgressWindow window_;
};

}  // namespace lorelin
