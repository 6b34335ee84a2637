// A flag that is set for as long as a command runs.
#pragma once

namespace orvane {

// Sets the flag now and puts back what it was, whatever way the command ends.
class Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag), former_(flag) { flag_ = true; }
  ~Busy() { flag_ = former_; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  bool& flag_;
  bool former_;
};

}  // namespace orvane
