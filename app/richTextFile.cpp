#include "app/richTextFile.h"

#include "app/modFile.h"
#include "app/rtf.h"
#include "app/text.h"
#include "app/textEncoding.h"

namespace lorelin {

std::string WithoutNul(std::string_view text) {
  std::string clean(text);
  ReplaceAll(clean, std::string_view("\0", 1), "\xEF\xBF\xBD");
  return clean;
}

RichText ReadRichTextFile(const std::string& path) {
  const std::string bytes = ReadFileBytes(path);
  if (IsRtf(bytes)) return ReadRtf(bytes);
  RichText plain;
  plain.text = WithoutNul(WithPlainLineEnds(DecodeText(bytes)));
  return plain;
}

}  // namespace lorelin
