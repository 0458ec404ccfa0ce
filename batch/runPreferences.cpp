#include "batch/runPreferences.h"

#include "platform/preferences.h"

namespace brasquelin {

namespace {
constexpr const char* key = "CloseWhenWell";
}

bool closesWhenWell(const std::string& file) {
    return preference(file, key) == "1";
}

void setClosesWhenWell(const std::string& file, bool closes) {
    setPreference(file, key, closes ? "1" : "0");
}

}  // namespace brasquelin
