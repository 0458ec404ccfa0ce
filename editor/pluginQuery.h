// Running the plugins of the document in the editor, to learn the variables that they offer.
#pragma once

#include <string>

namespace brasquelin {

/// All of them. The status line tells which one runs. What fails is told in one message behind the last; when the user
/// ends one of them, the rest is left out.
void queryPlugins();

/// That plugins were added whose variables are not known yet; empty when there are none.
std::string newPluginsNote();
/// Runs those alone.
void queryNewPlugins();

}  // namespace brasquelin
