#pragma once

#include <QComboBox>

#include <string>

namespace corvanta::inline exchange {

// The encodings that a file's text may be in, to choose from.
class ucEncodingBox : public QComboBox {
  Q_OBJECT

 public:
  explicit ucEncodingBox(QWidget* parent);

  // Empty: as the file shows.
  [[nodiscard]] std::string Encoding() const;
  // Shows it, also one that is not in the list.
  void SetEncoding(const std::string& name);
};

}  // namespace corvanta::inline exchange
