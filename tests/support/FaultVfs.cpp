#include "support/FaultVfs.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <utility>

namespace corvanta {
namespace {

struct Layer {
  sqlite3_vfs* below = nullptr;
  FaultPlan* plan = nullptr;
};

// The library allocates this and the file of the layer below behind it.
struct FaultFile {
  sqlite3_file base;
  FaultPlan* plan;
  std::string* path;
  sqlite3_file* below;
};

Layer& LayerOf(sqlite3_vfs* vfs) {
  return *static_cast<Layer*>(vfs->pAppData);
}
FaultFile& Of(sqlite3_file* file) {
  return *reinterpret_cast<FaultFile*>(file);
}

int Failure(const FaultPlan& plan, int ioError) {
  return plan.Kind() == Fault::DiskFull ? SQLITE_FULL : ioError;
}

int Close(sqlite3_file* file) {
  FaultFile& self = Of(file);
  const int result = self.below->pMethods->xClose(self.below);
  delete self.path;
  self.path = nullptr;
  return result;
}

int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset) {
  sqlite3_file* below = Of(file).below;
  return below->pMethods->xRead(below, bytes, count, offset);
}

// Keeps what is about to be overwritten, in case the lights go out.
void Remember(FaultFile& self, sqlite3_int64 offset, sqlite3_int64 count) {
  if (self.plan->Kind() != Fault::DropUnsynced) return;
  sqlite3_int64 size = 0;
  self.below->pMethods->xFileSize(self.below, &size);
  std::string old;
  if (offset < size) {
    old.resize(static_cast<std::size_t>(std::min(count, size - offset)));
    self.below->pMethods->xRead(self.below, old.data(), static_cast<int>(old.size()), offset);
  }
  self.plan->Overwritten(*self.path, offset, std::move(old), size);
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  FaultFile& self = Of(file);
  if (self.plan->TearsNext()) {
    self.below->pMethods->xWrite(self.below, bytes, count / 2, offset);
    FaultPlan::End();
  }
  if (self.plan->Count(true)) return Failure(*self.plan, SQLITE_IOERR_WRITE);
  Remember(self, offset, count);
  return self.below->pMethods->xWrite(self.below, bytes, count, offset);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  FaultFile& self = Of(file);
  if (self.plan->Count(false)) return SQLITE_IOERR_TRUNCATE;
  sqlite3_int64 oldSize = 0;
  self.below->pMethods->xFileSize(self.below, &oldSize);
  if (size < oldSize) Remember(self, size, oldSize - size);
  return self.below->pMethods->xTruncate(self.below, size);
}

int Sync(sqlite3_file* file, int flags) {
  FaultFile& self = Of(file);
  if (self.plan->Count(false)) return SQLITE_IOERR_FSYNC;
  const int result = self.below->pMethods->xSync(self.below, flags);
  if (result == SQLITE_OK) self.plan->Synced(*self.path);
  return result;
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
  sqlite3_file* below = Of(file).below;
  return below->pMethods->xFileSize(below, size);
}
int Lock(sqlite3_file* file, int level) {
  sqlite3_file* below = Of(file).below;
  return below->pMethods->xLock(below, level);
}
int Unlock(sqlite3_file* file, int level) {
  sqlite3_file* below = Of(file).below;
  return below->pMethods->xUnlock(below, level);
}
int CheckReservedLock(sqlite3_file* file, int* result) {
  sqlite3_file* below = Of(file).below;
  return below->pMethods->xCheckReservedLock(below, result);
}
int FileControl(sqlite3_file* file, int operation, void* argument) {
  sqlite3_file* below = Of(file).below;
  return below->pMethods->xFileControl(below, operation, argument);
}
int SectorSize(sqlite3_file* file) {
  sqlite3_file* below = Of(file).below;
  return below->pMethods->xSectorSize(below);
}
// No promises: the library must take every precaution.
int DeviceCharacteristics(sqlite3_file*) {
  return 0;
}

const sqlite3_io_methods* Methods() {
  static const sqlite3_io_methods methods = [] {
    sqlite3_io_methods made{};
    made.iVersion = 1;
    made.xClose = Close;
    made.xRead = Read;
    made.xWrite = Write;
    made.xTruncate = Truncate;
    made.xSync = Sync;
    made.xFileSize = FileSize;
    made.xLock = Lock;
    made.xUnlock = Unlock;
    made.xCheckReservedLock = CheckReservedLock;
    made.xFileControl = FileControl;
    made.xSectorSize = SectorSize;
    made.xDeviceCharacteristics = DeviceCharacteristics;
    return made;
  }();
  return &methods;
}

int Open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  const Layer& layer = LayerOf(vfs);
  FaultFile& self = Of(file);
  self.base.pMethods = nullptr;
  self.plan = layer.plan;
  self.below = reinterpret_cast<sqlite3_file*>(reinterpret_cast<char*>(file) + sizeof(FaultFile));
  int exists = 1;
  const bool creates = name != nullptr && (flags & SQLITE_OPEN_CREATE) != 0;
  if (creates) layer.below->xAccess(layer.below, name, SQLITE_ACCESS_EXISTS, &exists);
  if (exists == 0 && layer.plan->Count(true)) return Failure(*layer.plan, SQLITE_CANTOPEN);
  const int result = layer.below->xOpen(layer.below, name, self.below, flags, outFlags);
  if (result != SQLITE_OK) return result;
  self.path = new std::string(name == nullptr ? "" : name);
  if (exists == 0) layer.plan->Created(*self.path);
  self.base.pMethods = Methods();
  return SQLITE_OK;
}

int Delete(sqlite3_vfs* vfs, const char* name, int syncFolder) {
  const Layer& layer = LayerOf(vfs);
  if (layer.plan->Count(false)) return SQLITE_IOERR_DELETE;
  std::ostringstream bytes;
  if (layer.plan->Kind() == Fault::DropUnsynced) {
    bytes << std::ifstream(name, std::ios::binary).rdbuf();
  }
  const int result = layer.below->xDelete(layer.below, name, syncFolder);
  if (result == SQLITE_OK && syncFolder == 0) layer.plan->Deleted(name, bytes.str());
  if (result == SQLITE_OK && syncFolder != 0) {
    layer.plan->Synced(name);
    layer.plan->FolderSynced(name);
  }
  return result;
}

int Access(sqlite3_vfs* vfs, const char* name, int flags, int* result) {
  sqlite3_vfs* below = LayerOf(vfs).below;
  return below->xAccess(below, name, flags, result);
}
int FullPathname(sqlite3_vfs* vfs, const char* name, int size, char* path) {
  sqlite3_vfs* below = LayerOf(vfs).below;
  return below->xFullPathname(below, name, size, path);
}
int Randomness(sqlite3_vfs* vfs, int count, char* bytes) {
  sqlite3_vfs* below = LayerOf(vfs).below;
  return below->xRandomness(below, count, bytes);
}
int Sleep(sqlite3_vfs* vfs, int microseconds) {
  sqlite3_vfs* below = LayerOf(vfs).below;
  return below->xSleep(below, microseconds);
}
int CurrentTime(sqlite3_vfs* vfs, double* time) {
  sqlite3_vfs* below = LayerOf(vfs).below;
  return below->xCurrentTime(below, time);
}
int GetLastError(sqlite3_vfs* vfs, int size, char* text) {
  sqlite3_vfs* below = LayerOf(vfs).below;
  return below->xGetLastError(below, size, text);
}

}  // namespace

class FaultVfs::Impl {
 public:
  Impl(std::string name, FaultPlan& plan, bool isDefault)
      : name_(std::move(name)), layer_{sqlite3_vfs_find(nullptr), &plan} {
    vfs_.iVersion = 1;
    vfs_.szOsFile = static_cast<int>(sizeof(FaultFile)) + layer_.below->szOsFile;
    vfs_.mxPathname = layer_.below->mxPathname;
    vfs_.zName = name_.c_str();
    vfs_.pAppData = &layer_;
    vfs_.xOpen = Open;
    vfs_.xDelete = Delete;
    vfs_.xAccess = Access;
    vfs_.xFullPathname = FullPathname;
    vfs_.xRandomness = Randomness;
    vfs_.xSleep = Sleep;
    vfs_.xCurrentTime = CurrentTime;
    vfs_.xGetLastError = GetLastError;
    sqlite3_vfs_register(&vfs_, isDefault ? 1 : 0);
  }
  ~Impl() {
    sqlite3_vfs_unregister(&vfs_);
    sqlite3_vfs_register(layer_.below, 1);
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

 private:
  std::string name_;
  Layer layer_;
  sqlite3_vfs vfs_{};
};

FaultVfs::FaultVfs(std::string name, FaultPlan& plan, bool isDefault)
    : impl_(std::make_unique<Impl>(std::move(name), plan, isDefault)) {}

FaultVfs::~FaultVfs() = default;

}  // namespace corvanta
