// The document in the editor together with the steps that made it. Whatever changes it goes through here, so that it
// can be undone.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "editor/profileDocument.h"
#include "text/lineChange.h"
#include "text/undoHistory.h"

namespace brasquelin {

class EditedDocument {
  public:
    using Change = std::function<void(ProfileDocument&)>;

    const ProfileDocument& document() const { return document_; }

    /// One step. When `change` raises, the document is as it was.
    void change(const Change& change);
    /// As it is typed: one step until something else is changed or the document is saved.
    void rename(std::string_view name);
    /// Another document takes the place of this one: nothing can be undone then, and nothing is unsaved. When `change`
    /// raises, everything is as it was.
    void replace(const Change& change);

    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }
    /// Both give the first line that has changed; in no list when only the name has. Nothing to be done changes
    /// nothing.
    DocumentPlace undo();
    DocumentPlace redo();

    /// Whether the file holds the document as it stands, also when it was changed and changed back.
    bool isSaved() const { return !neverSaved_ && history_.isSaved(); }
    void markSaved();
    /// What stands here is in no file, whatever is undone.
    void markUnsaved() { neverSaved_ = true; }

  private:
    /// Plugin names go with the include list, in which they have no lines of their own.
    struct Step {
        std::array<LineChange, 3> lists;  // in the order of EditorList
        LineChange pluginNames;
        std::string nameBefore;
        std::string nameAfter;
        bool ofNameOnly = false;

        std::size_t bytes() const;
    };

    static Step stepBetween(const ProfileDocument& before, const ProfileDocument& after);
    static bool isEmpty(const Step& step);
    DocumentPlace apply(const Step& step, bool forward);

    ProfileDocument document_;
    UndoHistory<Step> history_;
    bool neverSaved_ = false;
};

}  // namespace brasquelin
