#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

#include "platform/linux/SqliteRegistry.h"
#include "tests/fuzz/input.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

using lorelin::RegistryHive;
using lorelin::fuzz::Hold;
namespace fs = std::filesystem;

namespace {

constexpr int kValues = 40;
constexpr const char* kKey = "Software\\VB and VBA Program Settings\\Lorelin\\Settings";

class Stores {
 public:
  Stores() {
    lorelin::FakeLog log;
    const auto opened = lorelin::SqliteRegistry::Open(Path(), log);
    Hold(opened.registry->Together([&] {
      for (int i = 0; i < kValues; ++i) {
        (void)opened.registry->WriteValue(RegistryHive::CurrentUser, kKey, "Wert" + std::to_string(i),
                                          {lorelin::RegistryType::String, std::string(60, 'x')});
      }
      return true;
    }));
  }

  // The store as it was written and closed; to be asked for first.
  [[nodiscard]] const std::string& Whole() {
    if (whole_.empty()) whole_ = lorelin::ReadFile(Path());
    return whole_;
  }
  void Put(const std::string& bytes) { lorelin::WriteFile(Path(), bytes); }
  [[nodiscard]] std::string Path() const { return folder_.File("registry.sqlite"); }

  // The file that was set aside, which goes with the rest; "" when there is none.
  std::string TakeAside() {
    std::string aside;
    for (const auto& entry : fs::directory_iterator(folder_.Path())) {
      const std::string name = entry.path().filename().string();
      const bool isStore = name.starts_with("registry.sqlite.") && name != "registry.sqlite.lock" &&
                           !name.ends_with("-wal") && !name.ends_with("-shm");
      if (isStore) aside = lorelin::ReadFile(entry.path().string());
      if (name != "registry.sqlite.lock") fs::remove(entry.path());
    }
    return aside;
  }

 private:
  lorelin::TemporaryFolder folder_;
  std::string whole_;
};

struct Damage {
  std::string bytes;
  bool inside = false;  // bytes were changed, which may be those of a name or a value
};

// The store with bytes changed, cut off, or other bytes in its place.
Damage Damaged(const std::string& whole, lorelin::fuzz::Input input) {
  std::string bytes = whole;
  bool inside = false;
  switch (input.Byte() % 4) {
    case 0:
      bytes.resize(input.Number(3) % (bytes.size() + 1));
      break;
    case 1:
      return {std::string(input.Rest())};
    default:
      break;
  }
  while (!input.IsEmpty() && !bytes.empty()) {
    const std::size_t at = input.Number(2) % bytes.size();
    bytes[at] = static_cast<char>(input.Byte());
    inside = true;
  }
  return {std::move(bytes), inside};
}

// Everything that is left can be asked for, and is something or told to be unreadable. The store's format has
// no checksums: a key whose name or place was changed has another name or place.
void CheckUse(lorelin::SqliteRegistry& registry, bool mayBeEmpty) {
  std::size_t found = 0;
  bool unreadable = registry.State() == lorelin::RegistryState::Unreadable;
  for (const auto hive : {RegistryHive::CurrentUser, RegistryHive::LocalMachine}) {
    for (const auto* const key : {"", "Software", kKey}) {
      const auto subkeys = registry.SubkeyNames(hive, key);
      found += subkeys ? subkeys->size() : 0;
      unreadable = unreadable || registry.State() == lorelin::RegistryState::Unreadable;
      const auto names = registry.ValueNames(hive, key);
      unreadable = unreadable || registry.State() == lorelin::RegistryState::Unreadable;
      if (!names) continue;
      for (const std::string& name : *names) found += registry.ReadValue(hive, key, name) ? 1U : 0U;
    }
  }
  Hold(found > 0 || mayBeEmpty || unreadable);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (fs::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 1);
  return 0;
}

// A damaged store is used as far as it holds together, or set aside byte for byte and told of; one that was
// cut off or is no store at all is never empty without a word.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Stores stores;
  const auto [bytes, inside] = Damaged(stores.Whole(), {data, size});
  stores.Put(bytes);
  bool lost = false;
  {
    lorelin::FakeLog log;
    const auto opened = lorelin::SqliteRegistry::Open(stores.Path(), log);
    lost = opened.lost;
    Hold(!lost || !opened.notice.empty());
    CheckUse(*opened.registry, lost || inside);
  }
  const std::string aside = stores.TakeAside();
  Hold(lost || aside.empty());
  if (lost && !bytes.empty() && !aside.empty())
    Hold(aside.size() >= bytes.size() && aside.starts_with(bytes.substr(0, 16)));
  return 0;
}
