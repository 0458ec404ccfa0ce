// The files that the pickers offer.
#pragma once

#include <string>
#include <vector>

namespace brasquelin {

/// Entry n of both lists belongs to the same file.
struct PickerList {
    std::vector<std::string> titles;
    std::vector<std::string> paths;
};

/// The ".bqp" files of the configured folder by the title in their first line. A file that cannot be read has an empty
/// one.
PickerList listProfiles();
/// The ".bqs" files of the library folder.
PickerList listLibraries();

}  // namespace brasquelin
