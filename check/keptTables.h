// The program's tables, kept for whoever rehearses in their place.
#pragma once

#include <string>

#include "config/configFile.h"
#include "engine/basicFunction.h"
#include "engine/engineTables.h"
#include "engine/runProfile.h"
#include "vars/variableTables.h"

namespace brasquelin {

/// Tables, settings and the taker of finished lines are as they were when it goes; meanwhile nobody takes lines.
class KeptTables {
  public:
    KeptTables();
    ~KeptTables();
    KeptTables(const KeptTables&) = delete;
    KeptTables& operator=(const KeptTables&) = delete;

  private:
    VariableTables variables_ = variableTables;
    EngineTables engine_ = engineTables;
    FunctionAction action_ = functionAction;
    Settings settings_ = settings;
    JobSink sink_ = setJobSink({});
};

/// The current directory as it was. One that is gone meanwhile is no fault of whoever comes back.
class KeptDirectory {
  public:
    KeptDirectory();
    ~KeptDirectory() { goBack(); }
    KeptDirectory(const KeptDirectory&) = delete;
    KeptDirectory& operator=(const KeptDirectory&) = delete;

    void goBack() const noexcept;

  private:
    std::string path_;
};

/// True while a file is being interpreted, such as during one of its plugins: its tables are in use then.
bool tablesInUse();

}  // namespace brasquelin
