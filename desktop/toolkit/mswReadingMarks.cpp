#include "desktop/toolkit/readingMarks.h"

namespace lorelin {
namespace {

// RichEdit has no marks that are neither saved nor undone: nothing is shown here.
class NoReadingMarks final : public ReadingMarks {
 public:
  explicit NoReadingMarks(wxTextCtrl& control) : control_(control) {}
  [[nodiscard]] bool CanShow() const override { return false; }
  void Show(std::optional<MarkedRange>, std::optional<MarkedRange>) override {}
  void Hide() override {}
  void Return() override {}
  void PlaceCaret(std::size_t character) override {
    control_.SetInsertionPoint(static_cast<long>(character));
  }
  void OnEdited(std::function<void(std::size_t, std::size_t, std::size_t)>) override {}

 private:
  wxTextCtrl& control_;
};

}  // namespace

std::unique_ptr<ReadingMarks> MakeReadingMarks(wxTextCtrl& control) {
  return std::make_unique<NoReadingMarks>(control);
}

}  // namespace lorelin
