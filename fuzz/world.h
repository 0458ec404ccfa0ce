// A program directory for one input, and what targets do with it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "support/programWorld.h"

namespace brasquelin {

class World : public ProgramWorld {
  public:
    World();

    std::string write(std::string_view name, std::string_view bytes) const { return directory.write(name, bytes); }
    std::string read(std::string_view name) const { return directory.read(name); }
    std::string operator/(std::string_view name) const { return directory / name; }
};

/// Does something that may be refused: with a run-time error, a parse error, or the end of the program. True when it
/// was not.
bool allowed(const std::function<void()>& step);

/// The pieces of an input, for targets that want several texts: separated by a line "====".
std::vector<std::string> pieces(std::string_view input, std::size_t count);

/// Ends the process when a promise is broken.
void require(bool promise, std::string_view what);

}  // namespace brasquelin
