#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin::engine {

// ONNX Runtime, a library that is opened when it is first needed. Of its C interface, a table of functions
// to which every release only adds, this uses some by their place.
class OnnxRuntime {
 public:
  // What a model is given and gives.
  struct Numbers {
    const char* name = "";
    std::span<std::int64_t> whole;  // one of the two
    std::span<float> real;
    bool isList = true;  // a list of its own length, else one of one such list
  };
  struct Result {
    std::vector<float> output;
    std::vector<float> durations;
  };

  // A model that is loaded. Belongs to its runtime, which must outlive it.
  class Session {
   public:
    Session(const OnnxRuntime& runtime, void* session) : runtime_(runtime), session_(session) {}
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // The tensors "output" and, if it has a name, `durations`, of numbers with at most `most` samples; none
    // when it fails or was stopped.
    [[nodiscard]] std::optional<Result> Run(std::span<const Numbers> inputs, const std::string& durations,
                                            std::size_t most);

   private:
    [[nodiscard]] bool Compute(std::span<const Numbers> inputs, std::span<const char* const> names,
                               std::span<void*> values);

    const OnnxRuntime& runtime_;
    void* session_;
  };

  // The library's file in the folders, else in those of the system; "" when there is none.
  [[nodiscard]] static std::filesystem::path Find(const std::vector<std::filesystem::path>& folders);
  // None when the file is no such library.
  [[nodiscard]] static std::unique_ptr<OnnxRuntime> Open(const std::filesystem::path& library);
  ~OnnxRuntime();
  OnnxRuntime(const OnnxRuntime&) = delete;
  OnnxRuntime& operator=(const OnnxRuntime&) = delete;

  // None when the model cannot be run.
  [[nodiscard]] std::unique_ptr<Session> Load(std::string_view model) const;
  // While this is set, whatever is run ends with a failure. From any thread.
  void SetStopped(bool stopped) const;

 private:
  OnnxRuntime() = default;

  template <typename... Arguments>
  bool Call(std::size_t place, Arguments... arguments) const;
  void Release(std::size_t place, void* object) const;
  [[nodiscard]] void* MakeTensor(const Numbers& numbers) const;
  [[nodiscard]] std::optional<std::vector<float>> Floats(void* tensor, std::size_t most) const;

  void* library_ = nullptr;
  void* const* functions_ = nullptr;
  void* environment_ = nullptr;
  void* runOptions_ = nullptr;
  void* memory_ = nullptr;
};

}  // namespace lorelin::engine
