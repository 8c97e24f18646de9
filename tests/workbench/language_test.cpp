// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <workbench/commands/history_command.h>
#include <workbench/commands/language_command.h>
#include <workbench/language.h>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;
using Vela::Test::settle;

namespace {

/// The sources in a file of translations that read differently in the other language.
QSet<QString> englishTexts(const QString& file) {
  QSet<QString> texts;
  QFile device(file);
  if (!device.open(QIODevice::ReadOnly))
    qFatal("cannot read %s", qPrintable(file));
  QXmlStreamReader xml(&device);
  for (QString source; !xml.atEnd(); xml.readNext()) {
    if (xml.isStartElement() && xml.name() == QLatin1String("source"))
      source = xml.readElementText();
    if (!xml.isStartElement() || xml.name() != QLatin1String("translation") || source.contains('%'))
      continue;
    if (xml.readElementText(QXmlStreamReader::IncludeChildElements) != source) // plurals
      texts.insert(source);
  }
  return texts;
}

QStringList textsOf(const QWidget& widget) {
  QStringList texts;
  for (const char* const name :
       {"accessibleName", "toolTip", "windowTitle", "text", "title", "placeholderText"})
    texts += widget.property(name).toString();
  for (const QAction* const action : widget.actions())
    texts += {action->text(), action->toolTip(), action->statusTip()};
  return texts;
}

/// What stands anywhere in the program, seen or not, in a language that it does not speak any more.
QStringList leftIn(const QSet<QString>& language) {
  QStringList left;
  for (const QWidget* const widget : QApplication::allWidgets()) {
    for (const QString& text : textsOf(*widget)) {
      if (language.contains(text))
        left += QLatin1String(widget->metaObject()->className()) + QStringLiteral(": ") + text;
    }
  }
  left.removeDuplicates();
  return left;
}

} // namespace

/// The workbench in two languages.
class WorkbenchLanguageTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void initTestCase() {
    for (const char* const file :
         {"/translations/vlk_ui_base_de.ts", "/examples/workbench/translations/workbench_de.ts"})
      m_english += englishTexts(QLatin1String(VLK_SOURCES) + QLatin1String(file));
    QVERIFY(m_english.contains(QStringLiteral("&File")) && m_english.contains(QStringLiteral("Apply")));
    if (!QFile::exists(QStringLiteral(":/workbench/translations/workbench_de.qm")))
      QSKIP("built without lrelease");
  }

  void nothingIsLeftInTheLanguageBefore() {
    WorkbenchFixture bench({900, 700});
    bench.show(Test::blob(20));
    const auto speak = [&bench](QLocale::Language language) {
      bench.controller().findCommand(LanguageCommand::idOf(language))->trigger();
      settle();
    };
    bench.press(Qt::Key_A, Qt::ControlModifier); // the bar of the selection
    bench.press(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    bench.press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    bench.press(Qt::Key_2, Qt::AltModifier);
    bench.press(Qt::Key_1, Qt::AltModifier);
    settle();
    speak(QLocale::German);
    const QStringList left = leftIn(m_english);
    QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char('\n'))));
    // What has been done is told in the new language too, and what was selected stays so.
    QCOMPARE(bench.view().document().selection().count(), bench.triangles());
    QCOMPARE(bench.command<UndoCommand>()->text(), QStringLiteral("&Rückgängig: Alles auswählen"));
    bench.press(Qt::Key_M, Qt::ControlModifier);
    QTRY_COMPARE(bench.command<UndoCommand>()->text(), QStringLiteral("&Rückgängig: Netz glätten"));
    Language::restore(); // as at the next start
    QCOMPARE(Language::current(), QLocale::German);
    speak(QLocale::English);
    QCOMPARE(bench.command<UndoCommand>()->text(), QStringLiteral("&Undo Smooth Mesh"));
  }

private:
  QSet<QString> m_english;
};

VELA_TEST_MAIN(WorkbenchLanguageTest)
#include "language_test.moc"
