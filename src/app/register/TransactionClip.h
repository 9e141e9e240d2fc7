// Transactions or schedules on the clipboard: their keys for this program, their texts for every
// other one.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

class QMimeData;

namespace corvanta::inline app {

enum class ClipKind { Transactions, Schedules };

// `dataFile` is the file that the keys are of. The clipboard takes the result over.
[[nodiscard]] QMimeData* ToClip(ClipKind kind, const QString& dataFile,
                                const std::vector<std::int64_t>& keys, const QString& text);
// The keys of that kind and file on the clipboard; empty when it holds none.
[[nodiscard]] std::vector<std::int64_t> FromClip(ClipKind kind, const QString& dataFile);

}  // namespace corvanta::inline app
