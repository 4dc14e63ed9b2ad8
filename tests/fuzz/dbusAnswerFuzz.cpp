#include "platform/linux/dbusAnswer.h"

#include <memory>
#include <string>

#include "base/RuntimeError.h"
#include "base/textEncoding.h"
#include "tests/fuzz/input.h"

using lorelin::fuzz::Hold;

namespace {

struct Unref {
  void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
using Variant = std::unique_ptr<GVariant, Unref>;

// Any value of any type, made of bytes that nobody has checked.
Variant AnyAnswer(const std::string& type, std::string_view bytes) {
  if (!g_variant_type_string_is_valid(type.c_str()) ||
      !g_variant_type_is_definite(reinterpret_cast<const GVariantType*>(type.c_str())))
    return nullptr;
  GBytes* const content = g_bytes_new(bytes.data(), bytes.size());
  GVariant* const made =
      g_variant_new_from_bytes(reinterpret_cast<const GVariantType*>(type.c_str()), content, FALSE);
  g_bytes_unref(content);
  return Variant(g_variant_ref_sink(made));
}

void CheckAnswer(GVariant* answer) {
  const auto text = lorelin::FirstText(answer);
  const std::string type = answer == nullptr ? "" : g_variant_get_type_string(answer);
  if (type.starts_with("(s")) Hold(text.has_value());
  if (!type.starts_with("(s") && !type.starts_with("as") && !type.starts_with("{s") && type != "v" &&
      !type.starts_with("ms"))
    Hold(!text);
  if (text) Hold(lorelin::IsValidUtf8(*text) && text->find('\0') == std::string::npos);
}

// A text goes over the bus as it is; whatever else, as a text of as many characters.
void CheckArgument(std::string_view text) {
  const Variant argument(g_variant_ref_sink(lorelin::TextArgument(text)));
  const auto back = lorelin::FirstText(argument.get());
  Hold(back.has_value() && lorelin::IsValidUtf8(*back) && back->find('\0') == std::string::npos);
  if (lorelin::IsValidUtf8(text) && text.find('\0') == std::string_view::npos) Hold(*back == text);
}

}  // namespace

// Whatever an extension answers, it is a text or none; whatever it complains of, there is something to be
// read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lorelin::fuzz::Input input(data, size);
  const std::string type(input.Text());
  const std::string_view bytes = input.Rest();
  const Variant answer = AnyAnswer(type, bytes);
  CheckAnswer(answer.get());
  CheckArgument(bytes);
  const std::string reason = lorelin::ReasonOfFailure(type, bytes);
  Hold(reason.starts_with("Die ") || reason.starts_with("Das ") || reason.starts_with("Unter ") ||
       reason.starts_with("Der "));
  if (lorelin::IsMissingMethod(type)) Hold(type.starts_with("org.freedesktop.DBus.Error.Unknown"));
  return 0;
}
