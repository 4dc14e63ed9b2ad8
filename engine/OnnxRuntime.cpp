#include "engine/OnnxRuntime.h"

#include <dlfcn.h>

#include <algorithm>
#include <array>

namespace lorelin::engine {
namespace {

namespace fs = std::filesystem;

// Version 1 of the table; places are counted in functions.
constexpr std::uint32_t kTableVersion = 1;
constexpr std::size_t kCreateEnv = 3;
constexpr std::size_t kCreateSessionFromArray = 8;
constexpr std::size_t kRun = 9;
constexpr std::size_t kCreateSessionOptions = 10;
constexpr std::size_t kDisableMemPattern = 17;
constexpr std::size_t kSetIntraOpNumThreads = 24;
constexpr std::size_t kSetInterOpNumThreads = 25;
constexpr std::size_t kCreateRunOptions = 39;
constexpr std::size_t kRunOptionsSetTerminate = 46;
constexpr std::size_t kRunOptionsUnsetTerminate = 47;
constexpr std::size_t kCreateTensorWithData = 49;
constexpr std::size_t kIsTensor = 50;
constexpr std::size_t kGetTensorMutableData = 51;
constexpr std::size_t kGetTensorElementType = 60;
constexpr std::size_t kGetTensorShapeElementCount = 64;
constexpr std::size_t kGetTensorTypeAndShape = 65;
constexpr std::size_t kCreateCpuMemoryInfo = 69;
constexpr std::size_t kReleaseEnv = 92;
constexpr std::size_t kReleaseStatus = 93;
constexpr std::size_t kReleaseMemoryInfo = 94;
constexpr std::size_t kReleaseSession = 95;
constexpr std::size_t kReleaseValue = 96;
constexpr std::size_t kReleaseRunOptions = 97;
constexpr std::size_t kReleaseTensorTypeAndShapeInfo = 99;
constexpr std::size_t kReleaseSessionOptions = 100;

// Values of its enumerations.
constexpr int kLogFatal = 4;
constexpr int kFloat = 1;
constexpr int kInt64 = 7;
constexpr int kArenaAllocator = 1;
constexpr int kDefaultMemory = 0;

// What OrtGetApiBase gives.
struct Base {
  void* const* (*table)(std::uint32_t version);
  const char* (*version)();
};

constexpr std::string_view kLibraryName = "libonnxruntime.so";

fs::path NewestIn(const fs::path& folder) {
  fs::path newest;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::end(entry);
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (!name.starts_with(kLibraryName)) continue;
    const bool longer = name.size() > newest.filename().string().size();
    if (newest.empty() || longer ||
        (name.size() == newest.filename().string().size() && entry->path() > newest))
      newest = entry->path();
  }
  return newest;
}

}  // namespace

// Functions of the table answer with nothing or with an object that says what went wrong.
template <typename... Arguments>
bool OnnxRuntime::Call(std::size_t place, Arguments... arguments) const {
  const auto function = reinterpret_cast<void* (*)(Arguments...)>(functions_[place]);
  void* const status = function(arguments...);
  if (status == nullptr) return true;
  Release(kReleaseStatus, status);
  return false;
}

void OnnxRuntime::Release(std::size_t place, void* object) const {
  if (object == nullptr) return;
  reinterpret_cast<void (*)(void*)>(functions_[place])(object);
}

fs::path OnnxRuntime::Find(const std::vector<fs::path>& folders) {
  std::vector<fs::path> all = folders;
  for (const char* const folder : {"/usr/local/lib", "/usr/lib/x86_64-linux-gnu",
                                   "/usr/lib/aarch64-linux-gnu", "/usr/lib64", "/usr/lib"})
    all.emplace_back(folder);
  for (const fs::path& folder : all) {
    if (fs::path library = NewestIn(folder); !library.empty()) return library;
  }
  return {};
}

std::unique_ptr<OnnxRuntime> OnnxRuntime::Open(const fs::path& library) {
  std::unique_ptr<OnnxRuntime> runtime(new OnnxRuntime);
  runtime->library_ = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (runtime->library_ == nullptr) return nullptr;
  const auto base = reinterpret_cast<const Base* (*)()>(dlsym(runtime->library_, "OrtGetApiBase"));
  if (base == nullptr) return nullptr;
  runtime->functions_ = base()->table(kTableVersion);
  if (runtime->functions_ == nullptr) return nullptr;
  const bool ready = runtime->Call(kCreateEnv, kLogFatal, "lorelin", &runtime->environment_) &&
                     runtime->Call(kCreateRunOptions, &runtime->runOptions_) &&
                     runtime->Call(kCreateCpuMemoryInfo, kArenaAllocator, kDefaultMemory, &runtime->memory_);
  return ready ? std::move(runtime) : nullptr;
}

// The library itself stays: its threads may outlive what they were made for.
OnnxRuntime::~OnnxRuntime() {
  if (functions_ == nullptr) return;
  Release(kReleaseMemoryInfo, memory_);
  Release(kReleaseRunOptions, runOptions_);
  Release(kReleaseEnv, environment_);
}

void OnnxRuntime::SetStopped(bool stopped) const {
  (void)Call(stopped ? kRunOptionsSetTerminate : kRunOptionsUnsetTerminate, runOptions_);
}

// One thread, so that the other instance has another core; no memory kept for every length of a text.
std::unique_ptr<OnnxRuntime::Session> OnnxRuntime::Load(std::string_view model) const {
  void* options = nullptr;
  void* session = nullptr;
  const bool loaded = Call(kCreateSessionOptions, &options) && Call(kSetIntraOpNumThreads, options, 1) &&
                      Call(kSetInterOpNumThreads, options, 1) && Call(kDisableMemPattern, options) &&
                      Call(kCreateSessionFromArray, environment_, static_cast<const void*>(model.data()),
                           model.size(), options, &session);
  Release(kReleaseSessionOptions, options);
  return loaded ? std::make_unique<Session>(*this, session) : nullptr;
}

void* OnnxRuntime::MakeTensor(const Numbers& numbers) const {
  const bool real = !numbers.real.empty();
  const std::size_t count = real ? numbers.real.size() : numbers.whole.size();
  void* const data = real ? static_cast<void*>(numbers.real.data()) : numbers.whole.data();
  const std::array<std::int64_t, 2> shape{1, static_cast<std::int64_t>(count)};
  void* tensor = nullptr;
  (void)Call(kCreateTensorWithData, memory_, data, count * (real ? sizeof(float) : sizeof(std::int64_t)),
             shape.data() + (numbers.isList ? 1 : 0), std::size_t{numbers.isList ? 1U : 2U},
             real ? kFloat : kInt64, &tensor);
  return tensor;
}

std::optional<std::vector<float>> OnnxRuntime::Floats(void* tensor, std::size_t most) const {
  int isTensor = 0;
  if (!Call(kIsTensor, tensor, &isTensor) || isTensor == 0) return std::nullopt;
  void* shape = nullptr;
  if (!Call(kGetTensorTypeAndShape, tensor, &shape)) return std::nullopt;
  int type = 0;
  std::size_t count = 0;
  const bool known =
      Call(kGetTensorElementType, shape, &type) && Call(kGetTensorShapeElementCount, shape, &count);
  Release(kReleaseTensorTypeAndShapeInfo, shape);
  if (!known || type != kFloat || count > most) return std::nullopt;
  const float* data = nullptr;
  if (count > 0 && !Call(kGetTensorMutableData, tensor, &data)) return std::nullopt;
  return std::vector<float>(data, data + count);
}

OnnxRuntime::Session::~Session() {
  runtime_.Release(kReleaseSession, session_);
}

bool OnnxRuntime::Session::Compute(std::span<const Numbers> inputs, std::span<const char* const> names,
                                   std::span<void*> values) {
  std::vector<const char*> inputNames;
  std::vector<void*> tensors;
  for (const Numbers& input : inputs) {
    inputNames.push_back(input.name);
    tensors.push_back(runtime_.MakeTensor(input));
  }
  const bool made =
      std::none_of(tensors.begin(), tensors.end(), [](void* tensor) { return tensor == nullptr; });
  const bool computed =
      made && runtime_.Call(kRun, session_, runtime_.runOptions_, inputNames.data(), tensors.data(),
                            tensors.size(), names.data(), names.size(), values.data());
  for (void* const tensor : tensors) runtime_.Release(kReleaseValue, tensor);
  return computed;
}

std::optional<OnnxRuntime::Result> OnnxRuntime::Session::Run(std::span<const Numbers> inputs,
                                                             const std::string& durations, std::size_t most) {
  const std::array<const char*, 2> names{"output", durations.c_str()};
  std::array<void*, 2> values{};
  const std::size_t count = durations.empty() ? 1 : 2;
  const bool computed = Compute(inputs, std::span(names).first(count), std::span(values).first(count));
  auto output = computed ? runtime_.Floats(values[0], most) : std::nullopt;
  auto lengths = computed && count == 2 ? runtime_.Floats(values[1], most) : std::nullopt;
  for (void* const value : values) runtime_.Release(kReleaseValue, value);
  if (!output) return std::nullopt;
  return Result{std::move(*output), lengths ? std::move(*lengths) : std::vector<float>()};
}

}  // namespace lorelin::engine
