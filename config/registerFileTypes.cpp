#include "config/registerFileTypes.h"

#include "platform/fileTypes.h"
#include "platform/paths.h"

namespace brasquelin {

void registerFileTypes() noexcept {
    registerFileType({.name = "Brasquelin.Script",
                      .description = "Brasquelin profile or library",
                      .extensions = {".bqs", ".bqp"},
                      .program = joinPath(exeDirectory(), programFileName),
                      .icon = joinPath(exeDirectory(), "brasquelin.svg")});
}

}  // namespace brasquelin
