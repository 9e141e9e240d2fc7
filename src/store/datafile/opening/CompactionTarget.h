#pragma once

#include "store/datafile/DataFileLocation.h"
#include "store/datafile/WriterLock.h"
#include "store/sql/engine/CopyMark.h"

#include <memory>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// What was found under a name that a copy or a new data file is to grow under.
enum class Leftover {
  None,
  Empty,   // no row in it: there is nothing to lose
  Own,     // this program's own, of the data file that was asked about
  Foreign  // anything else: somebody may want it
};

// Looks at what stands under the name. `password` is this installation's. Throws StoreError for
// what the disk refuses.
[[nodiscard]] Leftover Examine(const std::string& path, const std::string& password,
                               const CopyMark& mark, Platform& platform);

// The name that the copy of a data file grows under. All data files of a folder share it, so it is
// locked while this object stands.
class CompactionTarget {
 public:
  // Throws StoreError(Locked) while another data file of the folder has it, and StoreError(Sql) for
  // a data file that itself has this name.
  CompactionTarget(const DataFileLocation& location, const Writer& writer);

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] const CopyMark& Mark() const { return mark_; }
  // Makes the name free: removes what this program has left behind of this data file or of
  // another one that is there, and sets aside and tells what it does not know. Throws StoreError
  // and PlatformError.
  void Clear(const std::string& password, Platform& platform) const;

 private:
  std::string dataFile_;
  std::string path_;
  CopyMark mark_;
  std::unique_ptr<WriterLock> lock_;
};

}  // namespace corvanta::inline datafile
