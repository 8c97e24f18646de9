// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <support/screen_record.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/assistants/command_palette.h>
#include <ui_base/assistants/command_usage.h>
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
        {"shwo", "Show Grid; Show Only Grid"}, // fewer words come first
        {"grids", "Grid Spacing; Show Grid; Show Only Grid"},
        {"gri", "Grid Spacing; Show Grid; Show Only Grid"},
        {"rid", "Grid Spacing; Show Grid; Show Only Grid"},
        {"shg", "Show Grid; Show Only Grid"},
        {"sg rid", "Show Grid; Show Only Grid"},
        {"sogr", "Show Only Grid; Show Grid"},
        {"ooth", "Smooth Mesh; Smoothly Shaded"},
        {"gid", "Show Only Grid; Show Grid; Grid Spacing"},
        {"view", "Straße; Show Grid; Grid Spacing; Smoothly Shaded"},
        {"oeffnen", "Öffnen"},
        {"strasse", "Straße"},
        {"measure", "Distanz messen"},
        {"meshes", ""},
        {"hsem", ""}};
    for (const auto& [typed, found] : rows)
      QTest::newRow(typed) << QString::fromUtf8(found);
  }
  void whatIsTypedFindsAndRuns() {
    QFETCH(const QString, found);
    Stage stage;
    stage.add(QStringLiteral("only"), "Show Only Grid");
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
      QWidget other;
      Vela::Test::showActive(other); // for a while
      Vela::Test::showActive(stage.window);
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
    stage.window.resize(640, 420);
    QCOMPARE(stage.palette->geometry().center(), stage.window.rect().center());
    stage.window.addAction(stage.smoothing);
    stage.smoothing->setShortcut(Qt::Key_F7);
    for (const Qt::Key key : {Qt::Key_F7, Qt::Key_Escape, Qt::Key_F7}) { // no shortcut runs while it is open
      QCOMPARE(stage.palette->usage().count(smooth), 0);
      stage.press(key);
    }
    QCOMPARE(stage.ran, QStringList(smooth));
    QCOMPARE(stage.palette->usage().count(smooth), 1);
    stage.view->hide();
    for (const int offered : {0, 2, 0}) {
      stage.type({});
      QCOMPARE(stage.list->model()->rowCount(), offered);
      stage.press(Qt::Key_Escape);
      stage.palette->removeManager(stage.shared.get());
      if (offered == 0)
        stage.palette->addManager(stage.shared.get(), OfferAlways);
    }
  }

  void aGreyCommandSaysWhyAndWaitsForTheRun() {
    for (const bool cancels : {false, true}) {
      Stage stage;
      stage.smoothing->setExecutionQoS(NormalQoS);
      stage.smoothing->executionContext = stage.shared->disabledContext(measure);
      stage.smoothing->trigger();
      while (stage.dispatcher.step(Taren::Core::MainThreadQoS)) {
      }
      const auto press = [&stage](Qt::Key key) { QTest::keyClick(stage.window.windowHandle(), key); };
      QTest::keyClick(stage.window.windowHandle(), Qt::Key_K, Qt::ControlModifier);
      stage.field->setText(QStringLiteral("messen"));
      const int reasonRole = Qt::UserRole + 2;
      QCOMPARE(stage.rows(reasonRole), QStringList(QStringLiteral("\"Smooth Mesh\" is running.")));
      press(Qt::Key_Return);
      QCOMPARE(stage.rows(),
               QStringList(QStringLiteral("Run \"Distanz messen\" as soon as it is available")));
      VELA_COMPARE_SCREEN("grey_in_the_palette", Vela::Test::OnlyAsItIs);
      (void)stage.smoothing->runs().first().stopToken(); // from here on it looks at it
      press(Qt::Key_Escape);
      QCOMPARE(stage.rows(), QStringList(QStringLiteral("Distanz messen")));
      press(Qt::Key_Return);
      QCOMPARE(stage.rows().value(0), QStringLiteral("Cancel \"Smooth Mesh\""));
      press(cancels ? Qt::Key_Home : Qt::Key_Up); // round to the last one
      press(Qt::Key_Return);
      QVERIFY(stage.palette->isHidden());
      QCOMPARE(stage.palette->awaitedCommand(), cancels ? nullptr : stage.measuring);
      QCOMPARE(stage.smoothing->runs().first().isStopRequested(), cancels);
      QCOMPARE(stage.ran, QStringList());
      stage.dispatcher.runAll();
      QTRY_COMPARE(stage.ran, cancels ? QStringList(smooth) : QStringList({smooth, measure}));
      QCOMPARE(stage.palette->awaitedCommand(), nullptr);
    }
  }

  void whatWaitsIsCalledOffOrGivesWay() {
    Stage stage;
    auto hold = stage.shared->holdContext(stage.shared->disabledContext());
    const std::pair<const char*, QString> waits[] = {
        {"messen", "Run \"Distanz messen\" as soon as it is available"},
        {"messen", "Do not run \"Distanz messen\" any more"},
        {"messen", "Run \"Distanz messen\" as soon as it is available"},
        {"smooth", "Run \"Smooth Mesh\" as soon as it is available"}};
    for (const auto& [typed, way] : waits) {
      stage.type(typed);
      stage.press(Qt::Key_Return);
      QCOMPARE(stage.rows(), QStringList(way));
      stage.press(Qt::Key_Return);
      QCOMPARE(stage.palette->awaitedCommand() != nullptr, way.startsWith("Run"));
    }
    QVERIFY(stage.shared->isNotificationShowing());
    hold = {};
    stage.press(Qt::Key_Shift);
    QTRY_COMPARE(stage.ran, QStringList(smooth));
  }

  void whatIsUsedAllTheTimeIsHalved() {
    CommandUsage usage;
    usage.restore({{"once", 1}});
    usage.restore({{"often", 5000}, {smooth, 1}, {measure, "no number"}});
    QCOMPARE(usage.values(), QVariantMap({{"often", 999}, {smooth, 1}}));
    usage.note("often");
    QCOMPARE(usage.values(), QVariantMap({{"often", 500}}));
  }
};

VELA_TEST_MAIN(CommandPaletteTest)
#include "command_palette_test.moc"
