#pragma once

#include <gio/gio.h>

#include <functional>
#include <vector>

#include "ports/Log.h"
#include "ports/RemoteControl.h"

namespace lorelin {

// The program on the session bus: as a media player (MPRIS D-Bus Interface Specification 2.2), and under a
// name of its own for what no player does. Without a bus it does nothing. A name that another process has is
// left to it; the media player then gets one with the number of this process, as MPRIS asks for.
class MprisRemoteControl final : public RemoteControl {
 public:
  // Does not own the log.
  explicit MprisRemoteControl(Log& log) : log_(log) {}
  ~MprisRemoteControl() override;
  MprisRemoteControl(const MprisRemoteControl&) = delete;
  MprisRemoteControl& operator=(const MprisRemoteControl&) = delete;

  void OnRequest(std::function<void(const RemoteOrder&)> handler) override;
  void Tell(const RemoteState& state) override;
  bool AskRunning(const RemoteOrder& order) override;

 private:
  friend struct MprisCalls;
  void Join();
  void Publish(const char* path, const char* interface);
  void OwnNames();
  void Leave();
  void Later(RemoteOrder order);
  gboolean Serve();
  [[nodiscard]] GVariant* Property(const char* name) const;
  [[nodiscard]] GVariant* Metadata() const;
  [[nodiscard]] gint64 Position() const;

  Log& log_;
  std::function<void(const RemoteOrder&)> handler_;
  GDBusConnection* bus_ = nullptr;
  RemoteState state_;
  gint64 told_ = 0;  // monotonic microseconds
  std::vector<RemoteOrder> asked_;
  guint source_ = 0;  // of the event loop, that serves what was asked
  bool tried_ = false;
};

}  // namespace lorelin
