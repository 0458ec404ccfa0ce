// What the toolkit stands on has more than its own interface tells. The headers come with none of the program's
// packages.
#pragma once

#ifdef __WXGTK__

#include <dlfcn.h>

namespace brasquelin {

/// A function of GTK, or of a library below it, which the toolkit has loaded; null when none has this name.
template <typename Function>
Function* gtkFunction(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace brasquelin

#endif
