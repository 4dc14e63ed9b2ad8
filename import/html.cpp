#include "import/html.h"

#include <string>

#include "base/text.h"
#include "import/DocumentBuilder.h"
#include "import/article.h"
#include "import/htmlText.h"
#include "import/importErrors.h"
#include "import/markupEncoding.h"
#include "import/markupParser.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;

std::string MetaContent(Node top, std::string_view name) {
  for (Node node = top; node; node = node.Following(top)) {
    if (!node.Is("meta")) continue;
    const std::string key =
        LowerAscii(node.HasAttribute("name") ? node.Attribute("name") : node.Attribute("property"));
    if (key == name) return std::string(node.Attribute("content"));
  }
  return {};
}

std::string Title(Node top) {
  const Node head = top.Find("head");
  const Node title = head ? head.Find("title") : top.Find("title");
  return title ? OneLine(title.WholeText()) : std::string();
}

std::string Language(Node top) {
  const Node html = top.Find("html");
  if (!html) return {};
  return std::string(html.HasAttribute("lang") ? html.Attribute("lang") : html.Attribute("xml:lang"));
}

void DescribePage(DocumentInfo& info, Node top) {
  info.title = Title(top);
  info.author = MetaContent(top, "author");
  info.language = Language(top);
}

}  // namespace

ImportedDocument ReadHtml(std::string_view bytes, const ImportRequest& request) {
  if (!LooksLikeText(bytes))
    throw ImportError("Die Datei ist keine Webseite. Bitte prüfen Sie, ob sie die richtige Endung hat.");
  const MarkupTree tree = ParseHtml(DecodeMarkup(bytes, request.charset));
  DocumentBuilder builder;
  DescribePage(builder.Info(), tree.Root());
  if (request.articleOnly) {
    AddArticle(builder, tree.Root(), MetaContent(tree.Root(), "og:title"));
  } else {
    AddHtml(builder, tree.Root());
  }
  if (builder.Characters() == 0) throw NoTextInDocument();
  return builder.Finish();
}

}  // namespace lorelin
