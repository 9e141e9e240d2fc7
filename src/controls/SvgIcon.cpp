#include "controls/SvgIcon.h"

#include "controls/Style.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

// Resources of a static library are only linked in where something outside a namespace names them.
static void LoadResources() {
  Q_INIT_RESOURCE(corvanta);
}

namespace corvanta::inline controls {
namespace {

class SvgIconEngine : public QIconEngine {
 public:
  explicit SvgIconEngine(QByteArray source) : source_(std::move(source)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QByteArray drawing = source_;
    drawing.replace("currentColor", Colour(mode).name().toLatin1());
    QSvgRenderer renderer(drawing);
    renderer.render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return picture;
  }

  [[nodiscard]] QIconEngine* clone() const override { return new SvgIconEngine(*this); }
  bool isNull() override { return source_.isEmpty(); }

 private:
  static QColor Colour(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Selected) return palette.color(QPalette::HighlightedText);
    const QColor text = palette.color(QPalette::WindowText);
    if (mode == QIcon::Disabled) return Mixed(text, palette.color(QPalette::Window), 0.35);
    return Mixed(text, palette.color(QPalette::Window), 0.85);
  }

  QByteArray source_;
};

}  // namespace

void InitPictures() {
  LoadResources();
}

QIcon SvgIcon(const QString& name) {
  QFile file(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new SvgIconEngine(file.readAll()));
}

QIcon ProgramIcon() {
  QFile file(QStringLiteral(":/icons/corvanta.svg"));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new SvgIconEngine(file.readAll()));
}

}  // namespace corvanta::inline controls
