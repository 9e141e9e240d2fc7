#pragma once

#include <string>
#include <vector>

namespace corvanta::inline platform {

// Copies of what is otherwise kept encrypted, handed to other programs for as long as this one
// works with the data file: each in a folder of its own that nobody else may look into. They are
// overwritten and removed when this object goes; what a program that was killed has left is when
// the next one looks. Throws PlatformError.
class PrivateCopies {
 public:
  // `folder` is made where it is missing.
  explicit PrivateCopies(std::string folder) : folder_(std::move(folder)) {}
  ~PrivateCopies();
  PrivateCopies(const PrivateCopies&) = delete;
  PrivateCopies& operator=(const PrivateCopies&) = delete;

  // Writes the copy; returns its path, whose last part is `name` without what no name may hold. One
  // that is not to be changed is write-protected.
  std::string Put(const std::string& name, const std::string& bytes, bool isToBeChanged);
  // From now on the copy is somebody else's: nobody wipes it.
  void Release(const std::string& path);
  // All of them stay until the next program looks after them.
  void LeaveAll() { paths_.clear(); }
  // Wipes what programs that have ended have left. Returns the copies that were changed in the
  // meantime: they are kept, under another name, for the person to look after, and not returned
  // again.
  std::vector<std::string> Sweep();

 private:
  std::string folder_;
  std::vector<std::string> paths_;
  int made_ = 0;
};

}  // namespace corvanta::inline platform
