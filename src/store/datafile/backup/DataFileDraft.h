#pragma once

#include "platform/OwnFiles.h"
#include "store/datafile/WriterLock.h"
#include "store/sql/Connection.h"
#include "store/sql/engine/CopyMark.h"

#include <memory>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// A copy of a data file that grows beside the place it is meant for and takes that place in one
// step when it is whole. Until then, and when the program is killed on the way, what stands at the
// place stays as it was. Operations throw StoreError and PlatformError.
class DataFileDraft {
 public:
  // The source may be open in this program: it is only read, through the library. Every page of it
  // is read before, so that damage is not copied. Refused with FileRefused where `place` is the
  // source itself or another file that the program lives on, and with Locked while another program
  // works on what stands at `place`. `mark` is what a backup tells of itself; empty for any other
  // copy.
  DataFileDraft(const DataSource& source, const std::string& place, const CopyMark& mark,
                const Writer& writer, Platform& platform);
  // Removes the copy where it was not installed.
  ~DataFileDraft();
  DataFileDraft(const DataFileDraft&) = delete;
  DataFileDraft& operator=(const DataFileDraft&) = delete;

  // Where the copy is, to be changed before it is installed.
  [[nodiscard]] const DataSource& Copy() const { return copy_; }
  // Puts the copy into its place. From then on it carries its mark, or none.
  void Install();

 private:
  void CopyAll(const DataSource& source, const CopyMark& mark);

  Platform& platform_;
  std::string place_;
  CopyMark mark_;
  KeptFiles kept_;
  std::unique_ptr<WriterLock> lock_;
  DataSource copy_;
  bool isInstalled_ = false;
};

}  // namespace corvanta::inline datafile
