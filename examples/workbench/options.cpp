// SPDX-License-Identifier: MIT
#include "options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

namespace Workbench {
namespace {

struct OptionText {
  Q_DECLARE_TR_FUNCTIONS(Workbench::Options)
};

// "1280x800", sides of 1 to 16384; an empty size otherwise.
QSize parseSize(const QString& text) {
  static const QRegularExpression form(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
  constexpr int Most = 16384;
  const QRegularExpressionMatch match = form.match(text);
  const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
  return size.width() <= Most && size.height() <= Most ? size : QSize();
}

} // namespace

Options Options::parse(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      OptionText::tr("Shows triangle meshes (OBJ, PLY, STL, OFF, glTF and GLB) and photographs."));
  const QCommandLineOption screenshot(
      QStringLiteral("screenshot"),
      OptionText::tr(
          "Open the files, save what the window shows as <image>, and end. The exit status is 1 when "
          "a file cannot be opened or the image cannot be written."),
      OptionText::tr("image"));
  const QCommandLineOption size(QStringLiteral("size"),
                                OptionText::tr("Size of the window, such as 1280x800."),
                                OptionText::tr("width>x<height"));
  const QCommandLineOption trace(
      QStringLiteral("trace"),
      OptionText::tr("Save when commands began and ended as <file>, in the Chrome trace-event format."),
      OptionText::tr("file"));
  const QCommandLineOption record(
      QStringLiteral("record"),
      OptionText::tr("Write down what is done, as the session <file>, which people can read."),
      OptionText::tr("file"));
  const QCommandLineOption replay(
      QStringLiteral("replay"),
      OptionText::tr(
          "Do the session <file> again, and end. The exit status is 1 when a step does not come out as "
          "it was recorded."),
      OptionText::tr("file"));
  // For main(), which has to know before the application object is there.
  const QCommandLineOption webPanels(
      QStringLiteral("web-panels"),
      OptionText::tr(
          "Show information in a web view where QtWebEngine is installed. The start takes longer."));
  parser.addOptions({screenshot, size, trace, record, replay, webPanels});
  const QCommandLineOption help = parser.addHelpOption();
  const QCommandLineOption version = parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("files"),
                               OptionText::tr("The meshes and photographs to open; the last mesh is shown."),
                               QStringLiteral("[files…]"));

  Options options;
  if (!parser.parse(arguments)) {
    options.answer = Answer{parser.errorText() + QLatin1Char('\n'), 1};
  } else if (parser.isSet(help)) {
    options.answer = Answer{parser.helpText(), 0};
  } else if (parser.isSet(version)) {
    options.answer = Answer{QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                          QCoreApplication::applicationVersion()),
                            0};
  } else if (parser.isSet(screenshot) && parser.value(screenshot).isEmpty()) {
    options.answer = Answer{OptionText::tr("--screenshot needs the name of an image file.\n"), 1};
  } else if ((parser.isSet(record) && parser.value(record).isEmpty()) ||
             (parser.isSet(replay) && parser.value(replay).isEmpty())) {
    options.answer = Answer{OptionText::tr("--record and --replay need the name of a session file.\n"), 1};
  } else if (parser.isSet(screenshot) && (parser.isSet(record) || parser.isSet(replay))) {
    options.answer = Answer{OptionText::tr("--screenshot goes with neither --record nor --replay.\n"), 1};
  } else if (parser.isSet(size)) {
    options.size = parseSize(parser.value(size));
    if (options.size.isEmpty())
      options.answer =
          Answer{OptionText::tr("“%1” is not a size such as 1280x800.\n").arg(parser.value(size)), 1};
  }
  options.files = parser.positionalArguments();
  options.screenshot = parser.value(screenshot);
  options.record = parser.value(record);
  options.replay = parser.value(replay);
  options.trace = parser.value(trace);
  return options;
}

} // namespace Workbench
