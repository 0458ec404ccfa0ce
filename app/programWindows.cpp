#include "app/programWindows.h"

#include <utility>

#include "app/frmAbout.h"
#include "app/frmAddFunction.h"
#include "app/frmAddProfile.h"
#include "app/frmDetectBorder.h"
#include "app/frmMain.h"
#include "app/startUp.h"
#include "config/frmOption.h"
#include "editor/frmAddCommand.h"
#include "editor/frmAddVar.h"
#include "editor/frmCreateProfile.h"
#include "editor/frmPreview.h"
#include "editor/inputForm.h"
#include "vars/frmVarForm.h"

namespace brasquelin {

namespace {

wxTopLevelWindow* make(ProgramWindow window) {
    switch (window) {
        case ProgramWindow::main:
            return new FrmMain;
        case ProgramWindow::addProfile:
            return new FrmAddProfile;
        case ProgramWindow::addFunction:
            return new FrmAddFunction;
        case ProgramWindow::options:
            return new FrmOption;
        case ProgramWindow::about:
            return new FrmAbout;
        case ProgramWindow::createProfile:
            return new FrmCreateProfile;
        case ProgramWindow::addVar:
            return new FrmAddVar;
        case ProgramWindow::addCommand:
            return new FrmAddCommand;
        case ProgramWindow::preview:
            return new FrmPreview;
    }
    return nullptr;
}

}  // namespace

void ProgramWindows::start(const std::string& commandLine) {
    load(ProgramWindow::main);
    startUp(commandLine, detectBorders);
    showWindow(ProgramWindow::main, false);
    if (isLoaded(prompt_)) showModeless(*prompt_);
}

wxTopLevelWindow* ProgramWindows::loaded(ProgramWindow window) const {
    const auto& known = windows_[static_cast<std::size_t>(window)];
    return isLoaded(known) ? known.get() : nullptr;
}

wxTopLevelWindow& ProgramWindows::load(ProgramWindow window) {
    if (auto* known = loaded(window)) return *known;
    auto& slot = windows_[static_cast<std::size_t>(window)];
    slot = make(window);
    return *slot;
}

void ProgramWindows::showWindow(ProgramWindow window, bool modal) {
    auto& shown = load(window);
    auto* dialog = dynamic_cast<wxDialog*>(&shown);
    if (!modal || !dialog) return showModeless(shown);
    if (dialog->IsShown()) return dialog->Raise();
    showUntilClosed(*dialog);
}

void ProgramWindows::unloadWindow(ProgramWindow window) {
    if (auto* known = loaded(window)) unload(*known);
}

bool ProgramWindows::isVisible(ProgramWindow window) const {
    const auto* known = loaded(window);
    return known && known->IsShown();
}

ValueAnswer ProgramWindows::askValue(const ValueQuestion& question) {
    ValueAnswer answer;
    showUntilClosed(*new InputForm(question, answer));
    return answer;
}

void ProgramWindows::showPrompt(std::shared_ptr<PromptForm> form, bool modal) {
    closePrompt();
    auto* prompt = new FrmVarForm(std::move(form));
    prompt_ = prompt;
    if (modal) {
        showUntilClosed(*prompt);
    } else if (isVisible(ProgramWindow::main)) {
        showModeless(*prompt);
    }  // else the start shows it in front of the main window
}

void ProgramWindows::closePrompt() {
    if (isLoaded(prompt_)) unload(*prompt_);
}

void ProgramWindows::runBehindWaitWindow(std::function<void()> run) {
    closeWaitWindow();
    auto* wait = new FrmWait(std::move(run));
    wait_ = wait;
    showUntilClosed(*wait);
}

void ProgramWindows::showListProgress(std::shared_ptr<ListProgress> progress) {
    closeWaitWindow();
    wait_ = new FrmWait(std::move(progress));
    showModeless(*wait_);
}

void ProgramWindows::closeWaitWindow() {
    if (isLoaded(wait_)) unload(*wait_);
}

/// The waiting window of a list, where it is up, tells it and has a Cancel of its own.
void ProgramWindows::showRunning(const std::string& what, std::function<void()> cancel) {
    if (isLoaded(wait_)) return wait_->tellRunning(what);
    WxDesktop::showRunning(what, std::move(cancel));
}

void ProgramWindows::hideRunning() {
    if (isLoaded(wait_)) wait_->tellRunning({});
    WxDesktop::hideRunning();
}

}  // namespace brasquelin
