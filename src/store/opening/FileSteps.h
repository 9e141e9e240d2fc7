// Steps on whole data files that nobody has open.
#pragma once

#include <string>

namespace corvanta {

class Files;

// Removes a file of this kind and the journal beside it; one that is not there is no error.
// Throws PlatformError.
void RemoveDataFile(const std::string& path, Files& files);
// The same while another failure is on its way: it is the one to be told.
void RemoveDataFileQuietly(const std::string& path, Files& files) noexcept;

// Gives a whole file the name of the data file, in one step over the old one. Throws
// StoreError(Io) while a journal with unfinished changes of the old one lies beside it (it would
// be played into the new one), and PlatformError.
void InstallDataFile(const std::string& from, const std::string& to, Files& files);

// Moves a file out of the way, to its name with this ending and, where that is taken, a number
// behind it. Returns the new path. Throws PlatformError.
std::string SetAside(const std::string& path, const std::string& ending, Files& files);

}  // namespace corvanta
