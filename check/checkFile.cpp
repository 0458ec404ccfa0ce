#include "check/checkFile.h"

#include "check/fileCheck.h"

namespace brasquelin {

Checker::Checker() : check_(std::make_unique<FileCheck>()) {}
Checker::~Checker() = default;

void Checker::check(const std::string& path) {
    check_->check(path);
}

void Checker::checkText(const std::string& path, std::vector<std::string> lines) {
    check_->checkText(path, std::move(lines));
}

std::vector<Finding> Checker::findings() const {
    return check_->findings();
}

}  // namespace brasquelin
