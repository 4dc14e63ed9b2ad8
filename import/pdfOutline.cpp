#include "import/pdfOutline.h"

#include <glib.h>
#include <poppler/glib/poppler.h>

#include <algorithm>
#include <memory>

namespace lorelin {
namespace {

constexpr std::size_t kMostEntries = 20'000;
constexpr int kDeepest = 30;

template <auto Free>
struct Freed {
  template <typename T>
  void operator()(T* object) const {
    Free(object);
  }
};
using Document = std::unique_ptr<PopplerDocument, Freed<&g_object_unref>>;
using Page = std::unique_ptr<PopplerPage, Freed<&g_object_unref>>;
using Iterator = std::unique_ptr<PopplerIndexIter, Freed<&poppler_index_iter_free>>;
using Action = std::unique_ptr<PopplerAction, Freed<&poppler_action_free>>;
using Destination = std::unique_ptr<PopplerDest, Freed<&poppler_dest_free>>;
using Text = std::unique_ptr<char, Freed<&g_free>>;

Document Open(const std::string& path) {
  const Text absolute(g_canonicalize_filename(path.c_str(), nullptr));
  const Text address(g_filename_to_uri(absolute.get(), nullptr, nullptr));
  return Document(address ? poppler_document_new_from_file(address.get(), nullptr, nullptr) : nullptr);
}

class OutlineWalk {
 public:
  explicit OutlineWalk(PopplerDocument* document) : document_(document) {}

  void Add(PopplerIndexIter* iterator, int level) {
    if (iterator == nullptr || level > kDeepest) return;
    do {
      if (entries_++ >= kMostEntries) return;
      AddEntry(iterator, level);
      Add(Iterator(poppler_index_iter_get_child(iterator)).get(), level + 1);
    } while (poppler_index_iter_next(iterator) != FALSE);
  }

  std::vector<PdfBookmark> Take() { return std::move(bookmarks_); }

 private:
  void AddEntry(PopplerIndexIter* iterator, int level) {
    const Action action(poppler_index_iter_get_action(iterator));
    if (!action || action->type != POPPLER_ACTION_GOTO_DEST || action->any.title == nullptr) return;
    const PopplerDest* destination = action->goto_dest.dest;
    Destination named;
    if (destination != nullptr && destination->type == POPPLER_DEST_NAMED &&
        destination->named_dest != nullptr) {
      named.reset(poppler_document_find_dest(document_, destination->named_dest));
      destination = named.get();
    }
    if (destination != nullptr) AddPlace(action->any.title, level, *destination);
  }

  void AddPlace(const char* title, int level, const PopplerDest& destination) {
    const Page page(poppler_document_get_page(document_, destination.page_num - 1));
    if (!page || g_utf8_validate(title, -1, nullptr) == FALSE) return;
    double width = 0;
    double height = 0;
    poppler_page_get_size(page.get(), &width, &height);
    const bool tellsTop = destination.top > 0 && destination.top <= height;
    bookmarks_.push_back({title, level, static_cast<std::size_t>(destination.page_num - 1),
                          tellsTop ? height - destination.top : 0});
  }

  PopplerDocument* const document_;
  std::size_t entries_ = 0;
  std::vector<PdfBookmark> bookmarks_;
};

}  // namespace

std::vector<PdfBookmark> ReadPdfOutline(const std::string& path) {
  const Document document = Open(path);
  if (!document) return {};
  OutlineWalk walk(document.get());
  walk.Add(Iterator(poppler_index_iter_new(document.get())).get(), 1);
  return walk.Take();
}

bool HasPictures(const std::string& path, const std::vector<std::size_t>& pages) {
  const Document document = Open(path);
  if (!document) return false;
  return std::any_of(pages.begin(), pages.end(), [&](std::size_t number) {
    const Page page(poppler_document_get_page(document.get(), static_cast<int>(number)));
    if (!page) return false;
    GList* const pictures = poppler_page_get_image_mapping(page.get());
    const bool any = pictures != nullptr;
    poppler_page_free_image_mapping(pictures);
    return any;
  });
}

}  // namespace lorelin
