#pragma once

#include "invest/holdings/HoldingTrack.h"

#include <QWidget>

#include <vector>

class QLabel;

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline controls {
class Plot;
}

namespace corvanta::inline app {

// The prices of one holding with what was bought and sold marked in them, and beside it a worth
// over time.
class HoldingsCharts : public QWidget {
  Q_OBJECT

 public:
  // The locale outlives it.
  HoldingsCharts(const Locale& locale, QWidget* parent);

  void ShowPrices(const QString& name, const HoldingTrack& track, const Period& period);
  // Of the holdings together; their name stands above it.
  void ShowValue(const QString& name, HoldingTracks tracks, const Period& period);
  void Clear();

 protected:
  // Where there is no room for both, the prices have it.
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* Framed(QLabel& caption, Plot& plot);

  QLabel* lblPrices_;
  QLabel* lblValue_;
  Plot* prices_;
  Plot* value_;
  QWidget* valueFrame_;
};

}  // namespace corvanta::inline app
