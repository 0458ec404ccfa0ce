#include "platform/wx/notice.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/notifmsg.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

/// Without a session bus GTK would start one, and that takes seconds.
bool canNotify() {
#ifdef __WXGTK__
    wxString address;
    if (wxGetEnv("DBUS_SESSION_BUS_ADDRESS", &address)) return !address.empty() && address != "disabled:";
    wxString directory;
    return wxGetEnv("XDG_RUNTIME_DIR", &directory) && wxFileName::Exists(directory + "/bus");
#else
    return true;
#endif
}

}  // namespace

void notifyUser(wxWindow& window, std::string_view title, std::string_view text) {
    auto* frame = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(&window));
    if (!frame || frame->IsActive()) return;
    frame->RequestUserAttention();
    if (!canNotify()) return;
    const wxLogNull silence;
    wxNotificationMessage(toWx(title), toWx(text), frame).Show();
}

}  // namespace brasquelin
