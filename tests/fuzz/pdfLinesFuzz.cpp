#include <cstdint>
#include <string>
#include <vector>

#include "import/pdfLines.h"
#include "tests/fuzz/input.h"

namespace {

lorelin::PdfWord Word(lorelin::fuzz::Input& input) {
  lorelin::PdfWord word;
  word.left = static_cast<std::int8_t>(input.Byte()) * 5.0;
  word.top = static_cast<std::int8_t>(input.Byte()) * 7.0;
  const unsigned look = input.Byte();
  word.right = word.left + (look & 15U) * 5.0;
  word.size = 6 + (look >> 4U & 3U) * 4.0;
  word.bottom = word.top + word.size;
  word.bold = (look & 64U) != 0;
  word.spaceAfter = (look & 128U) != 0;
  word.text = input.Text();
  return word;
}

}  // namespace

// No letter comes from nowhere, and every paragraph lies on a page and holds a line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lorelin::fuzz::Input input(data, size);
  std::vector<lorelin::PdfPage> pages;
  std::size_t letters = 0;
  while (!input.IsEmpty()) {
    if (pages.empty() || input.Byte() == 0) pages.push_back({600, 800, {}});
    pages.back().words.push_back(Word(input));
    letters += pages.back().words.back().text.size();
  }
  std::size_t found = 0;
  std::size_t page = 0;
  for (const auto& paragraph : lorelin::AssemblePdf(pages)) {
    lorelin::fuzz::Hold(paragraph.page < pages.size() && paragraph.lines > 0);
    page = paragraph.page;
    found += paragraph.Text().size();
  }
  // Blanks between words, and marks between the cells of tables.
  lorelin::fuzz::Hold(found <= 3 * letters + 4 * size && page <= pages.size());
  return 0;
}
