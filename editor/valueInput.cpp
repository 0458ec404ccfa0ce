#include "editor/valueInput.h"

#include "platform/desktop.h"

namespace brasquelin {

std::string showValueInput(std::string_view prompt, std::string_view defaultText,
                           const std::vector<std::string>& references) {
    const auto answer = desktop().askValue({std::string(prompt), std::string(defaultText), references});
    return answer.value_or(std::string(canceledAnswer));
}

}  // namespace brasquelin
