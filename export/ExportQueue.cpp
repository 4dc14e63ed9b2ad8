#include "export/ExportQueue.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lorelin {
namespace {

bool IsOver(ExportState state) {
  return state != ExportState::Waiting && state != ExportState::Running;
}

template <typename Items>
bool HasLeft(const Items& items) {
  return std::any_of(items.begin(), items.end(), [](const auto& item) { return !IsOver(item.state); });
}

ExportState StateAfter(const RenderingResult& result) {
  if (result.end == RenderingEnd::Whole) return ExportState::Done;
  return result.end == RenderingEnd::Cancelled ? ExportState::Cancelled : ExportState::Failed;
}

}  // namespace

double DoneOf(const std::vector<ExportItem>& items) {
  double done = 0;
  double all = 0;
  for (const ExportItem& item : items) {
    const auto weight = static_cast<double>(item.characters);
    const bool over = item.state == ExportState::Cancelled || item.state == ExportState::Failed;
    done += weight * (over ? 1 : item.done);
    all += weight;
  }
  return all == 0 ? 1 : done / all;
}

bool AnyLeft(const std::vector<ExportItem>& items) {
  return HasLeft(items);
}

ExportQueue::ExportQueue(SoundRendering& rendering, FileWriter& files, Clock& clock, std::size_t jobs)
    : rendering_(rendering), files_(files), clock_(clock), jobs_(std::max<std::size_t>(jobs, 1)) {}

ExportQueue::~ExportQueue() {
  End();
}

void ExportQueue::End() {
  CancelAll();
  {
    const std::lock_guard guard(mutex_);
    closing_ = true;
  }
  changed_.notify_all();
  for (std::thread& thread : threads_) thread.join();
  threads_.clear();
}

void ExportQueue::Add(std::vector<PlannedFile> files, const std::shared_ptr<const ExportVoice>& voice) {
  {
    const std::lock_guard guard(mutex_);
    if (!HasLeft(entries_)) {
      since_ = clock_.Steady();
      doneBefore_ = 0;
      for (const Entry& entry : entries_) doneBefore_ += DoneOf(entry);
    }
    for (PlannedFile& file : files) {
      Entry& entry = entries_.emplace_back();
      entry.characters = std::max<std::size_t>(file.written.end - file.written.begin, 1);
      entry.file = std::move(file);
      entry.voice = voice;
    }
  }
  while (!closing_ && threads_.size() < jobs_) threads_.emplace_back([this] { Work(); });
  changed_.notify_all();
}

std::size_t ExportQueue::DoneOf(const Entry& entry) {
  if (entry.state == ExportState::Done) return entry.characters;
  return std::min<std::size_t>(entry.progress.characters, entry.characters);
}

std::vector<ExportItem> ExportQueue::Items() const {
  const std::lock_guard guard(mutex_);
  std::vector<ExportItem> items;
  for (const Entry& entry : entries_) {
    items.push_back({.name = entry.file.name,
                     .target = entry.file.target,
                     .state = entry.state,
                     .done = static_cast<double>(DoneOf(entry)) / static_cast<double>(entry.characters),
                     .characters = entry.characters,
                     .result = entry.result});
  }
  return items;
}

void ExportQueue::Cancel(std::size_t item) {
  const std::lock_guard guard(mutex_);
  if (item >= entries_.size()) return;
  Entry& entry = entries_[item];
  entry.progress.cancelled = true;
  if (entry.state != ExportState::Waiting) return;
  entry.state = ExportState::Cancelled;
  entry.result.end = RenderingEnd::Cancelled;
}

void ExportQueue::CancelAll() {
  std::size_t count = 0;
  {
    const std::lock_guard guard(mutex_);
    count = entries_.size();
  }
  for (std::size_t item = 0; item < count; ++item) Cancel(item);
}

bool ExportQueue::Busy() const {
  const std::lock_guard guard(mutex_);
  return HasLeft(entries_);
}

std::optional<std::chrono::seconds> ExportQueue::TimeLeft() const {
  constexpr double kEnough = 1;  // seconds that are worth an estimate
  const std::lock_guard guard(mutex_);
  std::size_t done = 0;
  std::size_t left = 0;
  for (const Entry& entry : entries_) {
    done += DoneOf(entry);
    if (!IsOver(entry.state)) left += entry.characters - DoneOf(entry);
  }
  const double gone = std::chrono::duration<double>(clock_.Steady() - since_).count();
  if (gone < kEnough || done <= doneBefore_) return std::nullopt;
  const double seconds = static_cast<double>(left) * gone / static_cast<double>(done - doneBefore_);
  return std::chrono::seconds(std::llround(std::ceil(seconds)));
}

ExportQueue::Entry* ExportQueue::Next() {
  std::unique_lock guard(mutex_);
  while (true) {
    const auto waiting = std::find_if(entries_.begin(), entries_.end(),
                                      [](const Entry& entry) { return entry.state == ExportState::Waiting; });
    if (waiting != entries_.end()) {
      waiting->state = ExportState::Running;
      return &*waiting;
    }
    if (closing_) return nullptr;
    changed_.wait(guard);
  }
}

void ExportQueue::Finish(Entry& entry, RenderingResult result) {
  const std::lock_guard guard(mutex_);
  entry.state = StateAfter(result);
  entry.result = std::move(result);
  entry.file.text.reset();  // a book is not kept for a line in a list
}

void ExportQueue::Work() {
  while (Entry* const entry = Next()) {
    Finish(*entry, RenderFile(entry->file, *entry->voice, rendering_, files_, entry->progress));
  }
}

}  // namespace lorelin
