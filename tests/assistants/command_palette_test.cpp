// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/screen_record.h>
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/assistants/command_palette.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/views/base_view.h>

#include <commands/commands_fixture.h>

using namespace Vela::UiBase;
using Taren::Core::NormalQoS;

namespace {

const QString smooth = QStringLiteral("Demo::SmoothMeshCommand");
const QString measure = QStringLiteral("measure");

/// A window with a button that has the focus, a view with commands, and a palette.
class Stage {
public:
  Stage() {
    auto* const layout = new QVBoxLayout(&window);
    button = new QPushButton(&window);
    view = new BaseView(&window);
    layout->addWidget(button);
    layout->addWidget(view);
    shared = Taren::Objects::createShared<CmdsViewController>(view);
    palette = new CommandPalette(&window);
    palette->addManager(shared.get(), OfferInSight);
    palette->openAction()->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    smoothing = add(smooth, "Smooth &Mesh…");
    measuring = add(measure, "Distanz messen");
    add(QStringLiteral("open"), "Öffnen");
    window.resize(700, 500);
    window.show();
    window.activateWindow();
    button->setFocus();
    palette->open(); // makes them
    palette->dismiss();
    field = palette->findChild<QLineEdit*>();
    list = palette->findChild<QListView*>();
    new QAbstractItemModelTester(list->model(), list);
    dispatcher.runAll();
    Vela::Test::settle();
  }
  ~Stage() {
    shared->removeAllCommands();
    dispatcher.runAll();
  }

  TestCommand* add(const QString& id, const char* text) {
    auto* const command = new TestCommand(id, shared.get());
    command->setText(QString::fromUtf8(text));
    command->work = [this, id](bool) {
      ran += id;
      return true;
    };
    shared->addCommand(command);
    return command;
  }
  void addMore() {
    auto* const group = new CommandGroup({}, QStringLiteral("View"), QStringLiteral("view"));
    for (const char* const text : {"Show &Grid", "Grid Spacing", "Smoothly Shaded", "Straße"})
      group->addCommand(add(QString::fromUtf8(text), text), group->commandBag().count());
    shared->addCommand(group);
    for (int i = 0; i < 20; ++i)
      add(QString::number(i), "Xyz");
    dispatcher.runAll();
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window.windowHandle(), key, modifiers);
    dispatcher.runAll();
    Vela::Test::settle();
    dispatcher.runAll();
  }
  void type(const QString& text) {
    press(Qt::Key_K, Qt::ControlModifier);
    for (const QChar letter : text)
      QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key_unknown, QString(letter),
                          Qt::NoModifier);
  }
  QStringList rows(int role = Qt::DisplayRole) const {
    QStringList texts;
    for (int row = 0; row < list->model()->rowCount(); ++row)
      texts += list->model()->index(row, 0).data(role).toString();
    return texts;
  }

  Taren::Core::SteppedDispatcher dispatcher;
  Taren::Core::ScopedDispatcher installed{dispatcher};
  QWidget window;
  QPushButton* button;
  BaseView* view;
  std::shared_ptr<CmdsViewController> shared;
  CommandPalette* palette;
  TestCommand* smoothing;
  TestCommand* measuring;
  QLineEdit* field;
  QListView* list;
  QStringList ran;
};

} // namespace

/// A palette worked by the keyboard, through its window.
class CommandPaletteTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void whatIsTypedFindsAndRuns_data() {
    QTest::addColumn<QString>("found"); // the first one runs
    const char* const rows[][2] = {
        {"&mesh", "Smooth Mesh; Distanz messen"}, // words of identifiers come later
        {"sm", "Smooth Mesh; Smoothly Shaded"},
        {"mesh smoo", "Smooth Mesh"},
        {"smopth", "Smooth Mesh; Smoothly Shaded"},
        {"shwo", "Show Grid"},
        {"grids", "Grid Spacing; Show Grid"},
        {"gri", "Grid Spacing; Show Grid"},
        {"sogr", "Show Grid"},
        {"ooth", "Smooth Mesh; Smoothly Shaded"},
        {"gid", "Show Grid; Grid Spacing"},
        {"view", "Straße; Show Grid; Grid Spacing; Smoothly Shaded"},
        {"oeffnen", "Öffnen"},
        {"strasse", "Straße"},
        {"measure", "Distanz messen"},
        {"hsem", ""}};
    for (const auto& [typed, found] : rows)
      QTest::newRow(typed) << QString::fromUtf8(found);
  }
  void whatIsTypedFindsAndRuns() {
    QFETCH(const QString, found);
    Stage stage;
    stage.addMore();
    stage.type(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(stage.rows().join(QLatin1String("; ")), found);
    QVERIFY(stage.field->hasFocus() && stage.list->isVisible() != found.isEmpty());
    stage.press(found.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    QVERIFY(stage.palette->isHidden() && stage.button->hasFocus() && stage.ran.isEmpty() == found.isEmpty());
    stage.type({});
    QVERIFY2(found.isEmpty() || found.startsWith(stage.rows().first()), "what was used comes first");
  }

  void keysWalkTheList() {
    Stage stage;
    stage.addMore();
    stage.smoothing->setIcon(stage.window.style()->standardIcon(QStyle::SP_DialogOpenButton));
    stage.measuring->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    stage.shared->setGroundState(measure, {State::Off, State::Keep}, QStringLiteral("There is no mesh."));
    stage.type({});
    VELA_COMPARE_SCREEN("groups_in_the_palette", Vela::Test::OnlyAsItIs);
    const std::pair<Qt::Key, int> steps[] = {
        {Qt::Key_Down, 1},      {Qt::Key_Return, 1},    {Qt::Key_Up, 0},       {Qt::Key_Up, 26},
        {Qt::Key_Down, 0},      {Qt::Key_PageUp, 0},    {Qt::Key_PageDown, 9}, {Qt::Key_Tab, 9},
        {Qt::Key_Backtab, 9},   {Qt::Key_PageDown, 18}, {Qt::Key_PageUp, 9},   {Qt::Key_PageDown, 18},
        {Qt::Key_PageDown, 26}, {Qt::Key_PageDown, 26}};
    for (const auto& [key, row] : steps) {
      stage.press(key);
      QCOMPARE(stage.list->currentIndex().row(), row);
    }
    stage.press(Qt::Key_K, Qt::ControlModifier);
    QVERIFY(stage.palette->isHidden() && stage.ran.isEmpty());
    stage.type({});
    QTest::mouseClick(stage.list->viewport(), Qt::LeftButton, {},
                      stage.list->visualRect(stage.list->model()->index(2, 0)).center());
    QTRY_COMPARE(stage.ran, QStringList(QStringLiteral("open")));
  }

  void itClosesWhenSomethingElseIsUsed() {
    Stage stage;
    const std::function<void()> acts[] = {
        [&] { QTest::mouseClick(stage.window.windowHandle(), Qt::LeftButton, {}, QPoint(350, 470)); },
        [&] { stage.button->setFocus(); },
        [&] {
          stage.shared->removeCommand(smooth);
          stage.press(Qt::Key_Return);
        }};
    for (const auto& act : acts) {
      stage.type(QStringLiteral("smooth"));
      QVERIFY(stage.palette->isVisible());
      act();
      QTRY_VERIFY(stage.palette->isHidden());
      QCOMPARE(stage.ran, QStringList());
    }
  }

  void whatIsHiddenOrOutOfSightIsNotOffered() {
    Stage stage;
    stage.measuring->setVisible(false);
    stage.type({});
    QCOMPARE(stage.rows(), QStringList({QStringLiteral("Smooth Mesh"), QStringLiteral("Öffnen")}));
    VELA_COMPARE_SCREEN("palette", Vela::Test::OnlyAsItIs); // another language closes it
    stage.press(Qt::Key_Escape);
    stage.view->hide();
    stage.type({});
    QCOMPARE(stage.rows(), QStringList());
  }

  void aGreyCommandSaysWhyAndWaitsForTheRun() {
    Stage stage;
    stage.smoothing->setExecutionQoS(NormalQoS);
    stage.smoothing->executionContext = stage.shared->disabledContext(measure);
    stage.smoothing->trigger();
    while (stage.dispatcher.step(Taren::Core::MainThreadQoS)) {
    }
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_K, Qt::ControlModifier);
    stage.field->setText(QStringLiteral("messen"));
    const int reasonRole = Qt::UserRole + 2;
    QCOMPARE(stage.rows(reasonRole), QStringList(QStringLiteral("\"Smooth Mesh\" is running.")));
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_Return);
    QCOMPARE(stage.rows().last(), QStringLiteral("Run \"Distanz messen\" as soon as it is available"));
    VELA_COMPARE_SCREEN("grey_in_the_palette", Vela::Test::OnlyAsItIs);
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_Up); // round to the last one
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_Return);
    QVERIFY(stage.palette->isHidden() && stage.palette->awaitedCommand() == stage.measuring);
    QCOMPARE(stage.ran, QStringList());
    stage.dispatcher.runAll();
    QTRY_COMPARE(stage.ran, QStringList({smooth, measure}));
    QCOMPARE(stage.palette->awaitedCommand(), nullptr);
  }
};

VELA_TEST_MAIN(CommandPaletteTest)
#include "command_palette_test.moc"
