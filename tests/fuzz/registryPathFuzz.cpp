#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/common/caseFold.h"
#include "platform/linux/SqliteRegistry.h"
#include "settings/clsRegistryAccess.h"
#include "tests/fuzz/input.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

using lorelin::ClsRegistryAccess;
using lorelin::fuzz::Hold;

namespace {

// One store for all runs, in memory where the system has such a folder.
class Store {
 public:
  Store() : opened_(lorelin::SqliteRegistry::Open(folder_.File("registry.sqlite"), log_)) {
    Hold(opened_.registry->IsLasting());
  }
  lorelin::Registry& Registry() { return *opened_.registry; }

 private:
  lorelin::TemporaryFolder folder_;
  lorelin::FakeLog log_;
  lorelin::OpenedRegistry opened_;
};

// The same asked of the store and of a registry in memory.
struct Both {
  ClsRegistryAccess& store;
  ClsRegistryAccess& memory;

  template <typename Ask>
  auto Same(const Ask& ask) {
    auto answer = ask(store);
    Hold(answer == ask(memory));
    return answer;
  }
};

std::vector<std::string> Folded(const std::vector<std::string>& names) {
  std::vector<std::string> folded;
  for (const std::string& name : names) folded.push_back(lorelin::FoldCase(name));
  std::sort(folded.begin(), folded.end());
  return folded;
}

// A root is never killed, nor anything of it, however it is spelled.
bool IsRoot(std::string path) {
  while (path.ends_with('\\')) path.pop_back();
  return path.find('\\') == std::string::npos;
}

void Kill(Both both, const std::string& path) {
  const auto subkeys = [&](auto& access) {
    std::vector<std::string> names;
    std::size_t count = 0;
    (void)access.EnumKeys(path, names, count);
    return Folded(names);
  };
  const auto before = both.Same(subkeys);
  if (both.Same([&](auto& access) { return access.KillKey(path); })) Hold(!both.store.KeyExists(path));
  if (IsRoot(path)) Hold(both.Same(subkeys) == before);
}

void CheckKey(Both both, const std::string& path) {
  const bool there = both.Same([&](auto& access) { return access.KeyExists(path); });
  (void)both.Same([&](auto& access) {
    std::vector<std::string> names;
    std::size_t count = 0;
    const bool has = access.EnumKeys(path, names, count);
    Hold(has == there && count == names.size() && access.HaveSubkey(path) == !names.empty());
    for (const std::string& name : names) Hold(access.KeyExists(path + "\\" + name));
    return Folded(names);
  });
}

void Change(Both both, lorelin::fuzz::Input& input) {
  const std::uint8_t what = input.Byte();
  const std::string path(input.Text());
  const std::string name(input.Text());
  switch (what % 5) {
    case 0:
      if (both.Same([&](auto& access) { return access.CreateKey(path); })) Hold(both.store.KeyExists(path));
      break;
    case 1:
      Kill(both, path);
      break;
    case 2:
      if (both.Same([&](auto& access) { return access.WriteString(path, name, name + "!"); }))
        Hold(both.store.ReadString(path, name) == name + "!");
      break;
    case 3:
      if (both.Same([&](auto& access) { return access.WriteDWORD(path, name, what); }))
        Hold(both.store.ReadDWORD(path, name) == what);
      break;
    default:
      if (both.Same([&](auto& access) { return access.KillValue(path, name); }))
        Hold(!both.store.ValueExists(path, name));
  }
  CheckKey(both, path);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 1);
  return 0;
}

// Whatever a path looks like, the store and a registry in memory make the same of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Store store;
  lorelin::fuzz::Input input(data, size);
  lorelin::FakeRegistry memory;
  lorelin::FakeFileWriter files;
  ClsRegistryAccess storeAccess(store.Registry(), files);
  ClsRegistryAccess memoryAccess(memory, files);
  const bool create = input.Byte() % 2 == 0;
  storeAccess.CreateKeyIfDoesntExists(create);
  memoryAccess.CreateKeyIfDoesntExists(create);
  // Nothing of it stays for the next run.
  (void)store.Registry().Together([&] {
    for (int changes = 0; changes < 16 && !input.IsEmpty(); ++changes)
      Change({storeAccess, memoryAccess}, input);
    return false;
  });
  return 0;
}
