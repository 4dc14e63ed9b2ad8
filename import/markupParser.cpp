#include "import/markupParser.h"

#include <libxml/HTMLparser.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <array>
#include <cstring>
#include <exception>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include "base/textEncoding.h"
#include "import/importErrors.h"
#include "import/markupEncoding.h"

namespace lorelin {
namespace {

using Context = std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)>;

// What the parser's calls build. No exception may pass through the parser.
struct Building {
  MarkupTree tree;
  xmlParserCtxtPtr parser = nullptr;
  std::exception_ptr failure;
  xmlEntity entity{};
  std::string entityText;

  template <typename F>
  void Do(F step) {
    if (failure) return;
    try {
      step(tree);
    } catch (...) {
      failure = std::current_exception();
      xmlStopParser(parser);
    }
  }
};

Building& Of(void* data) {
  return *static_cast<Building*>(data);
}

std::string_view View(const xmlChar* text) {
  return text != nullptr ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

std::string_view View(const xmlChar* begin, const xmlChar* end) {
  return {reinterpret_cast<const char*>(begin), static_cast<std::size_t>(end - begin)};
}

void OnText(void* data, const xmlChar* text, int size) {
  Of(data).Do([=](MarkupTree& tree) { tree.AddText(View(text, text + size)); });
}

std::string_view PrefixOf(std::string_view space) {
  static constexpr auto kPrefixes = std::to_array<std::pair<std::string_view, std::string_view>>({
      {"http://schemas.openxmlformats.org/wordprocessingml/2006/main", "w:"},
      {"http://purl.oclc.org/ooxml/wordprocessingml/main", "w:"},
      {"http://schemas.openxmlformats.org/markup-compatibility/2006", "mc:"},
      {"http://schemas.openxmlformats.org/officeDocument/2006/math", "m:"},
      {"http://purl.oclc.org/ooxml/officeDocument/math", "m:"},
      {"http://purl.org/dc/elements/1.1/", "dc:"},
      {"urn:oasis:names:tc:opendocument:xmlns:office:1.0", "office:"},
      {"urn:oasis:names:tc:opendocument:xmlns:text:1.0", "text:"},
      {"urn:oasis:names:tc:opendocument:xmlns:table:1.0", "table:"},
      {"urn:oasis:names:tc:opendocument:xmlns:style:1.0", "style:"},
      {"urn:oasis:names:tc:opendocument:xmlns:meta:1.0", "meta:"},
      {"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0", "draw:"},
      {"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0", "svg:"},
      {"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0", "fo:"},
      {"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0", "manifest:"},
  });
  for (const auto& [address, prefix] : kPrefixes) {
    if (address == space) return prefix;
  }
  return {};
}

std::string NameOf(const xmlChar* name, const xmlChar* space) {
  return std::string(PrefixOf(View(space))).append(View(name));
}

void OnXmlStart(void* data, const xmlChar* name, const xmlChar*, const xmlChar* space, int, const xmlChar**,
                int count, int, const xmlChar** attributes) {
  Of(data).Do([=](MarkupTree& tree) {
    tree.Open(NameOf(name, space));
    for (const xmlChar** a = attributes; a != attributes + std::ptrdiff_t{5} * count; a += 5) {
      tree.AddAttribute(NameOf(a[0], a[2]), View(a[3], a[4]));
    }
  });
}

// The characters that HTML has names for; an entity of the file's own stands for nothing, and what it is
// declared as is never looked at.
xmlEntityPtr OnEntity(void* data, const xmlChar* name) {
  Building& building = Of(data);
  building.entityText.clear();
  building.Do([&](MarkupTree&) {
    if (const htmlEntityDesc* const known = htmlEntityLookup(name))
      AppendUtf8(building.entityText, known->value);
  });
  building.entity.type = XML_ENTITY_DECL;
  building.entity.etype = XML_INTERNAL_PREDEFINED_ENTITY;
  building.entity.name = name;
  building.entity.content = reinterpret_cast<xmlChar*>(building.entityText.data());
  building.entity.length = static_cast<int>(building.entityText.size());
  return &building.entity;
}

void OnXmlEnd(void* data, const xmlChar*, const xmlChar*, const xmlChar*) {
  Of(data).Do([](MarkupTree& tree) { tree.Close(); });
}

void OnHtmlStart(void* data, const xmlChar* name, const xmlChar** attributes) {
  Of(data).Do([=](MarkupTree& tree) {
    tree.Open(View(name));
    for (const xmlChar** a = attributes; a != nullptr && a[0] != nullptr; a += 2) {
      tree.AddAttribute(View(a[0]), View(a[1]));
    }
  });
}

void OnHtmlEnd(void* data, const xmlChar*) {
  Of(data).Do([](MarkupTree& tree) { tree.Close(); });
}

int Size(std::string_view bytes) {
  if (bytes.size() > std::numeric_limits<int>::max()) throw DocumentTooLarge();
  return static_cast<int>(bytes.size());
}

// The handlers that the parser came with build a tree of its own and declare entities.
void Attach(xmlParserCtxt& parser, Building& building, const xmlSAXHandler& handlers) {
  *parser.sax = handlers;
  parser.userData = &building;
  building.parser = &parser;
}

MarkupTree Finish(Building building) {
  if (building.failure) std::rethrow_exception(building.failure);
  return std::move(building.tree);
}

}  // namespace

MarkupTree ParseXml(std::string_view bytes) {
  Building building;
  if (bytes.empty()) return {};
  // The library itself knows few encodings where it has no help.
  const std::string decoded = DecodeXml(bytes);
  if (!decoded.empty()) bytes = decoded;
  const Context parser(xmlCreateMemoryParserCtxt(bytes.data(), Size(bytes)), &xmlFreeParserCtxt);
  if (!parser) throw std::bad_alloc();
  xmlSAXHandler handlers{};
  handlers.initialized = XML_SAX2_MAGIC;
  handlers.startElementNs = &OnXmlStart;
  handlers.endElementNs = &OnXmlEnd;
  handlers.getEntity = &OnEntity;
  handlers.characters = handlers.ignorableWhitespace = handlers.cdataBlock = &OnText;
  Attach(*parser, building, handlers);
  xmlCtxtUseOptions(parser.get(), XML_PARSE_RECOVER | XML_PARSE_NONET | XML_PARSE_NOERROR |
                                      XML_PARSE_NOWARNING | (decoded.empty() ? 0 : XML_PARSE_IGNORE_ENC));
  xmlParseDocument(parser.get());
  if (parser->wellFormed == 0) building.tree.SetDamaged();
  return Finish(std::move(building));
}

MarkupTree ParseHtml(std::string_view text) {
  Building building;
  if (text.empty()) return {};
  const Context parser(htmlNewParserCtxt(), &xmlFreeParserCtxt);
  if (!parser) throw std::bad_alloc();
  xmlSAXHandler handlers{};
  handlers.startElement = &OnHtmlStart;
  handlers.endElement = &OnHtmlEnd;
  handlers.characters = handlers.ignorableWhitespace = handlers.cdataBlock = &OnText;
  Attach(*parser, building, handlers);
  htmlCtxtReadMemory(parser.get(), text.data(), Size(text), nullptr, "UTF-8",
                     HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
  return Finish(std::move(building));
}

}  // namespace lorelin
