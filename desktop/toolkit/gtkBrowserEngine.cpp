#include "desktop/toolkit/browserEngine.h"

#include <gtk/gtk.h>
#include <webkit2/webkit2.h>

#include <array>
#include <string>
#include <utility>

namespace lorelin {
namespace {

constexpr std::array kStates{ATK_STATE_ENABLED, ATK_STATE_SENSITIVE, ATK_STATE_VISIBLE, ATK_STATE_SHOWING};

AtkStateSet* (*statesOfSocket)(AtkObject*) = nullptr;

// What joins the page to the window tells nothing but that it has the focus, which a screen reader takes for
// a control that is greyed. The bridge to the page's process puts its own answer there when that process
// comes.
AtkStateSet* StatesOfPage(AtkObject* object) {
  AtkStateSet* const states = statesOfSocket(object);
  for (const AtkStateType state : kStates) atk_state_set_add_state(states, state);
  return states;
}

void TellMessage(WebKitUserContentManager*, WebKitJavascriptResult* message, gpointer view) {
  gchar* const text = jsc_value_to_string(webkit_javascript_result_get_js_value(message));
  auto* const receiver = static_cast<wxWebView*>(view);
  wxWebViewEvent event(wxEVT_WEBVIEW_SCRIPT_MESSAGE_RECEIVED, receiver->GetId(), receiver->GetCurrentURL(),
                       wxString());
  event.SetEventObject(receiver);
  event.SetString(wxString::FromUTF8(text));
  g_free(text);
  receiver->HandleWindowEvent(event);
}

}  // namespace

void TellThatPageIsUsable(wxWebView& view) {
  AtkObject* const page = gtk_widget_get_accessible(static_cast<GtkWidget*>(view.GetNativeBackend()));
  AtkObjectClass* const type = ATK_OBJECT_GET_CLASS(page);
  if (type->ref_state_set != StatesOfPage) statesOfSocket = std::exchange(type->ref_state_set, StatesOfPage);
  for (const AtkStateType state : kStates) atk_object_notify_state_change(page, state, TRUE);
}

// The toolkit gives the focus to the scrolled window around the page, where no key has an effect.
void LetPageTakeFocus(wxWebView& view) {
  gtk_widget_set_can_focus(static_cast<GtkWidget*>(view.GetHandle()), FALSE);
}

void FocusPage(wxWebView& view) {
  TellThatPageIsUsable(view);
  gtk_widget_grab_focus(static_cast<GtkWidget*>(view.GetNativeBackend()));
}

// The toolkit's own function runs a script for it and handles events until the page's process, which has only
// just been started, has answered: the whole start would wait.
void LetPageSend(wxWebView& view, const char* name) {
  WebKitUserContentManager* const contents =
      webkit_web_view_get_user_content_manager(WEBKIT_WEB_VIEW(view.GetNativeBackend()));
  const std::string signal = std::string("script-message-received::") + name;
  g_signal_connect(contents, signal.c_str(), G_CALLBACK(TellMessage), &view);
  webkit_user_content_manager_register_script_message_handler(contents, name);
}

}  // namespace lorelin
