#include "export/bookFiles.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <regex>
#include <utility>

#include "base/clockTime.h"
#include "base/text.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

constexpr std::string_view kXml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr std::string_view kContainer =
    "<container version=\"1.0\" xmlns=\"urn:oasis:names:tc:opendocument:xmlns:container\">\n"
    "<rootfiles>\n"
    "<rootfile full-path=\"EPUB/package.opf\" media-type=\"application/oebps-package+xml\"/>\n"
    "</rootfiles>\n"
    "</container>\n";
constexpr std::string_view kStyle =
    "body { line-height: 1.5; margin: 5%; }\n"
    ".lorelin-heard { background-color: #ffe9a8; color: #000000; }\n";
constexpr std::string_view kHeardClass = "lorelin-heard";
constexpr int kLowestHeading = 6;

// Without what XML does not allow.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (static_cast<unsigned char>(c) >= 0x20) escaped += c;
  }
  ReplaceAll(escaped, "&", "&amp;");
  ReplaceAll(escaped, "<", "&lt;");
  ReplaceAll(escaped, ">", "&gt;");
  ReplaceAll(escaped, "\"", "&quot;");
  ReplaceAll(escaped, "\uFFFE", "");
  ReplaceAll(escaped, "\uFFFF", "");
  return escaped;
}

// With the ends of its lines.
std::string EscapedLines(std::string_view text) {
  std::string escaped;
  while (true) {
    const std::size_t end = text.find('\n');
    escaped += Escaped(text.substr(0, end));
    if (end == std::string_view::npos) return escaped;
    escaped += "<br/>";
    text.remove_prefix(end + 1);
  }
}

std::string Element(std::string_view name, std::string_view attributes, std::string_view text) {
  return "<" + std::string(name) + std::string(attributes) + ">" + Escaped(text) + "</" + std::string(name) +
         ">\n";
}

std::string TimeText(milliseconds time) {
  return ClockTime(time, 1);
}

std::string NumberText(std::size_t part) {
  std::array<char, 24> text{};
  std::snprintf(text.data(), text.size(), "%04zu", part + 1);
  return text.data();
}

// "de", "en-GB". Whoever wrote the book may have written anything here.
bool IsLanguage(const std::string& text) {
  static const std::regex kForm("[A-Za-z]{2,3}(-[A-Za-z0-9]{1,8})*");
  return text.size() <= 40 && std::regex_match(text, kForm);
}

std::string LanguageOf(const SpokenBook& book) {
  return IsLanguage(book.language) ? book.language : "de";
}

std::string TitleOf(const SpokenBook& book, std::size_t part) {
  const std::string& title = book.parts[part].title;
  if (!WithoutBlanks(title).empty()) return title;
  return book.parts.size() == 1 ? book.title : "Abschnitt " + std::to_string(part + 1);
}

std::string PageHead(const SpokenBook& book, std::string_view title, std::string_view style) {
  const std::string language = LanguageOf(book);
  return std::string(kXml) +
         "<!DOCTYPE html>\n"
         "<html xmlns=\"http://www.w3.org/1999/xhtml\" xmlns:epub=\"http://www.idpf.org/2007/ops\" lang=\"" +
         language + "\" xml:lang=\"" + language + "\">\n<head>\n<meta charset=\"UTF-8\"/>\n" +
         Element("title", "", title) + "<link rel=\"stylesheet\" type=\"text/css\" href=\"" +
         std::string(style) + "\"/>\n</head>\n";
}

// The names of chapters that begin at a paragraph: the element's own, and empty ones within it.
std::string MarksOf(const SpokenParagraph& paragraph) {
  std::string marks;
  for (std::size_t i = 1; i < paragraph.chapters.size(); ++i)
    marks += "<a id=\"k" + std::to_string(paragraph.chapters[i]) + "\"></a>";
  return marks;
}

// The text with what stands out in it; a heading is bold anyway.
std::string SentenceText(const SpokenSentence& sentence, bool heading) {
  const std::string_view text = sentence.text;
  std::string page;
  std::size_t done = 0;
  for (const Emphasis& piece : sentence.emphasis) {
    const bool bold = piece.bold && !heading;
    page += EscapedLines(text.substr(done, piece.begin - done));
    page.append(bold ? "<strong>" : "").append(piece.italic ? "<em>" : "");
    page += EscapedLines(text.substr(piece.begin, piece.end - piece.begin));
    page.append(piece.italic ? "</em>" : "").append(bold ? "</strong>" : "");
    done = piece.end;
  }
  return page + EscapedLines(text.substr(done));
}

// Opens and closes lists around the paragraphs that are their items.
class ListTags {
 public:
  // What goes before the paragraph.
  std::string Before(const ListItem& item) {
    const bool goesOn =
        item.kind == last_.kind && (item.kind != ListKind::Numbers || item.number == last_.number + 1);
    std::string tags = goesOn ? std::string() : End();
    if (!goesOn && item.kind == ListKind::Bullets) tags += "<ul>\n";
    if (!goesOn && item.kind == ListKind::Numbers) {
      tags += item.number == 1 ? "<ol>\n" : "<ol start=\"" + std::to_string(item.number) + "\">\n";
    }
    last_ = item;
    return tags;
  }
  // What goes behind the last one.
  std::string End() {
    const ListKind kind = std::exchange(last_, {}).kind;
    if (kind == ListKind::None) return {};
    return kind == ListKind::Bullets ? "</ul>\n" : "</ol>\n";
  }

 private:
  ListItem last_;
};

std::string ElementOf(const SpokenParagraph& paragraph) {
  if (paragraph.item.kind != ListKind::None) return "li";
  const int level = std::clamp(paragraph.level, 0, kLowestHeading);
  return level > 0 ? "h" + std::to_string(level) : "p";
}

std::string PageOf(const SpokenBook& book, std::size_t number) {
  std::string page = PageHead(book, TitleOf(book, number), "../style.css") +
                     "<body>\n<section epub:type=\"bodymatter chapter\" id=\"teil\">\n";
  std::size_t sentences = 0;
  ListTags lists;
  for (const SpokenParagraph& paragraph : book.parts[number].paragraphs) {
    const std::string name = ElementOf(paragraph);
    page += lists.Before(paragraph.item) + "<" + name;
    if (!paragraph.chapters.empty()) page += " id=\"k" + std::to_string(paragraph.chapters.front()) + "\"";
    page += ">" + MarksOf(paragraph);
    for (const SpokenSentence& sentence : paragraph.sentences) {
      if (&sentence != &paragraph.sentences.front()) page += ' ';
      page += "<span id=\"s" + std::to_string(++sentences) + "\">" +
              SentenceText(sentence, paragraph.level > 0) + "</span>";
    }
    page += "</" + name + ">\n";
  }
  return page + lists.End() + "</section>\n</body>\n</html>\n";
}

std::string OverlayOf(const SpokenPart& part, std::size_t number) {
  const std::string name = NumberText(number);
  const std::string page = "../text/" + name + ".xhtml";
  std::string overlay = std::string(kXml) +
                        "<smil xmlns=\"http://www.w3.org/ns/SMIL\" "
                        "xmlns:epub=\"http://www.idpf.org/2007/ops\" version=\"3.0\">\n<body>\n"
                        "<seq id=\"teil\" epub:textref=\"" +
                        page + "#teil\">\n";
  std::size_t sentences = 0;
  for (const SpokenParagraph& paragraph : part.paragraphs) {
    for (const SpokenSentence& sentence : paragraph.sentences) {
      const std::string id = std::to_string(++sentences);
      if (!sentence.clip || sentence.clip->end <= sentence.clip->begin) continue;
      overlay.append("<par id=\"p").append(id).append("\"><text src=\"").append(page).append("#s").append(id);
      overlay.append("\"/><audio src=\"../audio/").append(name).append(".mp3\" clipBegin=\"");
      overlay.append(TimeText(sentence.clip->begin)).append("\" clipEnd=\"");
      overlay.append(TimeText(sentence.clip->end)).append("\"/></par>\n");
    }
  }
  return overlay + "</seq>\n</body>\n</smil>\n";
}

// Where the entries of the list of contents lead.
struct Entry {
  std::string title;
  int level = 1;
  std::string address;
};

// Chapters of a part, or the part itself where none begins with it.
std::vector<Entry> EntriesOf(const SpokenBook& book) {
  std::vector<Entry> entries;
  for (std::size_t number = 0; number < book.parts.size(); ++number) {
    const std::string page = "text/" + NumberText(number) + ".xhtml";
    const std::vector<SpokenParagraph>& paragraphs = book.parts[number].paragraphs;
    const bool named = !paragraphs.empty() && !paragraphs.front().chapters.empty();
    if (!named) entries.push_back({TitleOf(book, number), 1, page});
    for (const SpokenParagraph& paragraph : paragraphs) {
      for (const std::size_t chapter : paragraph.chapters) {
        const std::string& title = book.chapters[chapter].title;
        entries.push_back({WithoutBlanks(title).empty() ? TitleOf(book, number) : title,
                           std::max(book.chapters[chapter].level, 1), page + "#k" + std::to_string(chapter)});
      }
    }
  }
  return entries;
}

// The list of contents: lists within lists, as deep as the levels are.
std::string ListOf(const std::vector<Entry>& entries) {
  std::string list;
  std::vector<int> levels;
  for (const Entry& entry : entries) {
    while (levels.size() > 1 && levels.back() > entry.level) {
      list += "</li>\n</ol>\n";
      levels.pop_back();
    }
    if (levels.empty() || levels.back() < entry.level) {
      list += "<ol>\n";
      levels.push_back(entry.level);
    } else {
      list += "</li>\n";
      levels.back() = entry.level;
    }
    list += "<li><a href=\"" + entry.address + "\">" + Escaped(entry.title) + "</a>";
  }
  for (; !levels.empty(); levels.pop_back()) list += "</li>\n</ol>\n";
  return list;
}

std::string ContentsOf(const SpokenBook& book) {
  return PageHead(book, book.title, "style.css") +
         "<body>\n<nav epub:type=\"toc\" id=\"toc\">\n<h1>Inhalt</h1>\n" + ListOf(EntriesOf(book)) +
         "</nav>\n</body>\n</html>\n";
}

std::string DateText(std::chrono::system_clock::time_point time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(std::chrono::floor<std::chrono::seconds>(time - day));
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text.data();
}

std::string Meta(std::string_view property, std::string_view value, const std::string& of = {}) {
  const std::string refines = of.empty() ? of : " refines=\"#" + of + "\"";
  return Element("meta", " property=\"" + std::string(property) + "\"" + refines, value);
}

// What reading programs and libraries for blind readers look for.
std::string AccessOf() {
  return Meta("schema:accessMode", "textual") + Meta("schema:accessMode", "auditory") +
         Meta("schema:accessModeSufficient", "textual") + Meta("schema:accessModeSufficient", "auditory") +
         Meta("schema:accessibilityFeature", "synchronizedAudioText") +
         Meta("schema:accessibilityFeature", "structuralNavigation") +
         Meta("schema:accessibilityFeature", "tableOfContents") + Meta("schema:accessibilityHazard", "none") +
         Meta("schema:accessibilitySummary",
              "Der Text ist Satz für Satz mit einer Aufnahme einer Computerstimme verbunden.");
}

std::string MetadataOf(const SpokenBook& book) {
  std::string metadata = "<metadata xmlns:dc=\"http://purl.org/dc/elements/1.1/\">\n" +
                         Element("dc:identifier", " id=\"id\"", book.identifier) +
                         Element("dc:title", "", book.title) + Element("dc:language", "", LanguageOf(book));
  if (!book.author.empty()) metadata += Element("dc:creator", "", book.author);
  metadata += Meta("dcterms:modified", DateText(book.modified));
  milliseconds whole{};
  for (std::size_t number = 0; number < book.parts.size(); ++number) {
    const milliseconds length = book.parts[number].Length();
    if (length == milliseconds(0)) continue;
    whole += length;
    metadata += Meta("media:duration", TimeText(length), "o" + NumberText(number));
  }
  return metadata + Meta("media:duration", TimeText(whole)) + Meta("media:active-class", kHeardClass) +
         AccessOf() + "</metadata>\n";
}

std::string Item(const std::string& id, const std::string& address, std::string_view type,
                 const std::string& further = {}) {
  return "<item id=\"" + id + "\" href=\"" + address + "\" media-type=\"" + std::string(type) + "\"" +
         further + "/>\n";
}

std::string PackageOf(const SpokenBook& book) {
  constexpr std::string_view kPage = "application/xhtml+xml";
  std::string items =
      Item("nav", "nav.xhtml", kPage, " properties=\"nav\"") + Item("css", "style.css", "text/css");
  std::string order;
  for (std::size_t i = 0; i < book.parts.size(); ++i) {
    const std::string name = NumberText(i);
    const bool heard = book.parts[i].Length() > milliseconds(0);
    items +=
        Item("t" + name, "text/" + name + ".xhtml", kPage, heard ? " media-overlay=\"o" + name + "\"" : "");
    order += "<itemref idref=\"t" + name + "\"/>\n";
    if (!heard) continue;
    items += Item("o" + name, "overlays/" + name + ".smil", "application/smil+xml") +
             Item("a" + name, "audio/" + name + ".mp3", "audio/mpeg");
  }
  const std::string language = LanguageOf(book);
  return std::string(kXml) +
         "<package xmlns=\"http://www.idpf.org/2007/opf\" version=\"3.0\" unique-identifier=\"id\" "
         "xml:lang=\"" +
         language + "\">\n" + MetadataOf(book) + "<manifest>\n" + items + "</manifest>\n<spine>\n" + order +
         "</spine>\n</package>\n";
}

}  // namespace

milliseconds SpokenPart::Length() const {
  milliseconds length{};
  for (const SpokenParagraph& paragraph : paragraphs) {
    for (const SpokenSentence& sentence : paragraph.sentences) {
      if (sentence.clip) length += sentence.clip->end - sentence.clip->begin;
    }
  }
  return length;
}

std::vector<BookFile> MakeBookFiles(const SpokenBook& book) {
  std::vector<BookFile> files{{"mimetype", "application/epub+zip"},
                              {"META-INF/container.xml", std::string(kXml) + std::string(kContainer)},
                              {"EPUB/package.opf", PackageOf(book)},
                              {"EPUB/nav.xhtml", ContentsOf(book)},
                              {"EPUB/style.css", std::string(kStyle)}};
  for (std::size_t i = 0; i < book.parts.size(); ++i) {
    files.push_back({"EPUB/text/" + NumberText(i) + ".xhtml", PageOf(book, i)});
    if (book.parts[i].Length() > milliseconds(0))
      files.push_back({"EPUB/overlays/" + NumberText(i) + ".smil", OverlayOf(book.parts[i], i)});
  }
  return files;
}

std::string SoundNameOf(std::size_t part) {
  return "EPUB/audio/" + NumberText(part) + ".mp3";
}

}  // namespace lorelin
