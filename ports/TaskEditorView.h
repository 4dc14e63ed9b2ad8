#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// Port: what the script editor shows. Texts are UTF-8 with "\n" line ends. User-interface thread only.
class TaskEditorView {
 public:
  virtual ~TaskEditorView() = default;
  [[nodiscard]] virtual std::string ScriptName() = 0;
  virtual void SetScriptName(std::string_view name) = 0;
  [[nodiscard]] virtual std::string ScriptText() = 0;
  virtual void SetScriptText(std::string_view text) = 0;
  // Puts the text at the end and the caret behind it.
  virtual void AppendText(std::string_view text) = 0;
  // What there is to know about saving under the name that stands there; "" for nothing.
  virtual void ShowNameHint(std::string_view text) = 0;
};

}  // namespace lorelin
