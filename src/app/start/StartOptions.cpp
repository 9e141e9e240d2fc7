#include "app/start/StartOptions.h"

#include "controls/QtText.h"
#include "exchange/import/ImportKind.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace corvanta::inline app {

StartOptions ReadStartOptions(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Corvanta Personal Finance"));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                QStringLiteral("Shows this help."));
  const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   QStringLiteral("Shows the version."));
  const QCommandLineOption profile(QStringLiteral("profile"),
                                   QStringLiteral("The folder of the settings."),
                                   QStringLiteral("folder"));
  const QCommandLineOption data(QStringLiteral("data"),
                                QStringLiteral("The folder or file of the data in this run."),
                                QStringLiteral("path"));
  const QCommandLineOption today(QStringLiteral("today"),
                                 QStringLiteral("The day that stands for today, YYYY-MM-DD."),
                                 QStringLiteral("date"));
  parser.addOptions({help, version, profile, data, today});
  parser.addPositionalArgument(QStringLiteral("file"),
                               QStringLiteral("The data file to open, or a bank's file (QIF, OFX, "
                                              "CSV) to import."),
                               QStringLiteral("[file]"));
  StartOptions options;
  if (!parser.parse(arguments)) {
    options.error = parser.errorText();
    return options;
  }
  if (parser.isSet(help)) options.answer = parser.helpText();
  if (parser.isSet(version)) {
    options.answer =
        QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u'\n';
  }
  options.profileFolder = FromQt(parser.value(profile));
  options.dataPath = FromQt(parser.value(data));
  const QStringList files = parser.positionalArguments();
  const bool isImport = files.size() == 1 && HasImportEnding(FromQt(files.constFirst()));
  if (isImport) {
    options.importPath = FromQt(QFileInfo(files.constFirst()).absoluteFilePath());
  } else if (files.size() > 1 || (!files.isEmpty() && parser.isSet(data))) {
    options.error = QStringLiteral("Only one data file can be opened.");
  } else if (!files.isEmpty()) {
    options.dataPath = FromQt(files.constFirst());
  }
  if (parser.isSet(today)) {
    options.today = Date::FromIso(FromQt(parser.value(today)));
    if (!options.today) {
      options.error = QStringLiteral("--today takes a date such as 2026-11-21.");
    }
  }
  return options;
}

QStringList WithoutWindowOptions(const QStringList& arguments) {
  static constexpr std::array kWithValue{
      "platform",        "platformpluginpath", "platformtheme", "plugin", "style",   "stylesheet",
      "qwindowicon",     "qwindowtitle",       "icon",          "title",  "display", "geometry",
      "qwindowgeometry", "fontengine",         "session",       "name",   "dialogs"};
  static constexpr std::array kAlone{"reverse", "widgetcount", "nograb", "dograb", "sync"};
  QStringList own;
  for (qsizetype index = 0; index < arguments.size(); ++index) {
    const QString& argument = arguments[index];
    const QString name = argument.mid(argument.startsWith(QStringLiteral("--")) ? 2 : 1);
    const auto is = [&name](const char* known) { return name == QLatin1String(known); };
    const bool isOption = index > 0 && argument.startsWith(u'-');
    if (isOption && std::any_of(kAlone.begin(), kAlone.end(), is)) continue;
    if (isOption && std::any_of(kWithValue.begin(), kWithValue.end(), is)) {
      ++index;
      continue;
    }
    own.append(argument);
  }
  return own;
}

}  // namespace corvanta::inline app
