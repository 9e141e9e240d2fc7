#pragma once

#include <QSplitter>

namespace corvanta::inline controls {

// A splitter whose handle is a hairline.
class HairSplitter : public QSplitter {
  Q_OBJECT

 public:
  HairSplitter(Qt::Orientation orientation, QWidget* parent);

 protected:
  QSplitterHandle* createHandle() override;
};

}  // namespace corvanta::inline controls
