#include "editor/keptProfiles.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "config/configFile.h"
#include "editor/editorActions.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

class KeptProfiles : public ProgramTest {
  protected:
    KeptProfiles() {
        writeBytes("a.bqp", "#Brasquelin Profile Caf\xE9\r\n[profile]\r\none\r\n[/profile]\r\n");
        enterEditor();
    }

    void openA() {
        answerFile(folder() + "/a.bqp");
        openProfile([] {});
    }
    /// Lines that no profile would give back: an empty one, a tag.
    static void edit() {
        editorState.edited.change([](ProfileDocument& document) {
            document.append(EditorList::commands, {"", "[/profile]", ".x=\xC3\xA9"});
            document.pluginNames.append("zip");
        });
    }
    std::string offered() const {
        const auto offer = keptOffer();
        return offer ? offer->text : "";
    }
    void restore() {
        ASSERT_TRUE(keptOffer());
        restoreProfile(keptOffer()->file, [] {});
    }
    /// The program has gone without a word, and the editor opens again.
    static void crash() {
        editorState.reset();
        settings.profilePath.clear();
        enterEditor();
    }

    const ProfileDocument& document = editorState.document;
    const std::string ofA = "What was changed in 'a.bqp' was not saved, but kept.";
};

TEST_F(KeptProfiles, WhatWasNotSavedComesBackAsItStood) {
    const std::vector<std::function<void()>> losses{startNewProfile, [] { leaveEditor(); }, crash, [this] { openA(); }};
    for (const auto& lose : losses) {
        openA();
        edit();
        const auto before = documentLines(document);
        keepUnsaved();
        EXPECT_EQ(offered(), "") << "it is in the editor still";
        lose();
        EXPECT_EQ(offered(), ofA) << "loss " << &lose - &losses[0];
        enterEditor();
        restore();
        EXPECT_EQ(documentLines(document), before);
        EXPECT_EQ(document.encoding, Encoding::ansi);
        EXPECT_EQ(document.pluginNames.row(0), "zip");
        EXPECT_EQ(editorTitle(), "*a.bqp - Profile Editor");
        EXPECT_EQ(offered(), "");
        crash();
        EXPECT_EQ(offered(), ofA) << "kept until it is saved";
        restore();
        saveProfile();
        EXPECT_EQ(editorTitle(), "a.bqp - Profile Editor");
        crash();
        EXPECT_EQ(offered(), "");
        writeBytes("a.bqp", "#Brasquelin Profile Caf\xE9\r\n[profile]\r\none\r\n[/profile]\r\n");
    }
    EXPECT_TRUE(messages().empty());
}

TEST_F(KeptProfiles, WhatIsSavedOrUndoneIsNotKept) {
    edit();
    keepUnsaved();
    EXPECT_TRUE(exists("profile.kept"));
    undoChange();
    keepUnsaved();
    EXPECT_FALSE(exists("profile.kept"));
    redoChange();
    keepUnsaved();
    answerFile(folder() + "/new.bqp");
    saveProfileAs();
    EXPECT_FALSE(exists("profile.kept"));
    startNewProfile();
    EXPECT_EQ(offered(), "");
}

TEST_F(KeptProfiles, SeveralAreOfferedOneByOneAndDamagedOnesAreTold) {
    openA();
    edit();
    startNewProfile();
    edit();
    startNewProfile();
    write("profile-9.kept", {"{\"path\": 1}"});
    std::string seen;
    for (int i = 0; i < 3; ++i) {
        const auto offer = keptOffer();
        ASSERT_TRUE(offer);
        seen += offer->text + "\n";
        if (offer->file.ends_with("-9.kept")) restoreProfile(offer->file, [] { FAIL(); });
        discardKept(offer->file);
    }
    for (const std::string& text : {ofA, std::string("The new profile 'newprofile' was not saved, but kept."),
                                    std::string("'profile-9.kept', which keeps what was not saved, cannot be read.")}) {
        EXPECT_NE(seen.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(offered(), "");
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_NE(messages()[0].find("profile-9.kept"), std::string::npos);
}

TEST_F(KeptProfiles, RestoringKeepsWhatItReplaces) {
    openA();
    edit();
    startNewProfile();
    edit();
    restore();
    EXPECT_EQ(offered(), "The new profile 'newprofile' was not saved, but kept.");
}

/// Byte for byte what other versions of the program have written, and read.
TEST_F(KeptProfiles, TheFileIsWrittenAsAnyJson) {
    KeptProfile kept;
    kept.path = "C:\\a\\b.bqp";
    kept.document.append(EditorList::commands,
                         {"plain", "", "\"", "\\", "\t", "\x7F", "\xC3\xA9", "bad \xC3", "\xED\xA0\x80"});
    for (const char* list : {"", ":Include a.bqs"}) {
        if (*list != '\0') kept.document.append(EditorList::include, {list});
        writeKept(folder() + "/profile.kept", kept);
        const std::string text = read("profile.kept");
        EXPECT_EQ(text, nlohmann::ordered_json::parse(text).dump(0) + "\n");
        EXPECT_NE(text.find("\"\",\n\"\\\"\",\n\"\\\\\",\n\"\\t\",\n\"\x7F\",\n\"\xC3\xA9\",\n\"bad \xEF\xBF\xBD\""),
                  std::string::npos);
        EXPECT_EQ(readKept(folder() + "/profile.kept").document.listInclude, kept.document.listInclude);
    }
}

}  // namespace
}  // namespace brasquelin
