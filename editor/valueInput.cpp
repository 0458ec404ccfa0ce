#include "editor/valueInput.h"

#include <utility>

#include "platform/desktop.h"

namespace brasquelin {

namespace {

std::string textOf(ValueAnswer answer) {
    return answer.end == ValueEnd::given ? std::move(answer.text) : std::string(canceledAnswer);
}

}  // namespace

std::string showValueInput(std::string_view prompt, std::string_view defaultText,
                           const std::vector<std::string>& references) {
    return textOf(desktop().askValue({std::string(prompt), std::string(defaultText), references}));
}

ValueChain::ValueChain(std::size_t count, std::vector<std::string> references, std::size_t asked)
    : references_(std::move(references)), count_(count), asked_(asked) {}

std::string ValueChain::ask(std::string_view prompt, std::string_view defaultText, std::string_view about) {
    if (stopped_) return {};
    ValueAnswer answer = desktop().askValue(
        {std::string(prompt), std::string(defaultText), references_, std::string(about), ++asked_, count_});
    stopped_ = answer.end == ValueEnd::stopped;
    return stopped_ ? std::string() : textOf(std::move(answer));
}

}  // namespace brasquelin
