#include <md4c-html.h>

#include <algorithm>
#include <cctype>
#include <exception>
#include <limits>
#include <string>

#include "base/text.h"
#include "base/textEncoding.h"
#include "import/DocumentBuilder.h"
#include "import/html.h"
#include "import/htmlText.h"
#include "import/importErrors.h"
#include "import/markdownText.h"
#include "import/markupEncoding.h"
#include "import/markupParser.h"

namespace lorelin {
namespace {

struct Output {
  std::string html;
  std::exception_ptr failure;
};

// No exception may pass through the parser.
void Append(const MD_CHAR* text, MD_SIZE size, void* data) {
  auto& output = *static_cast<Output*>(data);
  if (output.failure) return;
  try {
    output.html.append(text, size);
  } catch (...) {
    output.failure = std::current_exception();
  }
}

std::string ToHtml(const std::string& markdown) {
  if (markdown.size() > std::numeric_limits<MD_SIZE>::max() / 4) throw DocumentTooLarge();
  Output output;
  md_html(markdown.data(), static_cast<MD_SIZE>(markdown.size()), &Append, &output, MD_DIALECT_GITHUB, 0);
  if (output.failure) std::rethrow_exception(output.failure);
  return output.html;
}

}  // namespace

ImportedDocument ReadMarkdown(std::string_view bytes) {
  if (!LooksLikeText(bytes))
    throw ImportError("Die Datei ist kein Text. Bitte prüfen Sie, ob sie die richtige Endung hat.");
  DocumentBuilder builder;
  const std::string text = PrepareMarkdown(WithPlainLineEnds(DecodeMarkup(bytes)), builder.Info());
  const MarkupTree tree = ParseHtml(ToHtml(text));
  AddHtml(builder, tree.Root());
  if (builder.Characters() == 0) throw NoTextInDocument();
  DocumentInfo& info = builder.Info();
  if (info.title.empty() && !info.chapters.empty() && info.chapters[0].level == 1) {
    info.title = info.chapters[0].title;
  }
  return builder.Finish();
}

}  // namespace lorelin
