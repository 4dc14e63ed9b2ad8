#include "documents/richTextFile.h"

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/text.h"
#include "base/textEncoding.h"
#include "richtext/chapters.h"
#include "richtext/rtf.h"
#include "richtext/textFormat.h"

namespace lorelin {

std::string WithoutNul(std::string_view text) {
  std::string clean(text);
  ReplaceAll(clean, std::string_view("\0", 1), "\xEF\xBF\xBD");
  return clean;
}

StoredRichText ReadRichTextFile(const std::string& path) {
  const std::string bytes = ReadFileBytes(path);
  if (IsRtf(bytes)) {
    StoredRichText rich{.text = ReadRtf(bytes), .file = {.format = FormatOf(bytes), .chapters = {}}};
    rich.file.chapters = ChaptersOf(rich.text);
    return rich;
  }
  if (!IsText(bytes)) throw RuntimeError(ErrorNumber::InvalidFileFormat, "Die Datei enthält keinen Text");
  StoredRichText plain;
  plain.text.text = WithPlainLineEnds(DecodeText(bytes));
  if (plain.text.text.find('\0') != std::string::npos) plain.text.text = WithoutNul(plain.text.text);
  plain.file.format = FormatOf(bytes);
  return plain;
}

}  // namespace lorelin
