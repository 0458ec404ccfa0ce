// A flag that is true for as long as something is done.
#pragma once

namespace brasquelin {

class Raised {
  public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& flag_;
};

}  // namespace brasquelin
