#include "import/pdf.h"

#include <glib.h>
#include <poppler/cpp/poppler-document.h>
#include <poppler/cpp/poppler-global.h>
#include <poppler/cpp/poppler-page-renderer.h>
#include <poppler/cpp/poppler-page.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "base/textEncoding.h"
#include "import/ComputingBudget.h"
#include "import/DocumentBuilder.h"
#include "import/confinement.h"
#include "import/importErrors.h"
#include "import/pdfLines.h"
#include "import/pdfOutline.h"
#include "import/textRecognition.h"

namespace lorelin {
namespace {

using PopplerDocumentPointer = std::unique_ptr<poppler::document>;
using PopplerPagePointer = std::unique_ptr<poppler::page>;

const std::string kKind = "Das PDF-Dokument";
constexpr double kSeconds = 6;  // of computing, for the text of the pages
constexpr int kSecondsForPage = 60;
constexpr std::size_t kMostWords = 20'000;  // of a page; a full one has a thousand

std::string Utf8(const poppler::ustring& text) {
  const poppler::byte_array bytes = text.to_utf8();
  std::string utf8(bytes.begin(), bytes.end());
  return IsValidUtf8(utf8) ? utf8 : std::string();
}

// As a person would have typed it: letters that stand for several as those, and with their marks as one.
std::string Plain(std::string text) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kLigatures{
      {{"\uFB00", "ff"},
       {"\uFB01", "fi"},
       {"\uFB02", "fl"},
       {"\uFB03", "ffi"},
       {"\uFB04", "ffl"},
       {"\uFB05", "st"},
       {"\uFB06", "st"}}};
  if (std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0xCC; }))
    return text;
  for (const auto& [ligature, letters] : kLigatures) ReplaceAll(text, ligature, letters);
  const std::unique_ptr<char, decltype(&g_free)> composed(g_utf8_normalize(text.c_str(), -1, G_NORMALIZE_NFC),
                                                          &g_free);
  return composed ? std::string(composed.get()) : text;
}

bool Mentions(const std::string& font, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return font.find(word) != std::string::npos; });
}

PdfWord WordOf(const poppler::text_box& box) {
  const poppler::rectf place = box.bbox();
  PdfWord word{Plain(Utf8(box.text())), place.left(), place.top(), place.right(), place.bottom()};
  word.size = box.has_font_info() ? box.get_font_size() : 0;
  if (!(word.size > 1 && word.size < 400)) word.size = std::max(place.height(), 1.0);
  const std::string font = box.has_font_info() ? LowerAscii(box.get_font_name()) : std::string();
  word.bold = Mentions(font, {"bold", "black", "heavy", "cmbx"});
  word.italic = Mentions(font, {"italic", "oblique", "cmti"});
  word.spaceAfter = box.has_space_after();
  return word;
}

bool IsSound(const PdfWord& word) {
  return std::isfinite(word.left) && std::isfinite(word.right) && std::isfinite(word.top) &&
         std::isfinite(word.bottom) && std::abs(word.bottom) < 1e6 && !word.text.empty();
}

PdfPage ReadPage(const poppler::page& page) {
  const poppler::rectf size = page.page_rect();
  PdfPage result{size.width(), size.height(), {}};
  for (const poppler::text_box& box : page.text_list(poppler::page::text_list_include_font)) {
    // Text along the margin is no part of the lines.
    if (box.rotation() != 0) continue;
    PdfWord word = WordOf(box);
    if (IsSound(word) && result.words.size() < kMostWords) result.words.push_back(std::move(word));
  }
  return result;
}

PopplerDocumentPointer Open(const std::string& path) {
  poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
  PopplerDocumentPointer document(poppler::document::load_from_file(path));
  if (!document) throw DamagedDocument(kKind);
  if (document->is_locked()) {
    throw ImportError(
        kKind +
        " ist mit einem Kennwort geschützt. Bitte speichern Sie es ohne Kennwort und öffnen Sie es dann.");
  }
  if (document->pages() < 1) throw DamagedDocument(kKind);
  return document;
}

// A document and what was read of it.
struct Reading {
  std::vector<PdfPage> pages;
  std::vector<std::size_t> empty;  // pages without text
  std::size_t all = 0;             // pages that there are
};

Reading ReadPages(const poppler::document& document, const ImportProgress& progress) {
  Reading reading;
  reading.all = static_cast<std::size_t>(document.pages());
  int told = -1;
  const ComputingBudget budget(kSeconds);
  for (std::size_t i = 0; i < reading.all && (i == 0 || budget.IsLeft()); ++i) {
    const PopplerPagePointer page(document.create_page(static_cast<int>(i)));
    reading.pages.push_back(page ? ReadPage(*page) : PdfPage());
    if (reading.pages.back().words.empty()) reading.empty.push_back(i);
    const int percent = static_cast<int>(90 * (i + 1) / reading.all);
    if (percent != std::exchange(told, percent)) progress(percent);
  }
  return reading;
}

PagePicture Render(const poppler::page& page) {
  constexpr double kLargest = 4000;  // points of the longer edge
  const poppler::rectf size = page.page_rect();
  PagePicture picture;
  picture.perInch = std::min(300.0, 72 * kLargest / std::max({size.width(), size.height(), 1.0}));
  poppler::page_renderer renderer;
  renderer.set_image_format(poppler::image::format_gray8);
  renderer.set_render_hint(poppler::page_renderer::antialiasing);
  renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
  const poppler::image image = renderer.render_page(&page, picture.perInch, picture.perInch);
  if (!image.is_valid()) return picture;
  picture.width = static_cast<std::size_t>(image.width());
  picture.height = static_cast<std::size_t>(image.height());
  for (int y = 0; y < image.height(); ++y) {
    picture.grey.append(image.const_data() + std::ptrdiff_t{y} * image.bytes_per_row(), picture.width);
  }
  return picture;
}

void Recognise(const poppler::document& document, Reading& reading, const ImportProgress& progress) {
  for (std::size_t i = 0; i < reading.empty.size(); ++i) {
    GiveComputingTime(kSecondsForPage);
    progress(static_cast<int>(100 * i / reading.empty.size()));
    const PopplerPagePointer page(document.create_page(static_cast<int>(reading.empty[i])));
    if (!page) continue;
    const PagePicture picture = Render(*page);
    if (picture.width > 0) reading.pages[reading.empty[i]].words = RecogniseText(picture);
  }
  reading.empty.clear();
}

void AddParagraph(DocumentBuilder& builder, const PdfParagraph& paragraph, bool goesOn) {
  builder.Break(goesOn ? DocumentBuilder::Gap::Line : DocumentBuilder::Gap::Paragraph);
  const CharacterFormat before = builder.Format();
  if (paragraph.heading > 0) builder.BeginHeading(paragraph.heading);
  for (const PdfPiece& piece : paragraph.pieces) {
    CharacterFormat format = builder.Format();
    if (paragraph.heading == 0) format.bold = piece.bold;
    format.italic = piece.italic;
    builder.SetFormat(format);
    builder.Text(piece.text);
  }
  if (paragraph.heading > 0) builder.EndHeading();
  builder.SetFormat(before);
}

// The paragraph that a bookmark means: of its title on the page, else the first one at its height or below.
std::size_t ParagraphOf(const PdfBookmark& bookmark, const std::vector<PdfParagraph>& paragraphs) {
  const auto first = std::lower_bound(paragraphs.begin(), paragraphs.end(), bookmark.page,
                                      [](const PdfParagraph& p, std::size_t page) { return p.page < page; });
  const std::string title = OneLine(bookmark.title);
  for (auto p = first; p != paragraphs.end() && p->page == bookmark.page; ++p) {
    const std::string text = OneLine(p->Text());
    if (text == title || (title.size() > 3 && text.size() < title.size() + 12 && text.ends_with(title))) {
      return static_cast<std::size_t>(p - paragraphs.begin());
    }
  }
  auto p = first;
  while (p != paragraphs.end() && p->page == bookmark.page && p->bottom < bookmark.top) ++p;
  return static_cast<std::size_t>(p - paragraphs.begin());
}

void SetChapters(DocumentBuilder& builder, const std::vector<PdfBookmark>& bookmarks,
                 const std::vector<PdfParagraph>& paragraphs) {
  if (bookmarks.empty()) return;
  builder.DropChapters();
  for (const PdfBookmark& bookmark : bookmarks) {
    const std::size_t number = ParagraphOf(bookmark, paragraphs);
    const auto place = builder.Anchors().find(std::to_string(number));
    if (place != builder.Anchors().end()) builder.AddChapter(bookmark.title, bookmark.level, place->second);
  }
}

std::string Notice(const Reading& reading, bool pictures) {
  if (reading.pages.size() < reading.all) {
    return kKind + " ist sehr umfangreich: Geöffnet wurden die ersten " +
           std::to_string(reading.pages.size()) + " von " + std::to_string(reading.all) + " Seiten.";
  }
  if (!pictures) return {};
  if (reading.empty.size() == reading.pages.size()) {
    return kKind + " enthält nur Bilder von Seiten, keinen Text.";
  }
  return reading.empty.size() == 1
             ? "Eine Seite enthält nur Bilder, keinen Text."
             : std::to_string(reading.empty.size()) + " von " + std::to_string(reading.all) +
                   " Seiten enthalten nur Bilder, keinen Text.";
}

void AddText(DocumentBuilder& builder, const std::vector<PdfParagraph>& paragraphs) {
  for (std::size_t i = 0; i < paragraphs.size(); ++i) {
    builder.Anchor(std::to_string(i));
    const PdfParagraph& paragraph = paragraphs[i];
    const bool goesOn =
        i > 0 && ((paragraph.item && paragraphs[i - 1].item) || (paragraph.row && paragraphs[i - 1].row));
    AddParagraph(builder, paragraph, goesOn);
  }
  builder.ResolveAnchors();
}

}  // namespace

ImportedDocument ReadPdf(const ImportRequest& request, const ImportProgress& progress) {
  const PopplerDocumentPointer document = Open(request.path);
  // Beside recognising pages, reading them takes no time that is worth telling.
  Reading reading = ReadPages(*document, request.recognisePages ? ImportProgress([](int) {}) : progress);
  if (request.recognisePages) Recognise(*document, reading, progress);
  const std::vector<PdfParagraph> paragraphs = AssemblePdf(reading.pages);
  DocumentBuilder builder;
  AddText(builder, paragraphs);
  SetChapters(builder, ReadPdfOutline(request.path), paragraphs);
  builder.Info().title = Utf8(document->info_key("Title"));
  builder.Info().author = Utf8(document->info_key("Author"));
  const bool pictures = !reading.empty.empty() && HasPictures(request.path, reading.empty);
  if (builder.Characters() == 0 && !pictures) throw NoTextInDocument();
  builder.Document().hasPages = pictures;
  builder.Document().notice = Notice(reading, pictures);
  return builder.Finish();
}

}  // namespace lorelin
