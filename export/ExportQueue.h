#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "export/RenderedFile.h"
#include "ports/Clock.h"

namespace lorelin {

enum class ExportState { Waiting, Running, Done, Failed, Cancelled };

// A file of the queue as a person sees it.
struct ExportItem {
  std::string name;
  std::string target;
  ExportState state = ExportState::Waiting;
  double done = 0;             // 0 to 1
  std::size_t characters = 1;  // what it makes of the whole
  RenderingResult result;
};

// What is done of all of them, 0 to 1; what was given up or failed takes no more time.
[[nodiscard]] double DoneOf(const std::vector<ExportItem>& items);
// Whether any of them waits or runs.
[[nodiscard]] bool AnyLeft(const std::vector<ExportItem>& items);

// Makes sound files one behind the other, several at a time, each on a thread and with an engine of its own.
// From any thread; nothing of it waits but its end.
class ExportQueue {
 public:
  // Owns none of the references. `jobs`: how many at a time.
  ExportQueue(SoundRendering& rendering, FileWriter& files, Clock& clock, std::size_t jobs);
  ~ExportQueue();
  ExportQueue(const ExportQueue&) = delete;
  ExportQueue& operator=(const ExportQueue&) = delete;

  void Add(std::vector<PlannedFile> files, const std::shared_ptr<const ExportVoice>& voice);
  // In the order in which they came; those that are done stay in it.
  [[nodiscard]] std::vector<ExportItem> Items() const;
  // What was made already stays.
  void Cancel(std::size_t item);
  void CancelAll();
  // Cancels what is left and waits until nothing of it is there any more; what is added later stays undone.
  void End();
  // Whether anything waits or runs.
  [[nodiscard]] bool Busy() const;
  // How long what waits and runs is going to take; nothing as long as nobody can tell.
  [[nodiscard]] std::optional<std::chrono::seconds> TimeLeft() const;

 private:
  struct Entry {
    PlannedFile file;
    std::shared_ptr<const ExportVoice> voice;
    ExportState state = ExportState::Waiting;
    RenderingResult result;
    RenderingProgress progress;
    std::size_t characters = 0;
  };

  void Work();
  [[nodiscard]] Entry* Next();
  [[nodiscard]] static std::size_t DoneOf(const Entry& entry);
  void Finish(Entry& entry, RenderingResult result);

  SoundRendering& rendering_;
  FileWriter& files_;
  Clock& clock_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Entry> entries_;  // they stay where they are
  std::chrono::steady_clock::time_point since_;
  std::size_t doneBefore_ = 0;  // characters that were done at that time
  bool closing_ = false;
  std::size_t jobs_;
  std::vector<std::thread> threads_;  // from the first file on
};

}  // namespace lorelin
