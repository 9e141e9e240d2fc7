#include "store/datafile/opening/DraftFile.h"

#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "store/datafile/backup/BackupMark.h"
#include "store/datafile/opening/CompactionTarget.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/sql/StoreError.h"

#include <filesystem>
#include <vector>

namespace corvanta::inline datafile {
namespace {

namespace fs = std::filesystem;

// The name that a draft is meant for: "home.dat" of "home.dat.new2"; empty for any other name.
std::string PlaceOfDraft(const std::string& name) {
  const std::size_t end = name.find_last_not_of("0123456789");
  const std::string_view stem = std::string_view(name).substr(0, end + 1);
  const std::string ending = DataFileLocation{}.DraftPath().substr(1);
  if (stem.size() <= ending.size() || !stem.ends_with(ending)) return {};
  return std::string(stem.substr(0, stem.size() - ending.size()));
}

bool IsDraft(const std::string& path, const std::string& place, const std::string& password,
             Platform& platform) {
  // A journal says that something was being written there, and may have taken all of it back.
  const bool isBegun = HasJournal(path);
  const Leftover found = Examine(path, password, DraftMark(place), platform);
  if (found != Leftover::Foreign) return found == Leftover::Own || isBegun;
  const std::optional<CopyMark> mark = MarkIn(path, password);
  return mark.has_value() && IsUnfinished(*mark);
}

// Whoever makes a draft holds the lock of its name.
void RemoveUnlessMade(const std::string& path, const DataFileLocation& place,
                      const std::string& password, const Writer& writer, Platform& platform) {
  try {
    const auto lock = WriterLock::Acquire(place.Path(), writer.name);
    if (IsDraft(path, place.fileName, password, platform)) RemoveDataFile(path, platform.files);
  } catch (const StoreError&) {
    // It is being made, or cannot be looked at: it is left as it is.
  } catch (const PlatformError&) {
    // One too many is no harm.
  }
}

void RemoveOtherDrafts(const DataFileLocation& location, const std::string& password,
                       const Writer& writer, Platform& platform) {
  std::error_code error;
  std::vector<fs::path> drafts;
  for (fs::directory_iterator entry(location.folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string place = PlaceOfDraft(entry->path().filename().string());
    if (!place.empty() && place != location.fileName) drafts.push_back(entry->path());
  }
  for (const fs::path& draft : drafts) {
    const std::string place = PlaceOfDraft(draft.filename().string());
    RemoveUnlessMade(draft.string(), {location.folder, place}, password, writer, platform);
  }
}

}  // namespace

CopyMark DraftMark(const std::string& fileName) {
  return MarkOf("new " + fileName);
}

std::string FreeDraftPath(const DataFileLocation& location, const CopyMark& mark,
                          const std::string& password, const Writer& writer, Platform& platform) {
  RemoveOtherDrafts(location, password, writer, platform);
  const std::string first = location.DraftPath();
  std::string path = first;
  for (int number = 2;; ++number) {
    const bool isForeign = Examine(path, password, mark, platform) == Leftover::Foreign;
    if (!isForeign || IsMarkedAlike(path, password, mark)) break;
    path = first + std::to_string(number);
  }
  RemoveDataFile(path, platform.files);
  return path;
}

}  // namespace corvanta::inline datafile
