// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/test_case.h>
#include <ui_base/assistants/command_palette.h>
#include <ui_base/popups/flyout_base.h>
#include <workbench/commands/history_command.h>
#include <workbench/commands/language_command.h>
#include <workbench/commands/smooth_flyout_command.h>
#include <workbench/language.h>
#include <workbench/panels/mesh_info_dialog.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QSpinBox>
#include <QXmlStreamReader>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;
using Vela::Test::settle;

namespace {

/// The sources in a file of translations that read differently in the other language.
QSet<QString> englishTexts(const QString& file) {
  QFile device(file);
  QSet<QString> texts;
  if (!device.open(QIODevice::ReadOnly))
    return texts;
  QXmlStreamReader xml(&device);
  QString source;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == QLatin1String("source"))
      source = xml.readElementText();
    else if (xml.isStartElement() && xml.name() == QLatin1String("translation")) {
      const QString translation = xml.readElementText();
      if (translation != source && !source.contains(QLatin1Char('%')))
        texts.insert(source);
    }
  }
  return texts;
}

QStringList textsOf(const QWidget& widget) {
  QStringList texts{widget.accessibleName(),
                    widget.toolTip(),
                    widget.windowTitle(),
                    widget.property("text").toString(),
                    widget.property("title").toString(),
                    widget.property("placeholderText").toString()};
  const QList<QAction*> actions = widget.actions();
  for (const QAction* const action : actions)
    texts += {action->text(), action->toolTip(), action->statusTip()};
  return texts;
}

/// What stands anywhere in the program, seen or not, in a language that it does not speak any more.
QStringList leftIn(const QSet<QString>& language) {
  QStringList left;
  const QWidgetList widgets = QApplication::allWidgets();
  for (const QWidget* const widget : widgets) {
    const QStringList texts = textsOf(*widget);
    for (const QString& text : texts) {
      if (language.contains(text))
        left += QStringLiteral("%1 %2: %3")
                    .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(), text);
    }
  }
  left.removeDuplicates();
  return left;
}

/// The letters that two entries of a menu share.
QStringList sharedMnemonics(const QMenu& menu) {
  QStringList shared;
  QHash<QChar, QString> letters;
  const QList<QAction*> actions = menu.actions();
  for (const QAction* const action : actions) {
    const qsizetype mark =
        QString(action->text()).replace(QLatin1String("&&"), QLatin1String("__")).indexOf(u'&');
    if (mark < 0 || !action->isVisible())
      continue;
    const QChar letter = action->text().at(mark + 1).toLower();
    if (letters.contains(letter))
      shared += letters[letter] + QStringLiteral(" / ") + action->text();
    letters.insert(letter, action->text());
  }
  return shared;
}

class LanguageBench : public WorkbenchFixture {
public:
  LanguageBench() : WorkbenchFixture({900, 700}) { show(Test::blob(20)); }
  void speak(QLocale::Language language) {
    controller().findCommand(LanguageCommand::idOf(language))->trigger();
    settle();
  }
};

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

  void whatIsOpenSurvivesTheSwitch() {
    LanguageBench bench;
    bench.press(Qt::Key_A, Qt::ControlModifier);
    bench.press(Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    FlyoutBase& flyout = *bench.command<SmoothFlyoutCommand>()->flyout();
    QTRY_VERIFY(flyout.isVisible());
    auto* const iterations = flyout.findChild<QSpinBox*>();
    iterations->setValue(7);
    iterations->setFocus();
    QCOMPARE(flyout.Title(), QStringLiteral("Smoothing"));

    bench.speak(QLocale::German);
    QVERIFY(flyout.isVisible());
    QCOMPARE(flyout.Title(), QStringLiteral("Glätten"));
    QCOMPARE(iterations->value(), 7);
    QCOMPARE(QApplication::focusWidget(), iterations);
    QCOMPARE(bench.view().document().selection().count(), bench.triangles());
    QCOMPARE(bench.command<UndoCommand>()->text(), QStringLiteral("&Rückgängig: Alles auswählen"));

    bench.press(Qt::Key_Return);
    QTRY_COMPARE(bench.command<UndoCommand>()->text(), QStringLiteral("&Rückgängig: Glätten"));
    bench.speak(QLocale::English);
    QCOMPARE(bench.command<UndoCommand>()->text(), QStringLiteral("&Undo Smooth"));
  }

  void nothingIsLeftInTheLanguageBefore() {
    LanguageBench bench;
    bench.press(Qt::Key_A, Qt::ControlModifier); // the bar of the selection
    bench.press(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    bench.press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    bench.press(Qt::Key_2, Qt::AltModifier);
    bench.press(Qt::Key_1, Qt::AltModifier);
    settle();
    bench.speak(QLocale::German);
    const QStringList left = leftIn(m_english);
    QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char('\n'))));
    QStringList shared;
    const auto menus = bench.window().findChildren<QMenu*>();
    for (const QMenu* const menu : menus)
      shared += sharedMnemonics(*menu);
    QCOMPARE(shared, QStringList());
    bench.speak(QLocale::English);
  }

  void theLanguageIsRememberedAndTheSourceTextFound() {
    LanguageBench bench;
    bench.speak(QLocale::German);
    Language::restore();
    QCOMPARE(Language::current(), QLocale::German);
    auto* const palette = bench.window().findChild<CommandPalette*>();
    palette->open();
    palette->findChild<QLineEdit*>()->setText(QStringLiteral("halve"));
    const QAbstractItemModel& found = *palette->findChild<QListView*>()->model();
    QCOMPARE(found.index(0, 0).data().toString(), QStringLiteral("Dreiecke halbieren"));
    palette->dismiss();
    bench.speak(QLocale::English);
  }

private:
  QSet<QString> m_english;
};

VELA_TEST_MAIN(WorkbenchLanguageTest)
#include "language_test.moc"
