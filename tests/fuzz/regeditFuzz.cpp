#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"
#include "settings/clsRegistryAccess.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"

// Whatever is imported, every line is either carried out, skipped or reported, and what stands in the
// registry then can be exported.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lorelin::FakeRegistry registry;
  lorelin::FakeFileWriter files;
  lorelin::ClsRegistryAccess access(registry, files);
  const std::string text = lorelin::DecodeText({reinterpret_cast<const char*>(data), size});
  const bool imported = access.ImportText("REGEDIT4\r\n" + text);
  if (!imported) std::abort();
  if (access.ImportProblems().size() > size + 1) std::abort();
  if (access.KeyExists("HKCU") && !access.ExportToReg("HKCU", "/nowhere/at/all.reg")) std::abort();
  return 0;
}
