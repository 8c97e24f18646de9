// SPDX-License-Identifier: MIT
#include "mesh_files.h"
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/input.h>
#include <support/rows.h>
#include <ui_base/menus/menu_builder.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/commands/length_unit_command.h>
#include <workbench/commands/open_recent_command.h>
#include <workbench/palette_item.h>
#include <workbench/panels/unit_button.h>

#include <QApplication>
#include <QMenu>
#include <QToolButton>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;
using Vela::Resource::Styles;
using namespace Vela::Test;

namespace {

class Bench : public WorkbenchFixture {
public:
  MenuBuilder& menus() { return *window().findChild<MenuBuilder*>(); }
  QToolButton& item(const QString& name) { return *menus().GetMenuBarItem(name); }
  QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  void choose(QAction* entry) {
    const QPoint at = openMenu()->actionGeometry(entry).center();
    moveMouse(*openMenu(), at);
    clickAt(*openMenu(), at);
  }
};

/// Whether every entry has a mnemonic that no other of its menu has; counts them.
int usableEntries(const QMenu& menu) {
  QStringList mnemonics;
  for (const QAction* const entry : menu.actions()) {
    if (entry->isSeparator())
      continue;
    const QString mnemonic = QKeySequence::mnemonic(entry->text()).toString();
    if (mnemonic.isEmpty() || mnemonics.contains(mnemonic))
      qWarning("%s", qPrintable(entry->text()));
    mnemonics += mnemonic;
  }
  return int(mnemonics.size());
}

} // namespace

// The menu bar, and the menu in the status bar.
class MenuBarTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void theArrowsReachAGroupAndItsCheckMarks() {
    Bench bench;
    bench.press(Qt::Key_F10);
    for (int i = 0; i < 4; ++i)
      bench.press(Qt::Key_Right); // from File to View
    bench.press(Qt::Key_Down);
    QCOMPARE(bench.openMenu(), bench.menus().GetMenu("view"));
    bench.press(Qt::Key_S);
    const QMenu* const shading = bench.openMenu();
    QVERIFY(shading && shading->objectName().endsWith("Shading"));
    QCOMPARE(bench.menus().GetMenu(shading->objectName()), shading);
    bench.press(Qt::Key_Down);
    bench.press(Qt::Key_Return);
    QTRY_COMPARE(bench.view().shading(), FlatShading);
    QVERIFY(!bench.openMenu() && bench.view().hasFocus());
    QVERIFY(!shading->actions()[0]->isChecked() && shading->actions()[1]->isChecked());
  }

  void eachPageHasItsMenusAndTheirLettersOpenThem_data() {
    const Rows<Qt::Key, QString> row("page", "letters");
    row("mesh", Qt::Key_1, "FESTVH");
    row("photographs", Qt::Key_2, "FVPH");
  }
  void eachPageHasItsMenusAndTheirLettersOpenThem() {
    QFETCH(Qt::Key, page);
    QFETCH(QString, letters);
    Bench bench;
    bench.controller().showMesh(Test::blob(10), "blob"); // with all bars
    bench.view().document().setSelection(TriangleSelection::all(200));
    bench.press(page, Qt::AltModifier);
    settle();
    QString found;
    for (const QToolButton* const item : bench.menus().MenuBar()->findChildren<QToolButton*>()) {
      if (!item->isVisible() || !item->menu())
        continue;
      const QKeySequence mnemonic = QKeySequence::mnemonic(item->text());
      bench.press(mnemonic[0].key(), Qt::AltModifier);
      QTRY_VERIFY2(bench.openMenu() == item->menu(), qPrintable(item->text()));
      QVERIFY(usableEntries(*item->menu()) > 0);
      bench.openMenu()->close();
      found += QChar(mnemonic[0].key());
    }
    QCOMPARE(found, letters);
  }

  void recentFilesAreOpenedAgain() {
    Bench bench;
    const QString files[] = {bench.write("a & b.obj", Test::objFile(Test::cube(2))),
                             bench.write("c.obj", Test::objFile(Test::square(1)))};
    for (const QString& file : files) {
      bench.controller().openFiles({file});
      QTRY_COMPARE(bench.controller().fileName(), file);
      settle();
    }
    const auto recent = [&bench](int place) {
      return bench.controller().findCommand(OpenRecentCommand::idOf(place));
    };
    QTRY_VERIFY(recent(1)->isEnabled());
    QCOMPARE(recent(1)->text(), "&2  a && b.obj");
    QVERIFY(recent(0)->isVisible() && !recent(2)->isVisible());
    recent(1)->trigger();
    QTRY_COMPARE(bench.controller().fileName(), files[0]);
    QCOMPARE(recent(1)->statusTip(), files[1]);
  }

  void thePaletteItemShowsWhatAClickDoes() {
    Bench bench;
    auto& command = *bench.command<DarkPaletteCommand>();
    QToolButton& item = bench.item(paletteItemName());
    QCOMPARE(item.geometry().right(), bench.menus().MenuBar()->rect().right());
    click(item);
    QTRY_COMPARE(Styles::Instance().palette(), Vela::Resource::Dark);
    QCOMPARE(item.text(), "Light palette");
    // Somebody else changes it.
    bench.press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(item.text(), "Dark palette");
    QVERIFY(item.toolTip().startsWith(item.text()) && item.toolTip().contains("Ctrl"));
    command.setEnabled(false);
    QVERIFY(!item.isEnabled());
  }

  void theUnitIsChosenInTheStatusBar() {
    Bench bench;
    auto& button = *bench.window().findChild<UnitButton*>();
    click(button);
    QVERIFY(bench.openMenu());
    bench.choose(bench.controller().findCommand(LengthUnitCommand::idOf(Vela::Common::Inch)));
    QTRY_COMPARE(bench.view().measurements().unit(), Vela::Common::Inch);
    QVERIFY(!bench.openMenu());
    QCOMPARE(button.text(), Vela::Common::unitSymbol(Vela::Common::Inch));
    // Chosen elsewhere, with the keyboard.
    bench.press(Qt::Key_T, Qt::AltModifier);
    bench.press(Qt::Key_U);
    bench.press(Qt::Key_C);
    QTRY_COMPARE(button.text(), "cm");
  }
};

VELA_TEST_MAIN(MenuBarTest)
#include "menu_bar_test.moc"
