// The program's tables, kept for whoever rehearses in their place.
#pragma once

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

}  // namespace brasquelin
