#include "app/UnsavedTexts.h"

#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace lorelin {
namespace {

constexpr std::string_view kGroup = "Nicht gespeicherte Texte";
constexpr std::int32_t kFirst = 1100;
constexpr std::int32_t kDiscardAll = 1199;

}  // namespace

void UnsavedTexts::AddGroup() {
  parts_.taskPane.AddGroup(kGroup);
}

void UnsavedTexts::Start() {
  parts_.recovery.Start();
  if (parts_.recovery.Leftovers().empty()) return;
  parts_.statusBar.SetMessage("Ein nicht gespeicherter Text ist noch da: links unter „" +
                              std::string(kGroup) + "“.");
}

void UnsavedTexts::Offer() {
  AddGroup();
  std::int32_t number = kFirst;
  for (const Recovery::Leftover& leftover : parts_.recovery.Leftovers()) {
    parts_.taskPane.AddItem(kGroup, number++, leftover.beginning + " (" + leftover.time + ")",
                            TaskPaneRequest::Restore);
  }
  if (number > kFirst)
    parts_.taskPane.AddItem(kGroup, kDiscardAll, "Alle verwerfen", TaskPaneRequest::Restore);
}

void UnsavedTexts::Clicked(std::int32_t number) {
  if (number == kDiscardAll) return DiscardAll();
  const auto& leftovers = parts_.recovery.Leftovers();
  const auto index = static_cast<std::size_t>(number - kFirst);
  if (number >= kFirst && index < leftovers.size()) Restore(leftovers[index]);
}

void UnsavedTexts::DiscardAll() {
  if (parts_.messageBoxes.Show("Möchten Sie die nicht gespeicherten Texte endgültig verwerfen?", "Frage",
                               MessageIcon::Question, MessageButtons::YesNo) == MessageAnswer::Yes) {
    parts_.recovery.DiscardLeftovers();
  }
}

// Loading may add the text that is there now to the list, which moves the others.
void UnsavedTexts::Restore(const Recovery::Leftover& leftover) {
  const std::string file = leftover.file;
  try {
    parts_.documents.Restore(file);
  } catch (const RuntimeError& error) {
    parts_.messageBoxes.Show("Der Text konnte nicht geladen werden: " + std::string(error.what()), "Fehler",
                             MessageIcon::Exclamation, MessageButtons::Ok);
    return;
  }
  parts_.recovery.Adopt(file);
  parts_.modes.Textmode();
}

}  // namespace lorelin
