#include "editor/editorMenus.h"

#include <wx/menu.h>

#include "platform/wx/mnemonics.h"

namespace brasquelin {

namespace {

void appendGivenItems(wxMenu& menu, bool hasSelection, bool isCommandList) {
    menu.Append(mnuAdd, "Add\tIns");
    menu.Append(mnuEdit, "Edit\tF2")->Enable(hasSelection);
    menu.AppendSeparator();
    menu.Append(mnuRemove, "Remove\tDel")->Enable(hasSelection);
    menu.Append(mnuClear, "Clear");
    if (!isCommandList) return;
    menu.AppendSeparator();
    menu.Append(mnuFor, "For ...");
    menu.Append(mnuNext, "... Next");
}

void appendFormItems(wxMenu& menu, bool isCommandList) {
    menu.Append(mnuForm, "Edit in f&orm ...\tShift+F2");
    if (isCommandList) menu.Append(mnuLine, "Command &line ...\tCtrl+L");
    menu.AppendSeparator();
}

void appendGroupItems(wxMenu& menu) {
    menu.Append(wxID_CUT, "Cu&t\tCtrl+X");
    menu.Append(wxID_COPY, "&Copy\tCtrl+C");
    menu.Append(wxID_PASTE, "&Paste\tCtrl+V");
    menu.Append(wxID_SELECTALL, "Select &all\tCtrl+A");
}

wxMenu* makeEditMenu() {
    auto* menu = new wxMenu;
    menu->Append(wxID_UNDO, "&Undo\tCtrl+Z");
    auto* redo = menu->Append(wxID_REDO, "&Redo\tCtrl+Y");
    redo->AddExtraAccel(wxAcceleratorEntry(wxACCEL_CTRL | wxACCEL_SHIFT, 'Z', wxID_REDO));
    menu->AppendSeparator();
    appendFormItems(*menu, true);
    appendGroupItems(*menu);
    menu->AppendSeparator();
    menu->Append(wxID_FIND, "&Find\tCtrl+F");
    menu->Append(mnuFindNext, "Find &next\tF3");
    menu->Append(mnuFindBack, "Find pre&vious\tShift+F3");
    return menu;
}

}  // namespace

wxMenuBar* makeEditorMenus(wxMenu*& recent) {
    auto* mnuProfile = new wxMenu;
    mnuProfile->Append(wxID_NEW, "New\tCtrl+N");
    mnuProfile->Append(wxID_OPEN, "Open\tCtrl+O");
    mnuProfile->AppendSeparator();
    mnuProfile->Append(wxID_SAVE, "Save\tCtrl+S");
    mnuProfile->Append(wxID_SAVEAS, "Save as ...\tCtrl+Shift+S");
    mnuProfile->AppendSeparator();
    mnuProfile->Append(wxID_EXIT, "Exit\tCtrl+Q");
    mnuProfile->AppendSeparator();
    recent = new wxMenu;
    mnuProfile->AppendSubMenu(recent, "Open recent");
    auto* bar = new wxMenuBar;
    bar->Append(mnuProfile, "&Profile");
    bar->Append(makeEditMenu(), "&Edit");
    auto* mnuCheck = new wxMenu;
    mnuCheck->Append(mnuPreview, "Preview\tF5");
    bar->Append(mnuCheck, "&Check");
    auto* help = new wxMenu;
    help->Append(wxID_HELP, "Manual\tF1");
    bar->Append(help, "&Help");
    giveMnemonics(*bar);
    return bar;
}

void fillListMenu(wxMenu& menu, EditorList which, bool hasSelection) {
    const bool isCommandList = which == EditorList::commands;
    appendGivenItems(menu, hasSelection, isCommandList);
    menu.AppendSeparator();
    if (which != EditorList::include) {
        appendFormItems(menu, isCommandList);
        menu.Enable(mnuForm, hasSelection);
    }
    appendGroupItems(menu);
    giveMnemonics(menu);
}

}  // namespace brasquelin
