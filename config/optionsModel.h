// What the options window edits; nothing is kept until it is saved.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace brasquelin {

class OptionsModel {
  public:
    enum Field { library, profile, plugin, basicFunction };

    /// Takes the settings as they stand in memory; of the profile path what the configuration gave, for the profile
    /// editor keeps a file there.
    OptionsModel();

    const std::string& path(Field field) const { return paths_[field]; }
    void setPath(Field field, std::string text) { paths_[field] = std::move(text); }

    /// The global variables as name=value.
    const std::vector<std::string>& variables() const { return variables_; }

    /// Asks for the field's directory (or, for basicFunction, its file); gives the field the short path of the choice.
    /// A cancelled dialog keeps its previous choice, which the field then receives.
    void browse(Field field);

    /// Asks for name and value; an empty answer adds nothing. True when an entry was added.
    bool addVariable();
    /// Nothing selected: nothing happens.
    void removeVariable(std::optional<std::size_t> selected);
    /// Asks for a new value; an empty answer keeps the old one.
    void modifyVariable(std::optional<std::size_t> selected);

    /// What saving does beside keeping the fields: which directory the next start empties, and a launcher that goes.
    static std::string savingNote();

    /// Writes the configuration file and reads it again. Raises the error of either.
    void save() const;

  private:
    std::array<std::string, 4> paths_;
    std::vector<std::string> variables_;
    std::string directoryChoice_;  // file name of the directory dialog, a placeholder behind the directory
    std::string fileChoice_;
};

}  // namespace brasquelin
