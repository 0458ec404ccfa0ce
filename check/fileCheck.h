// One check at work: an onlooker that lets files be read and interpreted, and notes what it is told.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/findings.h"
#include "check/keptTables.h"
#include "platform/console/consoleDesktop.h"
#include "platform/onlooker.h"
#include "text/textHash.h"
#include "vars/variableTables.h"

namespace brasquelin {

struct TextFile;

/// What a file is checked as: an ".ini" file is told by its sections, a file of any other name is a list.
enum class CheckedKind { profile, library, configuration, function, functionList, list };

/// The line, empty where there is none.
std::string lineAt(const SourceLine& place);

/// Reads files in the interpreter's own way and notes what goes wrong.
class FileCheck : public Onlooker, public ConsoleDesktop {
  public:
    FileCheck();
    ~FileCheck() override;
    FileCheck(const FileCheck&) = delete;
    FileCheck& operator=(const FileCheck&) = delete;

    void check(const std::string& path);
    void checkText(const std::string& path, std::vector<std::string> lines);
    std::vector<Finding> findings() const;

    // What a run tells and asks
    bool takes(const RunTimeError& error, const SourceLine& place) override;
    bool takes(std::string_view message, const Fault& fault) override;
    bool goesOn() override { return !stopped_; }
    bool mayRunProgram(std::string_view path) override;
    bool mayWrite() override { return false; }
    bool mayTurn() override { return ++turns_ < mostTurns_ && expansions_ < mostExpansions_; }
    bool mayCall() override { return ++calls_ < mostCalls_ && expansions_ < mostExpansions_; }
    void ignores(const SourceLine& place) override;
    void expands(const Expansion& expansion) override;
    void gives(std::string_view variable, const SourceLine& place, int callLine) override;
    void startsLoop(const LoopNumbers& numbers, const SourceLine& place) override;
    void leavesOpen(const SourceLine& loop) override;
    void registers(int level, const SourceLine& place) override;
    void follows(const std::string& path) override;
    bool isUnknown(std::string_view number, const SourceLine& /*place*/) override { return concernsUnknown(number); }

    bool hasWindows() const override { return true; }
    void showPrompt(std::shared_ptr<PromptForm> form, bool modal) override;
    std::optional<std::string> askText(std::string_view prompt, std::string_view title,
                                       std::string_view defaultText) override;
    std::string askFile(const FileDialogRequest& /*request*/) override { return {}; }

  protected:
    void presentMessage(std::string_view /*text*/, std::string_view /*title*/, Icon /*icon*/) override {}

  private:
    int mostTurns_ = 10'000;  // of all loops of a file
    int mostCalls_ = 10'000;  // of profiles by a file
    int mostExpansions_ = 1'000'000;

    void checkWithFollowed(const std::string& path);
    bool checkOnce(const std::string& path);
    void forgetPending();
    void checkAs(CheckedKind kind, const std::string& path);
    void begin(const std::string& path);
    void checkConfiguration(const std::string& path);
    void checkFunctionList(const std::string& path);
    void checkList(const std::string& path);
    void checkListLine(const SourceLine& place, std::string_view line);
    void warnAboutPresets(std::size_t given, std::size_t rows);
    void openAsUser(const std::string& path, std::vector<std::string> presets, bool replaying);

    template <typename Step>
    void guarded(const SourceLine& place, Step step);
    bool concernsUnknown(std::string_view text) const;
    void add(const SourceLine& place, std::string_view code, std::string text, int column = 1);
    std::string shownPath(const std::string& normal);

    bool isInHand(std::string_view path) const;
    void noteReferences(std::string_view text);
    bool isReferredTo(const std::string& name) const;
    void warnAboutSections(CheckedKind kind, const std::string& path);
    void warnAboutReferences(const Expansion& expansion);
    void warnAboutCodePage(const Expansion& expansion);
    void hintAtPaths(const Expansion& expansion);
    void warnAboutUnused();

    KeptTables kept_;
    LookingOn lookingOn_{*this};
    Desktop& desktopBefore_;
    KeptDirectory directory_;
    std::vector<Finding> findings_;
    std::set<std::string> known_;               // places and codes of the findings
    std::set<std::string> checked_;             // normal paths
    std::map<std::string, std::string> given_;  // normal paths to those of the caller
    std::map<std::string, std::size_t> order_;  // of shown paths
    std::vector<std::string> pending_;          // includes and called functions, each once
    std::unordered_set<std::string, TextHash, std::equal_to<>> pendingNames_;  // the same, as they were named
    std::set<std::string, std::less<>> brokenIncludes_;  // profiles of which an include could not be read
    SourceLine listLine_;                                // while a line of a list is replayed
    bool skippedProgram_ = false;                        // by the file in hand
    bool stopped_ = false;                               // the file in hand cannot go on
    std::string inHand_;                                 // the file in hand
    Table<VariableDeclaration> declared_;                // its variables, once it has been run
    std::vector<bool> expandedLines_;                    // by their numbers
    std::unordered_set<std::string, TextHash, std::equal_to<>>
        references_;                     // what stands between the dollar signs of the expanded texts
    std::vector<std::string> oddTexts_;  // those that names with dollar signs may stand in
    int givenInCall_ = 0;                // the call whose attributes are read
    std::unordered_map<std::string, int, TextHash, std::equal_to<>> givenVariables_;  // their lines
    int turns_ = 0;
    int calls_ = 0;
    int expansions_ = 0;
};

}  // namespace brasquelin
