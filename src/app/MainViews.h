#pragma once

#include <vector>

class QWidget;

namespace corvanta::inline app {

class MainView;
struct ViewPlace;

// Makes all views of the main window, as children of `parent`. The first one stands where no other
// can be shown.
[[nodiscard]] std::vector<MainView*> MakeMainViews(const ViewPlace& place, QWidget* parent);

}  // namespace corvanta::inline app
