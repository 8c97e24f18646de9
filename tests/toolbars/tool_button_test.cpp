// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/commands/command_id.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <vlk_common_res/icons.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QWindow>

using namespace Vela::UiBase;

namespace {

QPixmap colored(Qt::GlobalColor color) {
  QPixmap pixmap(32, 32);
  pixmap.fill(color);
  return pixmap;
}

QIcon twoPictures() {
  QIcon icon(colored(Qt::red));
  icon.addPixmap(colored(Qt::green), QIcon::Active);
  return icon;
}

QColor shown(const QToolButton& button) { return button.icon().pixmap(32).toImage().pixelColor(16, 16); }

/// A button that tells in which order things happen.
class HeardButton : public ToolButton {
public:
  HeardButton(QAction* action, ToolBar* bar, QWidget* parent) : ToolButton(action, bar, parent) {
    connect(this, &QToolButton::toggled, this, [this] { heard += "toggled"; });
    connect(action, &QAction::toggled, this, [this] { heard += "action toggled"; });
    connect(action, &QAction::triggered, this, [this] { note("triggered"); });
    connect(this, &ToolButton::ToolButtonClicked, this, [this] { note("clicked"); });
  }
  using ToolButton::EnableActions;
  using ToolButton::SetCallbackHandler;
  QStringList heard;

protected:
  void ClickedHandler() override { note("handler"); }

private:
  void note(const QString& what) { heard += ClickedHandlerRequested() ? what + "!" : what; }
};

class MouseLog : public QObject {
public:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease ||
        event->type() == QEvent::MouseMove) {
      const auto* const mouse = static_cast<QMouseEvent*>(event);
      events += QString("%1 %2,%3 %4,%5")
                    .arg(event->type())
                    .arg(mouse->position().x())
                    .arg(mouse->position().y())
                    .arg(mouse->globalPosition().x())
                    .arg(mouse->globalPosition().y());
    }
    return false;
  }
  QStringList events;
};

class Answer : public ToolButton::IToolButtonCallbackHandler {
public:
  bool operator()(QAction*) override {
    ++asked;
    return answer;
  }
  bool answer = true;
  int asked = 0;
};

class PaidCommand : public CommandBase {
public:
  PaidCommand() : CommandBase(nullptr) { setIsPaidFeature(true); }
  QString commandId() const override { return QStringLiteral("paid"); }
  bool onExecuteAsync(bool) override { return ++runs; }
  int runs = 0;
};

class License : public Vela::License::ILicenseProvider {
public:
  Vela::License::ELicenseState state() const override { return current; }
  bool activate(const QString&, QString*) override { return false; }
  Vela::License::ELicenseState current = Vela::License::NoLicense;
};

struct Stage {
  Stage() {
    window.resize(300, 200);
    bar = new ToolBar(&window, Qt::TopToolBarArea);
    bar->SetEnableAutoPosition(false);
    bar->setMinimumSize(200, 60);
    bar->move(20, 30);
    action.setIcon(twoPictures());
    action.setToolTip("Shows the grid");
    button = new HeardButton(&action, bar, bar);
    button->setGeometry(50, 10, 40, 40);
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
      qFatal("the window does not become active");
    mouse({1, 1});
  }
  void mouse(const QPoint& point) { QTest::mouseMove(window.windowHandle(), point); }
  QPoint middle() const { return button->mapTo(&window, button->rect().center()); }
  void click() { QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, middle()); }

  QWidget window;
  ToolBar* bar;
  QAction action{"Grid"};
  HeardButton* button;
};

} // namespace

class ToolButtonTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void clickGoesOnInOrder();
  void iconFollowsTheMouse();
  void pictureFollowsIconAndPalette();
  void whatIsSetOnTheButtonLasts();
  void tooltipFollowsTheActionUnlessItHasItsOwn();
  void toolbarHearsEveryMouseEventOnce_data();
  void toolbarHearsEveryMouseEventOnce();
  void lockedButtonTakesNothing();
  void licenseLocksPaidCommands();
  void firstRefusalEndsTheRound();
};

void ToolButtonTest::clickGoesOnInOrder() {
  Stage stage;
  stage.action.setCheckable(true);
  stage.click();
  QCOMPARE(std::exchange(stage.button->heard, {}),
           QStringList({"toggled", "action toggled", "triggered!", "clicked!", "handler"}));
  stage.button->SuppressClickedHandler(true);
  stage.click();
  QVERIFY(!std::exchange(stage.button->heard, {}).contains("handler"));
  QMetaObject::invokeMethod(stage.button, "OnClicked", Qt::DirectConnection, Q_ARG(bool, false));
  QCOMPARE(stage.button->heard, QStringList({"clicked", "handler"}));
}

void ToolButtonTest::iconFollowsTheMouse() {
  Stage stage;
  stage.action.setCheckable(true);
  QCOMPARE(shown(*stage.button), QColor(Qt::red));
  stage.mouse(stage.middle());
  QTRY_COMPARE(shown(*stage.button), QColor(Qt::green));
  stage.action.setText("Another text"); // Qt sets the action's icon again
  QCOMPARE(shown(*stage.button), QColor(Qt::green));
  stage.action.setChecked(true);
  stage.mouse({1, 1});
  QTRY_VERIFY(!stage.button->underMouse());
  QCOMPARE(shown(*stage.button), QColor(Qt::green)); // stays while checked
  stage.action.setChecked(false);
  QCOMPARE(shown(*stage.button), QColor(Qt::red));
  stage.action.setEnabled(false);
  stage.mouse(stage.middle());
  Vela::Test::settle();
  QCOMPARE(shown(*stage.button), QColor(Qt::red));
  stage.action.setEnabled(true);
  stage.mouse({1, 1});
  QTRY_VERIFY(!stage.button->underMouse());
  stage.button->SetKeepIcon(true);
  stage.mouse(stage.middle());
  Vela::Test::settle();
  QCOMPARE(shown(*stage.button), QColor(Qt::red));
}

void ToolButtonTest::pictureFollowsIconAndPalette() {
  Stage stage;
  stage.mouse(stage.middle());
  QTRY_COMPARE(shown(*stage.button), QColor(Qt::green));
  stage.action.setIcon(QIcon(colored(Qt::blue)));
  QCOMPARE(shown(*stage.button), QColor(Qt::blue));
  stage.mouse({1, 1});
  QTRY_VERIFY(!stage.button->underMouse());
  QCOMPARE(shown(*stage.button), QColor(Qt::blue));

  stage.button->setIconSize({20, 20});
  stage.action.setIcon(Vela::Resource::Icons::icon("orbit"));
  stage.mouse(stage.middle());
  QTRY_VERIFY(stage.button->icon().availableSizes().contains(QSize(20, 20))); // sharp
  const QImage light = stage.button->icon().pixmap(20).toImage();
  Vela::Resource::Styles::Instance().setPalette(Vela::Resource::Dark);
  const QImage dark = stage.button->icon().pixmap(20).toImage();
  Vela::Resource::Styles::Instance().setPalette(Vela::Resource::Light);
  QVERIFY(dark != light);
  QCOMPARE(stage.button->icon().pixmap(20).toImage(), light);
}

void ToolButtonTest::whatIsSetOnTheButtonLasts() {
  Stage stage;
  QSignalSpy toggled(stage.button, &QToolButton::toggled);
  stage.button->setCheckable(true);
  stage.button->setChecked(true);
  stage.action.setText("Another text");
  QVERIFY(stage.button->isCheckable() && stage.button->isChecked() && !stage.action.isCheckable());
  QCOMPARE(toggled.count(), 1);
  stage.button->setEnabled(false);
  stage.action.setEnabled(false);
  stage.action.setEnabled(true);
  QVERIFY(!stage.button->isEnabled());
  stage.button->setEnabled(true);
  stage.action.setEnabled(false);
  QVERIFY(!stage.button->isEnabled());
  stage.action.setEnabled(true);
  QVERIFY(stage.button->isEnabled());
}

void ToolButtonTest::tooltipFollowsTheActionUnlessItHasItsOwn() {
  Stage stage;
  TooltipObject* const tooltip = stage.button->GetTooltipObject();
  QCOMPARE(tooltip->Text(), QString("Shows the grid"));
  stage.action.setToolTip("Hides the grid");
  QCOMPARE(tooltip->Text(), QString("Hides the grid"));
  tooltip->SetTooltipFactory([] { return new QLabel("rich"); }, "Rich", true);
  stage.action.setToolTip("Shows the grid");
  QCOMPARE(tooltip->Text(), QString("Rich"));
  stage.button->RefreshTooltip();
  QCOMPARE(tooltip->Text(), QString("Shows the grid"));
}

void ToolButtonTest::toolbarHearsEveryMouseEventOnce_data() {
  QTest::addColumn<bool>("enabled");
  QTest::addColumn<bool>("locked");
  QTest::newRow("free") << true << false;
  QTest::newRow("locked") << true << true;
  QTest::newRow("disabled") << false << false;
}

void ToolButtonTest::toolbarHearsEveryMouseEventOnce() {
  QFETCH(bool, enabled);
  QFETCH(bool, locked);
  Stage stage;
  stage.mouse(stage.middle());
  Vela::Test::settle();
  stage.button->setEnabled(enabled);
  stage.button->SetLocked(locked);
  const QPoint start = stage.bar->pos() + QPoint(60, 20);
  stage.mouse(start);
  Vela::Test::settle();
  MouseLog log;
  stage.bar->installEventFilter(&log);
  QTest::mousePress(stage.window.windowHandle(), Qt::RightButton, {}, start);
  stage.mouse(start + QPoint(3, 1));
  stage.mouse(start + QPoint(6, 2));
  QTest::mouseRelease(stage.window.windowHandle(), Qt::RightButton, {}, start + QPoint(6, 2));
  Vela::Test::settle();
  const auto line = [&](QEvent::Type type, const QPoint& inBar) {
    const QPoint global = stage.bar->mapToGlobal(inBar);
    return QString("%1 %2,%3 %4,%5").arg(type).arg(inBar.x()).arg(inBar.y()).arg(global.x()).arg(global.y());
  };
  QStringList expected{line(QEvent::MouseButtonPress, {60, 20}), line(QEvent::MouseMove, {63, 21}),
                       line(QEvent::MouseMove, {66, 22}), line(QEvent::MouseButtonRelease, {66, 22})};
  QCOMPARE(log.events, expected);
}

void ToolButtonTest::lockedButtonTakesNothing() {
  Stage stage;
  stage.action.setCheckable(true);
  QTest::mousePress(stage.window.windowHandle(), Qt::LeftButton, {}, stage.middle());
  stage.button->SetLocked(true);
  QVERIFY(!stage.button->isDown());
  QTest::mouseRelease(stage.window.windowHandle(), Qt::LeftButton, {}, stage.middle());
  stage.click();
  stage.button->click();
  stage.button->setFocus();
  QTest::keyClick(stage.window.windowHandle(), Qt::Key_Space);
  stage.button->OnClicked(true);
  QCOMPARE(stage.button->heard, QStringList());
  QVERIFY(!stage.action.isChecked() && !stage.button->ClickedHandlerRequested());
  QVERIFY(!stage.button->GetTooltipObject()->IsTooltipEnabled());
  stage.button->SetLocked(false);
  QTest::keyClick(stage.window.windowHandle(), Qt::Key_Space);
  QVERIFY(stage.action.isChecked() && stage.button->GetTooltipObject()->IsTooltipEnabled());
}

void ToolButtonTest::licenseLocksPaidCommands() {
  auto& service = Vela::License::LicenseService::Instance();
  auto provider = std::make_unique<License>();
  License* const license = provider.get();
  service.setProvider(std::move(provider));
  Stage stage;
  PaidCommand command;
  command.setToolTip("Own tooltip");
  auto* const button = new ToolButton(&command, stage.bar, stage.bar);
  button->show();
  const auto badge = [button] { return button->findChild<QLabel*>("lock_badge"); };
  QVERIFY(button->IsLocked() && badge() && badge()->isVisible());
  QVERIFY(button->toolTip().startsWith("This is a paid feature. \nPlease"));
  button->click();
  QCOMPARE(command.runs, 0);
  license->current = Vela::License::TrialLicense;
  service.refresh();
  QVERIFY(!button->IsLocked() && !badge());
  QCOMPARE(button->toolTip(), QString("Own tooltip"));
  license->current = Vela::License::NoLicense;
  service.refresh();
  QVERIFY(button->IsLocked() && badge());
  service.setProvider(nullptr);
  QVERIFY(!button->IsLocked());
  button->click();
  QCOMPARE(command.runs, 1);
}

void ToolButtonTest::firstRefusalEndsTheRound() {
  Stage stage;
  Answer first;
  Answer second;
  stage.button->EnableActions(); // nobody to ask
  QVERIFY(stage.button->isEnabled());
  stage.button->SetCallbackHandler(&stage.action, &first);
  stage.button->SetCallbackHandler(&stage.action, &second);
  first.answer = false;
  stage.button->EnableActions();
  QVERIFY(!stage.button->isEnabled() && !stage.action.isEnabled());
  QCOMPARE(first.asked, 1);
  QCOMPARE(second.asked, 0);
  first.answer = true;
  stage.button->EnableActions();
  QVERIFY(stage.button->isEnabled() && stage.action.isEnabled());
  QCOMPARE(second.asked, 1);
}

VELA_TEST_MAIN(ToolButtonTest)
#include "tool_button_test.moc"
