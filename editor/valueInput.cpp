#include "editor/valueInput.h"

#include "platform/desktop.h"

namespace brasquelin {

ValueInput valueInput;

std::string showValueInput(std::string_view prompt, std::string_view defaultText,
                           const std::vector<std::string>& references) {
    // Only the OK button changes the result: the close box cancels, too.
    valueInput = {std::string(prompt), std::string(defaultText), references, std::string(canceledAnswer)};
    desktop().showWindow("inputForm", true);
    return valueInput.result;
}

}  // namespace brasquelin
