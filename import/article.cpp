#include "import/article.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/textEncoding.h"
#include "import/htmlText.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;

constexpr std::array<std::string_view, 5> kSurroundings{"nav", "aside", "footer", "form", "dialog"};
// Parts of names that pages give to what surrounds an article.
constexpr std::array<std::string_view, 31> kUnlikely{
    "comment",    "kommentar", "sidebar",    "menu",       "breadcrumb", "cookie",  "consent",  "banner",
    "advert",     "werbung",   "anzeige",    "sponsor",    "social",     "share",   "teilen",   "related",
    "newsletter", "footer",    "navigation", "pagination", "popup",      "promo",   "teaser",   "outbrain",
    "taboola",    "paywall",   "skip-link",  "toolbar",    "recommend",  "empfehl", "subscribe"};
constexpr std::array<std::string_view, 7> kLikely{"article", "artikel", "content", "body",
                                                  "main",    "story",   "post"};

template <std::size_t N>
bool HasPart(std::string_view text, const std::array<std::string_view, N>& parts) {
  return std::any_of(parts.begin(), parts.end(),
                     [&](std::string_view part) { return text.find(part) != std::string_view::npos; });
}

std::string NamesOf(Node element) {
  return LowerAscii(std::string(element.Attribute("class")).append(" ").append(element.Attribute("id")));
}

struct Measure {
  double text = 0;   // characters
  double links = 0;  // of them in links
  double score = 0;  // as the holder of paragraphs
  bool dropped = false;
};

// Judges the elements of a page by density of text and links.
class ArticleSearch {
 public:
  explicit ArticleSearch(Node page) : page_(page) { Weigh(page, false); }

  [[nodiscard]] Node Best() const { return best_; }
  [[nodiscard]] bool IsDropped(Node node) const { return At(node).dropped; }
  [[nodiscard]] double TextOf(Node node) const { return At(node).text; }

 private:
  [[nodiscard]] const Measure& At(Node node) const { return measures_[node.Number()]; }
  Measure& At(Node node) {
    if (measures_.size() <= node.Number()) measures_.resize(node.Number() + 1);
    return measures_[node.Number()];
  }

  static bool IsMain(Node node) {
    return node.Is("body") || node.Is("html") || node.Is("article") || node.Is("main") || !node.Parent();
  }

  static bool IsSurrounding(Node node) {
    if (IsMain(node)) return false;
    if (std::find(kSurroundings.begin(), kSurroundings.end(), node.Name()) != kSurroundings.end())
      return true;
    const std::string_view role = node.Attribute("role");
    if (role == "navigation" || role == "complementary" || role == "contentinfo" || role == "search")
      return true;
    const std::string names = NamesOf(node);
    return HasPart(names, kUnlikely) &&
           !HasPart(names, std::array<std::string_view, 2>{"article-body", "maincontent"});
  }

  void Weigh(Node node, bool inLink) {
    Measure own;
    if (node.IsText()) {
      own.text = static_cast<double>(CharacterCount(OneLine(node.Text())));
      own.links = inLink ? own.text : 0;
    } else if (node.Is("script") || node.Is("style") || node.Is("head") || IsHiddenHtml(node) ||
               IsSurrounding(node)) {
      own.dropped = true;
    } else {
      own = WeighChildren(node, inLink || node.Is("a"));
    }
    At(node) = own;
    if (!own.dropped && !node.IsText()) Judge(node);
  }

  Measure WeighChildren(Node node, bool inLink) {
    Measure sum;
    for (Node child = node.FirstChild(); child; child = child.Next()) {
      Weigh(child, inLink);
      const Measure& part = At(child);
      sum.text += part.text;
      sum.links += part.links;
      sum.score += PointsFor(child, part);
    }
    return sum;
  }

  // What a child adds to its parent: running text for itself, and half of what the parent of such text has.
  static double PointsFor(Node child, const Measure& part) {
    if (part.text < 25 || part.dropped) return 0;
    const double density = part.links / part.text;
    if (child.Is("p") || child.Is("pre") || child.Is("blockquote") || child.IsText()) {
      const std::string text = child.WholeText();
      const auto commas = static_cast<double>(std::count(text.begin(), text.end(), ','));
      return (1 + std::min(commas, 10.0) + std::min(part.text / 100, 3.0)) * (1 - density);
    }
    return part.score / 2;
  }

  void Judge(Node node) {
    Measure& own = At(node);
    if (node.Is("ul") || node.Is("ol") || node.Is("div") || node.Is("section") || node.Is("table")) {
      // A list of links within the article is none of its text.
      own.dropped = own.text > 0 && own.links / own.text > 0.6 && node.FirstChild();
    }
    if (own.dropped || node.Is("p") || node.Is("html")) return;
    double score = own.score * (own.text > 0 ? 1 - own.links / own.text : 0);
    if (node.Is("article") || node.Is("main") || HasPart(NamesOf(node), kLikely)) score *= 1.25;
    if (score > bestScore_) {
      bestScore_ = score;
      best_ = node;
    }
  }

  Node page_;
  std::vector<Measure> measures_;
  Node best_;
  double bestScore_ = 0;
};

// A copy of the element without what the search dropped.
void Copy(Node node, const ArticleSearch& search, MarkupTree& copy) {
  if (node.IsText()) {
    copy.AddText(node.Text());
    return;
  }
  if (search.IsDropped(node)) return;
  copy.Open(node.Name());
  for (const char* name : {"id", "type", "start", "value", "style", "class", "role"}) {
    if (node.HasAttribute(name)) copy.AddAttribute(name, node.Attribute(name));
  }
  for (Node child = node.FirstChild(); child; child = child.Next()) Copy(child, search, copy);
  copy.Close();
}

// The page's title without the name of the site behind it.
std::string TitleOf(Node page, std::string_view declared, const std::string& pageTitle) {
  const Node heading = page.Find("h1");
  const std::string first = heading ? OneLine(heading.WholeText()) : std::string();
  if (!first.empty() && pageTitle.find(first) != std::string::npos) return first;
  if (!declared.empty()) return OneLine(declared);
  for (const char* separator : {" | ", " – ", " — ", " - ", " :: ", " » "}) {
    const auto at = pageTitle.rfind(separator);
    if (at != std::string::npos && at >= 10) return pageTitle.substr(0, at);
  }
  return pageTitle.empty() ? first : pageTitle;
}

bool HoldsHeading(Node article, const std::string& title) {
  for (Node node = article; node; node = node.Following(article)) {
    if ((node.Is("h1") || node.Is("h2")) && OneLine(node.WholeText()) == title) return true;
  }
  return false;
}

}  // namespace

void AddArticle(DocumentBuilder& builder, MarkupTree::Node page, std::string_view declaredTitle) {
  const ArticleSearch search(page);
  constexpr double kShortest = 140;
  const Node best = search.Best();
  if (!best || search.TextOf(best) < kShortest) {
    AddHtml(builder, page);
    return;
  }
  const std::string title = TitleOf(page, declaredTitle, builder.Info().title);
  if (!title.empty()) builder.Info().title = title;
  MarkupTree article;
  Copy(best, search, article);
  if (!title.empty() && !HoldsHeading(article.Root(), title)) {
    builder.BeginHeading(1);
    builder.Text(title);
    builder.EndHeading();
  }
  AddHtml(builder, article.Root());
}

}  // namespace lorelin
