// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/screen_record.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/assistants/key_probe.h>
#include <ui_base/assistants/shortcut_editor.h>
#include <ui_base/assistants/shortcut_scheme.h>
#include <ui_base/assistants/shortcut_sheet.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/m_dialog_base.h>
#include <ui_base/views/base_view.h>

#include <commands/commands_fixture.h>

using namespace Vela::UiBase;

namespace {

const QKeySequence ctrlM(Qt::CTRL | Qt::Key_M);
const QKeySequence ctrlJ(Qt::CTRL | Qt::Key_J);
const QKeySequence chord(QKeyCombination(Qt::CTRL, Qt::Key_M), QKeyCombination(Qt::Key_A));

/// A window with a text field and two pages; a view with two commands on the first one.
class Stage {
public:
  Stage() {
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(field = new QLineEdit(&window));
    layout->addWidget(pages = new QStackedWidget(&window));
    pages->addWidget(view = new BaseView);
    pages->addWidget(new QWidget);
    controller = Taren::Objects::createShared<CmdsViewController>(view);
    smooth = add("smooth", "&Smooth Mesh…", ctrlM);
    measure = add("measure", "Measure", ctrlJ);
    window.addAction(smooth);
    window.addAction(measure);
    scheme.addManager(controller.get());
    window.show();
    window.activateWindow();
    view->setFocus();
    dispatcher.runAll();
    Vela::Test::settle();
  }
  ~Stage() {
    controller->removeAllCommands();
    dispatcher.runAll();
  }

  TestCommand* add(const char* id, const char* text, const QKeySequence& keys) {
    auto* const command = new TestCommand(QString::fromLatin1(id), controller.get());
    command->setText(QString::fromUtf8(text));
    command->setShortcut(keys);
    command->work = [this, command](bool) {
      ran += command->id;
      return true;
    };
    controller->addCommand(command);
    return command;
  }
  void press(QWidget& in, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(in.window()->windowHandle(), key, modifiers);
    Vela::Test::settle();
  }
  MDialogBase* open(QWidget* content) {
    auto* const dialog = new MDialogBase(&window);
    dialog->SetContent(content);
    dialog->open();
    content->setFocus();
    Vela::Test::settle();
    return dialog;
  }

  Taren::Core::SteppedDispatcher dispatcher;
  Taren::Core::ScopedDispatcher installed{dispatcher};
  ShortcutScheme scheme;
  QWidget window;
  QLineEdit* field;
  QStackedWidget* pages;
  BaseView* view;
  std::shared_ptr<CmdsViewController> controller;
  TestCommand* smooth;
  TestCommand* measure;
  QStringList ran;
};

class EditorStage : public Stage {
public:
  EditorStage() : editor(new ShortcutEditor(scheme)) {
    open(editor);
    search = editor->findChild<QLineEdit*>();
    keys = editor->findChild<QKeySequenceEdit*>();
    new QAbstractItemModelTester(editor->findChild<QTreeView*>()->model(), editor);
  }
  void choose(const QString& typed) {
    search->setFocus();
    search->selectAll();
    for (const QChar letter : typed)
      QTest::sendKeyEvent(QTest::Click, editor->window()->windowHandle(), Qt::Key_unknown, QString(letter),
                          {});
  }
  void record(Qt::Key key) {
    keys->setFocus();
    press(*editor, key, Qt::ControlModifier);
  }
  /// Presses the button that a letter stands for.
  void pushButton(Qt::Key mnemonic) {
    editor->findChild<QTreeView*>()->setFocus();
    press(*editor, mnemonic, Qt::AltModifier);
  }
  bool says(const QString& text) const {
    const auto labels = editor->findChildren<QLabel*>();
    return std::any_of(labels.cbegin(), labels.cend(),
                       [&](auto* label) { return label->text().contains(text); });
  }

  ShortcutEditor* editor;
  QLineEdit* search;
  QKeySequenceEdit* keys;
};

ShortcutUse useIn(QWidget& place, const QKeySequence& keys, const char* id,
                  Qt::ShortcutContext context = Qt::WindowShortcut) {
  return {keys, QString::fromLatin1(id), {}, context, {&place}};
}

} // namespace

class ShortcutsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void whetherTwoMeet() {
    Stage stage;
    QWidget other;
    QWidget& page = *stage.pages->widget(1);
    ShortcutRules rules;
    rules.addMode(QStringLiteral("mesh"), {QStringLiteral("a"), QStringLiteral("c")});
    rules.addMode(QStringLiteral("photos"), {QStringLiteral("b"), QStringLiteral("c")});
    const auto meeting = [&](QWidget& place, const QKeySequence& keys, const char* id,
                             Qt::ShortcutContext context = Qt::WindowShortcut) {
      return rules.meeting(useIn(*stage.view, ctrlM, "a"), useIn(place, keys, id, context));
    };
    QCOMPARE(usesOf(*stage.smooth).constFirst().name, QStringLiteral("Smooth Mesh"));
    QCOMPARE(meeting(stage.window, ctrlM, "x"), SameKeys);
    QCOMPARE(meeting(stage.window, chord, "x"), Prefix);
    QCOMPARE(meeting(page, ctrlM, "x"), NeverMeet); // pages of one stack
    QCOMPARE(meeting(other, ctrlM, "x"), NeverMeet);
    QCOMPARE(meeting(other, ctrlM, "x", Qt::ApplicationShortcut), SameKeys);
    QCOMPARE(meeting(stage.window, ctrlM, "b"), NeverMeet); // no mode enables both
    QCOMPARE(meeting(stage.window, ctrlM, "c"), SameKeys);
    rules.noteMet(QStringLiteral("b"), QStringLiteral("a"));
    QCOMPARE(meeting(stage.window, ctrlM, "b"), SameKeys); // whatever the modes say
    const auto exact = Qt::WidgetShortcut;
    QCOMPARE(meeting(*stage.field, ctrlM, "x", exact), SameKeys); // the other one is the window's
    QCOMPARE(rules.meeting(useIn(*stage.field, ctrlM, "x", exact), useIn(*stage.view, ctrlM, "y", exact)),
             NeverMeet);
    QCOMPARE(rules.meeting(useIn(*stage.view, ctrlM, "x", exact), useIn(*stage.view, ctrlM, "y", exact)),
             SameKeys);
    QCOMPARE(meeting(stage.window, {}, "x"), NeverMeet);
    QCOMPARE(rules.meeting(useIn(*stage.view, chord, "a"), useIn(stage.window, ctrlM, "x")), Prefix);
    QCOMPARE(
        rules
            .metBy(useIn(*stage.view, ctrlM, "a"), {useIn(stage.window, ctrlM, "a"), useIn(page, ctrlM, "x")})
            .size(),
        0);
    QWidget tool(&stage.window, Qt::Tool);
    QCOMPARE(meeting(tool, ctrlM, "x"), SameKeys); // its keys are those of its window
    const auto focus = Qt::WidgetWithChildrenShortcut;
    QCOMPARE(rules.meeting(useIn(stage.window, ctrlM, "x", focus), useIn(*stage.view, ctrlM, "y", exact)),
             SameKeys);
    QCOMPARE(rules.meeting(useIn(stage.window, ctrlM, "x", exact), useIn(*stage.view, ctrlM, "y", focus)),
             NeverMeet);
    const auto inField = useIn(*stage.field, ctrlM, "x", focus);
    QCOMPARE(rules.meeting(inField, useIn(*stage.view, ctrlM, "y", focus)), NeverMeet);
    QCOMPARE(rules.meeting(inField, useIn(stage.window, ctrlM, "y", focus)), SameKeys);
  }

  void whatElseTakesKeysIsMet() {
    Stage stage;
    const QKeySequence keys(Qt::ALT | Qt::Key_G);
    auto* const lone = stage.add("lone", "", {}); // on the first page
    for (QWidget* const place : {&stage.window, stage.pages->widget(1)}) {
      const QString name = place == &stage.window ? QStringLiteral("here") : QStringLiteral("there");
      (new QPushButton(QStringLiteral("&Go ") + name, place))->show();
      (new QShortcut(keys, place))->setWhatsThis(QStringLiteral("key ") + name);
      place->addAction(QStringLiteral("do ") + name)->setShortcut(keys);
    }
    QStringList met;
    const auto uses = stage.scheme.metBy(*lone, {keys, Qt::Key_F6});
    for (const ShortcutUse& use : uses)
      met += use.name;
    QCOMPARE(met.join(u'|'), QStringLiteral("do here|key here|Go here|Go to the next toolbar"));
  }

  void differencesAreKeptAndComeToLaterCommands() {
    QVariantMap kept;
    {
      Stage stage;
      stage.scheme.setShortcuts(*stage.smooth, {ctrlJ, chord});
      stage.scheme.setShortcuts(*stage.measure, {});
      kept = stage.scheme.values();
      stage.scheme.setShortcuts(*stage.measure, {ctrlJ}); // as the application has it: no difference
      QCOMPARE(stage.scheme.values().keys(), QStringList(QStringLiteral("smooth")));
    }
    Stage stage;
    kept.insert(QStringLiteral("late"), QStringList(QStringLiteral("Ctrl+L")));
    stage.scheme.restore(kept);
    QCOMPARE(stage.smooth->shortcuts(), QList({ctrlJ, chord}));
    QVERIFY(stage.measure->shortcuts().isEmpty());
    auto* const late = stage.add("late", "Late", {});
    stage.window.addAction(late);
    Vela::Test::settle();
    stage.press(stage.window, Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(stage.ran, QStringList(late->id));

    const QByteArray json = stage.scheme.toJson();
    auto* const lone = stage.add("lone", "Lone", {}); // in no widget
    stage.scheme.setShortcuts(*lone, {QKeySequence(Qt::CTRL | Qt::Key_W)});
    stage.press(stage.window, Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(stage.ran, QStringList({late->id, lone->id}));
    stage.scheme.resetAll();
    QCOMPARE(stage.smooth->shortcut(), ctrlM);
    stage.scheme.restore(
        {{stage.smooth->id, 5}, {stage.measure->id, QStringList(QStringLiteral("nonsense"))}});
    QVERIFY(stage.scheme.values().isEmpty());
    QVERIFY(!stage.scheme.readJson("{\"keys\": 1}").isEmpty() && !stage.scheme.readJson("{").isEmpty());
    QCOMPARE(stage.scheme.readJson(json), QString());
    QCOMPARE(stage.scheme.values(), kept);
  }

  void theEditorRecordsTakesOverAndGivesBack() {
    EditorStage stage;
    stage.scheme.setShortcuts(*stage.smooth, {ctrlM, Qt::Key_F8});
    QSignalSpy shown(stage.editor->findChild<QTreeView*>()->model(), &QAbstractItemModel::dataChanged);
    stage.choose(QStringLiteral("measure"));
    stage.record(Qt::Key_M); // the keys of the other one
    QVERIFY2(stage.says(QStringLiteral("These keys belong to")), "while more keys may follow");
    stage.pushButton(Qt::Key_O);
    QTRY_COMPARE(stage.measure->shortcut(), ctrlM);
    QCOMPARE(stage.smooth->shortcuts(), QList<QKeySequence>{Qt::Key_F8});
    QCOMPARE(shown.size(), 2); // one changes for each of them
    VELA_COMPARE_SCREEN("shortcuts");
    stage.pushButton(Qt::Key_C);
    QTRY_COMPARE(stage.measure->shortcut(), QKeySequence());
    stage.pushButton(Qt::Key_R);
    QTRY_COMPARE(stage.measure->shortcut(), ctrlJ);
    stage.pushButton(Qt::Key_A);
    QTRY_COMPARE(stage.smooth->shortcut(), ctrlM);
    QVERIFY2(!stage.editor->findChildren<QPushButton*>().constLast()->isEnabled(), "none is changed");
  }

  void whatItShowsMayDie() {
    EditorStage stage;
    stage.controller->removeAllCommands();
    stage.dispatcher.runAll();
    stage.press(*stage.editor, Qt::Key_C, Qt::AltModifier);
    stage.choose(QStringLiteral("s"));
    QVERIFY(stage.says(QStringLiteral("No command")));
    auto* const probe = new KeyProbe(*stage.pages);
    stage.open(probe);
    delete stage.pages; // with its view
    probe->ask(ctrlM);
    QCOMPARE(probe->text(), QStringLiteral("Press any key."));
  }

  void filesAndThePageToPrint() {
    QCoreApplication::setAttribute(
        Qt::AA_DontUseNativeDialogs); // a system's own may not be called off from here
    Stage another;                    // a window with the same commands
    EditorStage stage;
    stage.scheme.addManager(another.controller.get());
    stage.choose(QStringLiteral("smooth mesh"));
    QCOMPARE(stage.editor->findChild<QTreeView*>()->model()->rowCount(), 1);
    const QString sheet = shortcutSheet(stage.scheme);
    QVERIFY2(sheet.count(QStringLiteral("Smooth Mesh")) == 1 && sheet.contains(QStringLiteral(">F6<")),
             qPrintable(sheet));
    QTemporaryDir folder;
    const auto choose = [&](const char* button, const QString& name) { // none: the question is called off
      QTimer answers;
      connect(&answers, &QTimer::timeout, [&] {
        if (auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
          answers.stop();
          dialog->selectFile(folder.filePath(name));
          static_cast<QDialog*>(dialog)->done(name.isEmpty() ? QDialog::Rejected : QDialog::Accepted);
        }
      });
      answers.start(0);
      const auto buttons = stage.editor->findChildren<QPushButton*>();
      Vela::Test::click(**std::ranges::find(buttons, QString::fromUtf8(button), &QPushButton::text));
      return stage.editor->findChildren<QLabel*>().constLast()->text();
    };
    stage.scheme.setShortcuts(*stage.smooth, {QKeySequence(Qt::CTRL | Qt::Key_B)});
    for (const auto& [button, name, told] : {std::tuple("&Export…", "", ""),
                                             {"&Export…", "keys.json", "The shortcuts were written."},
                                             {"&Import…", "keys.json", "The shortcuts were read."},
                                             {"Save &Page…", "keys.pdf", "The page was saved."}}) {
      QCOMPARE(choose(button, name), QString(told));
      if (told == std::string_view("The shortcuts were written."))
        stage.scheme.resetAll();
    }
    QCOMPARE(stage.smooth->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_B));
    QVERIFY(QFileInfo(folder.filePath(QStringLiteral("keys.pdf"))).size() > 5000);
    QVERIFY(!stage.editor->importFrom(folder.filePath(QStringLiteral("missing.json"))));
    QCOMPARE(stage.smooth->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_B));
    QFile broken(folder.filePath(QStringLiteral("broken.json")));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    QVERIFY(broken.write(R"({"shortcuts": {"measure": ["Ctrl+L"], "smooth": ["Ctrl+Quark"]}})") > 0);
    broken.close();
    QVERIFY(!stage.editor->importFrom(broken.fileName()) && stage.says(QStringLiteral("“smooth”")));
    QCOMPARE(stage.measure->shortcut(), ctrlJ);
    QVERIFY(!stage.editor->saveSheet(folder.filePath(QStringLiteral("no/keys.pdf"))));
  }

  void aKeyThatMeansTwoThingsIsToldOf() {
    Stage stage;
    QSignalSpy spy(&stage.scheme, &ShortcutScheme::ambiguous);
    QSignalSpy kept(&stage.scheme, &ShortcutScheme::changed);
    stage.measure->setShortcut(ctrlM);
    stage.press(stage.window, Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(kept.size(), 1);
    ShortcutScheme later; // of the next start
    later.restore(stage.scheme.values());
    QVERIFY(later.rules().met() == stage.scheme.rules().met() && !later.rules().met().isEmpty());
    QVERIFY(stage.controller->isNotificationShowing());
    QCOMPARE(stage.ran, QStringList());
    stage.measure->setEnabled(false);
    stage.press(stage.window, Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(stage.ran, QStringList(QStringLiteral("smooth")));
  }

  void whyEachDoesNotTakeAKey() {
    Stage stage;
    QWidget other;
    other.show();
    QMenu menu(QStringLiteral("Off"), &stage.window);
    menu.menuAction()->setEnabled(false);
    stage.window.addAction(menu.menuAction());
    const auto add = [](QWidget& place, const char* why) { // which it is called
      auto* const action = new QAction(QString::fromLatin1(why), &place);
      action->setShortcut(ctrlM);
      place.addAction(action);
      return action;
    };
    const QString unseen = QStringLiteral("Where it stands is not in sight.");
    add(stage.window, "It is hidden.")->setVisible(false);
    add(stage.window, "It is disabled.")->setEnabled(false);
    add(stage.window, "It wants more keys after these.")->setShortcut(chord);
    add(*stage.pages->widget(1), "Where it stands is not in sight.");
    add(*stage.field, "The focus is elsewhere.")->setShortcutContext(Qt::WidgetShortcut);
    add(*stage.field, "The focus is elsewhere.")->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    add(other, "It stands in another window.");
    add(menu, "Its menu is disabled.");
    (new QPushButton(unseen, stage.pages->widget(1)))->setShortcut(ctrlM);
    (new QShortcut(ctrlM, stage.pages->widget(1)))->setWhatsThis(unseen);
    KeyProbe probe(stage.window);
    const auto told =
        [&probe](const QKeySequence& keys) { // how many say what they are called, and the others
          probe.ask(keys);
          QStringList lines = probe.text().split(u'\n').mid(1);
          const auto count = lines.removeIf([](const QString& line) {
            const QStringList parts = line.section(QStringLiteral(": "), 1).split(QStringLiteral(" – "));
            return parts.first() == parts.value(1);
          });
          return QString::number(count) + u'|' + lines.join(u'|');
        };
    QCOMPARE(told(ctrlM),
             QStringLiteral("10|Command: Smooth Mesh – gets it|What is left: Vela::UiBase::BaseView"));
    stage.measure->setShortcut(ctrlM);
    QVERIFY(told(ctrlM).endsWith(QStringLiteral("|It means several things: nobody gets it.")));
    QCOMPARE(told(Qt::Key_F6), QStringLiteral("0|Library: Go to the next toolbar – There is no toolbar.|"
                                              "What is left: Vela::UiBase::BaseView – gets it"));
    stage.field->setFocus();
    QCOMPARE(told(Qt::Key_A), QStringLiteral("0|The focus: QLineEdit – gets it|What is left: QLineEdit"));
    FlyoutBase panel(QStringLiteral("Hole"), new QPushButton, {}, &stage.window);
    panel.show();
    QCOMPARE(told(Qt::Key_Escape),
             QStringLiteral("0|Panel: Hole – gets it|Library: Close what is open|What is left: QPushButton"));
    KeyProbe elsewhere(other); // where nothing has the focus
    elsewhere.ask(Qt::Key_F9);
    QVERIFY(elsewhere.text().endsWith(QStringLiteral("\nNobody takes it.")));
  }

  void aKeyIsTriedAndReachesNobody() {
    Stage stage;
    stage.controller->setGroundState(stage.measure->id, {State::Off, State::Keep},
                                     QStringLiteral("No mesh."));
    stage.dispatcher.runAll();
    stage.measure->setShortcut(ctrlM);
    auto* const probe = new KeyProbe(stage.window);
    stage.open(probe);
    stage.press(*probe, Qt::Key_M, Qt::ControlModifier);
    VELA_COMPARE_SCREEN("key_probe");
    stage.press(*probe, Qt::Key_Escape);
    QVERIFY(probe->isVisible() && probe->text().contains(QStringLiteral("Library: Close what is open")));
    QCOMPARE(stage.ran, QStringList());
  }
};

VELA_TEST_MAIN(ShortcutsTest)
#include "shortcuts_test.moc"
