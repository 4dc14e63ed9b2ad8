#include "engine/EncodingQueue.h"

#include <utility>

namespace lorelin::engine {
namespace {

constexpr std::size_t kMostWaiting = 1 << 18;  // samples

}  // namespace

EncodingQueue::EncodingQueue(std::unique_ptr<SampleSink> sink)
    : sink_(std::move(sink)), failed_(!sink_->Problem().empty()), problem_(sink_->Problem()) {
  if (!failed_) thread_ = std::thread([this] { Work(); });
}

EncodingQueue::~EncodingQueue() {
  End(true);
}

void EncodingQueue::End(bool atOnce) {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard guard(mutex_);
    if (atOnce) blocks_.clear();
    ending_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

bool EncodingQueue::Write(std::span<const std::int16_t> samples) {
  std::unique_lock guard(mutex_);
  changed_.wait(guard, [this] { return failed_ || waiting_ < kMostWaiting; });
  if (failed_) return false;
  blocks_.emplace_back(samples.begin(), samples.end());
  waiting_ += samples.size();
  guard.unlock();
  changed_.notify_all();
  return true;
}

void EncodingQueue::Work() {
  std::unique_lock guard(mutex_);
  while (!failed_) {
    changed_.wait(guard, [this] { return ending_ || !blocks_.empty(); });
    if (blocks_.empty()) return;
    const std::vector<std::int16_t> block = std::move(blocks_.front());
    blocks_.pop_front();
    waiting_ -= block.size();
    guard.unlock();
    changed_.notify_all();
    const bool taken = sink_->Write(block);
    guard.lock();
    if (taken) continue;
    failed_ = true;
    problem_ = sink_->Problem();
    changed_.notify_all();
  }
}

bool EncodingQueue::Finish() {
  End(false);
  if (failed_) return false;
  if (sink_->Finish()) return true;
  failed_ = true;
  problem_ = sink_->Problem();
  return false;
}

std::string EncodingQueue::Problem() const {
  const std::lock_guard guard(mutex_);
  return problem_;
}

}  // namespace lorelin::engine
