#include <wx/msw/wrapwin.h>

#include <array>
#include <utility>

#include "desktop/toolkit/mediaKeys.h"

namespace lorelin {
namespace {

struct MediaKey {
  int id;  // of the hot key, within the window
  int code;
  RemoteRequest request;
};
constexpr std::array kMediaKeys{
    MediaKey{0x4C01, VK_MEDIA_PLAY_PAUSE, RemoteRequest::PlayPause},
    MediaKey{0x4C02, VK_MEDIA_STOP, RemoteRequest::Stop},
    MediaKey{0x4C03, VK_MEDIA_NEXT_TRACK, RemoteRequest::Next},
    MediaKey{0x4C04, VK_MEDIA_PREV_TRACK, RemoteRequest::Previous},
};

}  // namespace

void OnMediaKeys(wxFrame& frame, const std::function<void(RemoteRequest)>& handler) {
  for (const MediaKey& key : kMediaKeys) {
    if (RegisterHotKey(static_cast<HWND>(frame.GetHandle()), key.id, 0, static_cast<UINT>(key.code)) == 0)
      continue;
    frame.Bind(
        wxEVT_HOTKEY, [handler, request = key.request](wxKeyEvent&) { handler(request); }, key.id);
  }
}

}  // namespace lorelin
