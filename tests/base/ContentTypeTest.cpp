#include "base/contentType.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

TEST(ContentType, NamesTheEncoding) {
  EXPECT_EQ(CharsetOfContentType("text/html; charset=ISO-8859-1"), "iso-8859-1");
  EXPECT_EQ(CharsetOfContentType("text/html;x=y;Charset = \"windows-1251\" ; z"), "windows-1251");
}

TEST(ContentType, NamesNoneWhereThereIsNone) {
  for (const auto* const type : {"", "text/html", "text/html; charset=", "text/html; charset=../x y",
                                 "text/html; xcharset=utf-8", "charset"})
    EXPECT_EQ(CharsetOfContentType(type), "") << type;
  EXPECT_EQ(CharsetOfContentType("a; charset=" + std::string(100, 'x')), "");
}

}  // namespace
}  // namespace lorelin
