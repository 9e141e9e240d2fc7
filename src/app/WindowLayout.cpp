#include "app/WindowLayout.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Registry.h"
#include "platform/Settings.h"

#include <QStringList>

#include <algorithm>

namespace corvanta::inline app {
namespace {

// Values of the window's own beside those that every part of the program knows.
constexpr std::string_view kLeft = "Left";
constexpr std::string_view kTop = "Top";
constexpr std::string_view kColumns = "WindowColumns";
constexpr std::string_view kLeftRows = "WindowRows";
constexpr std::string_view kReminders = "WindowReminders";
constexpr std::string_view kRibbon = "WindowRibbon";

constexpr int kComfortableWidth = 1280;
constexpr int kComfortableHeight = 800;

QString ReadText(const Registry& registry, std::string_view name) {
  return ToQt(registry.Read(Hive::CurrentUser, kSettingsKey, name).value_or(std::string()));
}

std::string Name(Setting setting) {
  return std::string(InfoOf(setting).name);
}

QList<int> Numbers(const QString& text) {
  QList<int> numbers;
  for (const QString& part : text.split(u'|', Qt::SkipEmptyParts)) {
    const int number = part.toInt();
    if (number < 0) return {};
    numbers.append(number);
  }
  return numbers;
}

std::string Joined(const QList<int>& numbers) {
  QStringList parts;
  for (const int number : numbers) parts.append(QString::number(number));
  return FromQt(parts.join(u'|'));
}

}  // namespace

WindowLayout ReadLayout(Registry& registry) {
  const Settings settings(registry);
  WindowLayout layout;
  bool hasLeft = false;
  bool hasTop = false;
  const QPoint corner(ReadText(registry, kLeft).toInt(&hasLeft),
                      ReadText(registry, kTop).toInt(&hasTop));
  layout.hasPosition = hasLeft && hasTop;
  layout.place =
      QRect(corner, QSize(settings.Number(Setting::Width), settings.Number(Setting::Height)));
  layout.maximised = settings.IsOn(Setting::Maximised);
  layout.columns = Numbers(ReadText(registry, kColumns));
  layout.leftRows = Numbers(ReadText(registry, kLeftRows));
  layout.view = ToQt(settings.Text(Setting::View));
  layout.account = settings.Number(Setting::Account);
  layout.showsReminders = ReadText(registry, kReminders) == QStringLiteral("1");
  layout.showsRibbon = ReadText(registry, kRibbon) != QStringLiteral("0");
  // The columns are counted from 1 there, as 0 stands for none.
  layout.sort = {settings.Number(Setting::ColNo) - 1, settings.Number(Setting::ColSort) == 1};
  return layout;
}

void WriteLayout(Registry& registry, const WindowLayout& layout) {
  std::map<std::string, std::string> values = layout.views;
  values[Name(Setting::Height)] = std::to_string(layout.place.height());
  values[Name(Setting::Width)] = std::to_string(layout.place.width());
  values[Name(Setting::Maximised)] = std::to_string(layout.maximised ? 1 : 0);
  values[Name(Setting::View)] = FromQt(layout.view);
  values[Name(Setting::Account)] = std::to_string(layout.account);
  values[std::string(kReminders)] = layout.showsReminders ? "1" : "0";
  values[std::string(kRibbon)] = layout.showsRibbon ? "1" : "0";
  values[Name(Setting::ColNo)] = std::to_string(layout.sort.column + 1);
  values[Name(Setting::ColSort)] = std::to_string(layout.sort.isDescending ? 1 : 0);
  values[std::string(kLeft)] = std::to_string(layout.place.x());
  values[std::string(kTop)] = std::to_string(layout.place.y());
  values[std::string(kColumns)] = Joined(layout.columns);
  values[std::string(kLeftRows)] = Joined(layout.leftRows);
  registry.WriteAll(Hive::CurrentUser, kSettingsKey, values);
}

QString ReadWidths(const Registry& registry, std::string_view name) {
  return ReadText(registry, name);
}

QRect PlaceOnScreen(const WindowLayout& layout, const QRect& free) {
  const bool kept = layout.place.width() > 0 && layout.place.height() > 0;
  if (kept && layout.hasPosition && free.contains(layout.place)) return layout.place;
  // Leaves room for the frame, which is not known before the window is shown.
  const QRect room = free.adjusted(kRhythm, 4 * kRhythm, -kRhythm, -kRhythm);
  const QSize wanted = kept ? layout.place.size() : QSize(kComfortableWidth, kComfortableHeight);
  QRect place(QPoint(0, 0), wanted.boundedTo(room.size()));
  place.moveCenter(room.center());
  if (!kept || !layout.hasPosition) return place;
  const QPoint corner = layout.place.topLeft();
  place.moveTo(std::clamp(corner.x(), room.left(), room.right() + 1 - place.width()),
               std::clamp(corner.y(), room.top(), room.bottom() + 1 - place.height()));
  return place;
}

}  // namespace corvanta::inline app
