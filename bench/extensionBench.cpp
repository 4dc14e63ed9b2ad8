#include <benchmark/benchmark.h>
#include <gio/gio.h>

#include <filesystem>
#include <fstream>

#include "extensions/modAddin.h"
#include "extensions/registrations.h"
#include "platform/common/AtomicFileWriter.h"
#include "platform/linux/DBusAutomation.h"
#include "platform/linux/SqliteRegistry.h"

namespace lorelin {
namespace {

class NullLog final : public Log {
 public:
  void Write(std::string_view) override {}
};

// A registry on disk with so many registrations, all switched off.
struct Host {
  explicit Host(int registrations) {
    std::string pattern = (std::filesystem::temp_directory_path() / "lorelin-bench-XXXXXX").string();
    folder = mkdtemp(pattern.data());
    registry = SqliteRegistry::Open((folder / "registry.sqlite").string(), log).registry;
    ClsRegistryAccess access(*registry, files);
    Registrations list(access);
    for (int i = 0; i < registrations; ++i) {
      (void)list.Add("E" + std::to_string(i), "org.lorelin.Abkuerzungen");
      if (registrations > 1) list.SetActive("E" + std::to_string(i), false);
    }
    automation = std::make_unique<DBusAutomation>(log);
    addin = std::make_unique<ModAddin>(*registry, files, *automation, log);
  }
  ~Host() {
    addin.reset();
    registry.reset();
    std::filesystem::remove_all(folder);
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  NullLog log;
  AtomicFileWriter files;
  std::filesystem::path folder;
  std::unique_ptr<Registry> registry;
  std::unique_ptr<DBusAutomation> automation;
  std::unique_ptr<ModAddin> addin;
};

void HookWithoutRegistrations(benchmark::State& state) {
  Host host(0);
  for (auto _ : state) host.addin->NewFile();
}
BENCHMARK(HookWithoutRegistrations);

void WalkRegistrations(benchmark::State& state) {
  Host host(static_cast<int>(state.range(0)));
  for (auto _ : state) host.addin->NewFile();
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(WalkRegistrations)->Arg(10000)->Unit(benchmark::kMillisecond);

const char* const kSentence = "Dr. Meyer kommt am 3.10.2026 um 20:15 Uhr, z. B. mit 5,50 €. ";

// One call of a real extension on a real bus, its creation included.
void FilterOverTheBus(benchmark::State& state) {
  GTestDBus* const bus = g_test_dbus_new(G_TEST_DBUS_NONE);
  const std::string program =
      (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "lorelin-abkuerzungen").string();
  std::string pattern = (std::filesystem::temp_directory_path() / "lorelin-bench-XXXXXX").string();
  const std::string services = mkdtemp(pattern.data());
  std::ofstream(services + "/a.service")
      << "[D-BUS Service]\nName=org.lorelin.Abkuerzungen\nExec=" << program << "\n";
  g_test_dbus_add_service_dir(bus, services.c_str());
  g_test_dbus_up(bus);
  {
    Host host(1);
    (void)host.addin->FilterText("x");
    for (auto _ : state) benchmark::DoNotOptimize(host.addin->FilterText(kSentence));
  }
  g_test_dbus_down(bus);
  g_object_unref(bus);
  std::filesystem::remove_all(services);
}
BENCHMARK(FilterOverTheBus)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace lorelin

BENCHMARK_MAIN();
