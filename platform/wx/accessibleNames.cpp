#include "platform/wx/accessibleNames.h"

#include <wx/window.h>

#ifdef __WXGTK__

#include <wx/listctrl.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>

#include <cstdlib>
#include <limits>
#include <vector>

#include "platform/wx/gtkFunction.h"

namespace brasquelin {

namespace {

struct Atk {
    void* (*objectOf)(void* widget) = gtkFunction<void*(void*)>("gtk_widget_get_accessible");
    const char* (*nameOf)(void* object) = gtkFunction<const char*(void*)>("atk_object_get_name");
    void (*setName)(void* object, const char* name) = gtkFunction<void(void*, const char*)>("atk_object_set_name");
    int (*roleNamed)(const char* name) = gtkFunction<int(const char*)>("atk_role_for_name");
    void (*setRole)(void* object, int role) = gtkFunction<void(void*, int)>("atk_object_set_role");
    unsigned long (*scrolledType)() = gtkFunction<unsigned long()>("gtk_scrolled_window_get_type");
    int (*isA)(void* widget, unsigned long type) = gtkFunction<int(void*, unsigned long)>("g_type_check_instance_is_a");
    void* (*childOf)(void* widget) = gtkFunction<void*(void*)>("gtk_bin_get_child");

    bool complete() const {
        return objectOf && nameOf && setName && roleNamed && setRole && scrolledType && isA && childOf;
    }
};

const Atk& atk() {
    static const Atk functions;
    return functions;
}

/// A control with scroll bars is a frame around what has the keys.
void* objectOf(wxWindow& control) {
    if (!atk().complete() || !control.GetHandle()) return nullptr;
    void* widget = control.GetHandle();
    if (atk().isA(widget, atk().scrolledType()) != 0) {
        if (void* inner = atk().childOf(widget)) widget = inner;
    }
    return atk().objectOf(widget);
}

bool isNamed(wxWindow& control) {
    void* object = objectOf(control);
    const char* name = object ? atk().nameOf(object) : "";
    return !object || (name && *name);
}

void setName(wxWindow& control, const wxString& name) {
    if (void* object = objectOf(control)) atk().setName(object, name.utf8_str());
}

/// Every control below the window, and the labels that are to be seen.
struct Controls {
    std::vector<wxStaticText*> labels;
    std::vector<wxWindow*> others;
};

void gather(wxWindow& window, Controls& controls) {
    for (auto* child : window.GetChildren()) {
        if (child->IsTopLevel()) continue;
        auto* label = dynamic_cast<wxStaticText*>(child);
        if (label) {
            if (label->IsShown()) controls.labels.push_back(label);
        } else if (child->GetChildren().empty() || dynamic_cast<wxListView*>(child)) {
            controls.others.push_back(child);
        } else {
            gather(*child, controls);
        }
    }
}

/// How far the label is from the control: in front of it on its row, else above its left end. Very far where it is
/// neither.
int distance(const wxRect& label, const wxRect& control) {
    constexpr int nearby = 60;  // pixels
    const int centre = label.y + label.height / 2;
    const bool onRow = centre >= control.y && centre <= control.GetBottom();
    if (onRow && label.GetRight() <= control.x + nearby / 4) return control.x - label.GetRight();
    const int gap = control.y - label.GetBottom();
    if (gap >= -4 && gap < nearby && std::abs(label.x - control.x) < nearby) return 1000 + gap;
    return std::numeric_limits<int>::max();
}

wxString labelOf(const wxWindow& control, const std::vector<wxStaticText*>& labels) {
    int nearest = std::numeric_limits<int>::max();
    wxString text;
    for (const auto* label : labels) {
        const int away = distance(label->GetScreenRect(), control.GetScreenRect());
        if (away >= nearest || label->GetLabelText().empty()) continue;
        nearest = away;
        text = label->GetLabelText();
    }
    const auto* box = dynamic_cast<const wxStaticBox*>(control.GetParent());
    if (text.empty() && box) text = box->GetLabelText();
    while (!text.empty() && wxString(" :=").Contains(text.Last())) text.RemoveLast();
    return text;
}

void nameAll(wxTopLevelWindow& window) {
    Controls controls;
    gather(window, controls);
    for (auto* control : controls.others) {
        if (isNamed(*control)) continue;
        wxString name = labelOf(*control, controls.labels);
        if (name.empty()) name = control->GetToolTipText();
        if (!name.empty()) nameForAssistiveTools(*control, name);
    }
}

}  // namespace

void nameForAssistiveTools(wxWindow& control, const wxString& name) {
    setName(control, name);
    if (!dynamic_cast<wxListView*>(&control)) return;
    for (auto* part : control.GetChildren()) {
        setName(*part, name);
        if (void* object = objectOf(*part)) atk().setRole(object, atk().roleNamed("list"));
    }
}

void nameControlsByLabels(wxTopLevelWindow& window) {
    window.CallAfter([&window] { nameAll(window); });  // when everything is in its place
}

}  // namespace brasquelin

#else

namespace brasquelin {

void nameForAssistiveTools(wxWindow&, const wxString&) {}
void nameControlsByLabels(wxTopLevelWindow&) {}

}  // namespace brasquelin

#endif
