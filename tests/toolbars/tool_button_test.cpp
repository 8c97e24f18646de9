// SPDX-License-Identifier: MIT
#include "toolbars_fixture.h"

#include <support/input.h>
#include <support/screen_record.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>

using namespace Vela::UiBase;

namespace {

QIcon twoPictures() {
  QIcon icon = coloredIcon(Qt::red);
  icon.addPixmap(coloredIcon(Qt::green).pixmap(32), QIcon::Active);
  return icon;
}

/// A button that tells in which order things happen.
class HeardButton : public ToolButton {
public:
  HeardButton(QAction* action, ToolBar* bar, QWidget* parent) : ToolButton(action, bar, parent) {
    connect(this, &QToolButton::toggled, this, [this] { heard += "toggled"; });
    connect(action, &QAction::toggled, this, [this] { heard += "action toggled"; });
    connect(action, &QAction::triggered, this, [this] { note("triggered"); });
    connect(this, &ToolButton::ToolButtonClicked, this, [this] { note("clicked"); });
  }
  QStringList heard;

protected:
  void ClickedHandler() override { note("handler"); }

private:
  void note(const QString& what) { heard += ClickedHandlerRequested() ? what + "!" : what; }
};

class MouseLog : public QObject {
public:
  bool eventFilter(QObject*, QEvent* event) override {
    const auto* const mouse = dynamic_cast<QMouseEvent*>(event);
    if (mouse)
      events.append({mouse->type(), mouse->position()});
    return false;
  }
  QList<QPair<QEvent::Type, QPointF>> events;
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
    button = new HeardButton(&action, bar, bar);
    button->setGeometry(50, 10, 40, 40);
    Vela::Test::showActive(window);
    Vela::Test::moveMouse(window, {1, 1});
  }

  QWidget window;
  ToolBar* bar;
  QAction action{"Grid"};
  HeardButton* button;
};

} // namespace

class ToolButtonTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void clickGoesOnInOrder() {
    Stage stage;
    stage.action.setCheckable(true);
    Vela::Test::click(*stage.button);
    QCOMPARE(std::exchange(stage.button->heard, {}),
             QStringList({"toggled", "action toggled", "triggered!", "clicked!", "handler"}));
    stage.button->SuppressClickedHandler(true);
    Vela::Test::click(*stage.button);
    QVERIFY(!std::exchange(stage.button->heard, {}).contains("handler"));
  }

  void iconFollowsTheMouse() {
    Stage stage;
    stage.action.setCheckable(true);
    QCOMPARE(shownColor(*stage.button), QColor(Qt::red));
    Vela::Test::moveMouse(*stage.button);
    QTRY_COMPARE(shownColor(*stage.button), QColor(Qt::green));
    stage.action.setText("Another text"); // Qt sets the action's icon again
    QCOMPARE(shownColor(*stage.button), QColor(Qt::green));
    stage.action.setChecked(true);
    Vela::Test::moveMouse(stage.window, {1, 1});
    QTRY_VERIFY(!stage.button->underMouse());
    QCOMPARE(shownColor(*stage.button), QColor(Qt::green)); // stays while checked
    stage.action.setChecked(false);
    QCOMPARE(shownColor(*stage.button), QColor(Qt::red));
    stage.action.setIcon(coloredIcon(Qt::blue));
    QCOMPARE(shownColor(*stage.button), QColor(Qt::blue));
    stage.action.setIcon(twoPictures());
    stage.action.setEnabled(false);
    Vela::Test::moveMouse(*stage.button);
    Vela::Test::settle();
    QCOMPARE(shownColor(*stage.button), QColor(Qt::red));
  }

  void picturesAreMadeAnewWhenTheLookChanges() {
    Stage stage;
    Vela::Test::moveMouse(*stage.button);
    QTest::mousePress(stage.window.windowHandle(), Qt::LeftButton, {}, Vela::Test::inWindow(*stage.button));
    Vela::Test::moveMouse(*stage.button, {60, 20}); // held, it is told of no leaving
    QTRY_COMPARE(shownColor(*stage.button), QColor(Qt::red));
    Vela::Test::moveMouse(*stage.button);
    QTRY_COMPARE(shownColor(*stage.button), QColor(Qt::green));
    for (const auto type :
         {QEvent::None, QEvent::PaletteChange, QEvent::StyleChange, QEvent::ScreenChangeInternal}) {
      const qint64 before = stage.button->icon().cacheKey();
      QEvent event(type);
      if (QApplication::sendEvent(stage.button, &event); type == QEvent::None)
        Q_EMIT Vela::Resource::Styles::Instance().changed();
      QVERIFY(stage.button->icon().cacheKey() != before);
      QCOMPARE(shownColor(*stage.button), QColor(Qt::green));
    }
    stage.button->setIconSize({16, 16});
    Vela::Test::moveMouse(*stage.button, {60, 20});
    QTRY_COMPARE(shownColor(*stage.button), QColor(Qt::red));
    QCOMPARE(stage.button->icon().availableSizes().size(), 2);
    QImage image(48, 48, QImage::Format_RGB32);
    QPainter painter(&image);
    stage.button->icon().paint(&painter, image.rect());
    QCOMPARE(image.pixelColor(24, 24), QColor(Qt::red));
  }

  void whatIsSetOnTheButtonLasts() {
    Stage stage;
    stage.button->setCheckable(true);
    stage.button->setChecked(true);
    stage.action.setText("Another text");
    QVERIFY(stage.button->isChecked() && !stage.action.isCheckable());
    stage.button->setEnabled(false);
    stage.action.setEnabled(false);
    stage.action.setEnabled(true);
    QVERIFY(!stage.button->isEnabled());
    stage.button->setEnabled(true);
    stage.action.setEnabled(false);
    QVERIFY(!stage.button->isEnabled());
    TooltipObject* const tooltip = stage.button->GetTooltipObject();
    tooltip->SetTooltipFactory([] { return new QLabel("rich"); }, "Rich", true);
    stage.action.setToolTip("Hides the grid");
    QCOMPARE(tooltip->Text(), QString("Rich"));
    stage.button->RefreshTooltip();
    QCOMPARE(tooltip->Text(), QString("Hides the grid"));
  }

  void toolbarHearsEveryMouseEventOnce_data() {
    QTest::addColumn<bool>("locked");
    QTest::newRow("locked") << true;
    QTest::newRow("disabled") << false;
  }
  void toolbarHearsEveryMouseEventOnce() {
    QFETCH(bool, locked);
    Stage stage;
    stage.button->setEnabled(locked);
    stage.button->SetLocked(locked);
    const QPoint start = stage.bar->pos() + QPoint(60, 20);
    Vela::Test::moveMouse(stage.window, start);
    Vela::Test::settle();
    MouseLog log;
    stage.bar->installEventFilter(&log);
    QTest::mousePress(stage.window.windowHandle(), Qt::RightButton, {}, start);
    Vela::Test::moveMouse(stage.window, start + QPoint(3, 1));
    QTest::mouseRelease(stage.window.windowHandle(), Qt::RightButton, {}, start + QPoint(3, 1));
    Vela::Test::settle();
    using Event = QPair<QEvent::Type, QPointF>;
    const QList<Event> expected{{QEvent::MouseButtonPress, {60, 20}},
                                {QEvent::MouseMove, {63, 21}},
                                {QEvent::MouseButtonRelease, {63, 21}}};
    QCOMPARE(log.events, expected);
  }

  void lockedButtonTakesNothing() {
    Stage stage;
    stage.action.setCheckable(true);
    QTest::mousePress(stage.window.windowHandle(), Qt::LeftButton, {}, Vela::Test::inWindow(*stage.button));
    stage.button->SetLocked(true);
    QVERIFY(!stage.button->isDown());
    QTest::mouseRelease(stage.window.windowHandle(), Qt::LeftButton, {}, Vela::Test::inWindow(*stage.button));
    Vela::Test::click(*stage.button);
    stage.button->click();
    stage.button->setFocus();
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_Space);
    QCOMPARE(stage.button->heard, QStringList());
    QVERIFY(!stage.action.isChecked() && !stage.button->ClickedHandlerRequested());
    QVERIFY(!stage.button->GetTooltipObject()->IsTooltipEnabled());
    stage.button->SetLocked(false);
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_Space);
    QVERIFY(stage.action.isChecked() && stage.button->GetTooltipObject()->IsTooltipEnabled());
  }

  void actionsAndIconsAreMadeAsTold() {
    QWidget window;
    window.show();
    const QIcon files = ToolButton::CreateToolButtonIcon(QString(), ":/resources/images/lock_normal.png");
    QVERIFY(!files.isNull());
    QAction* const hides = ToolButton::CreateToolButtonAction(&window, files, "Hide", "Hides it", &window,
                                                              SLOT(hide()), true, true);
    QVERIFY(hides->isCheckable() && hides->isChecked() && hides->toolTip() == "Hides it");
    hides->trigger();
    QVERIFY(window.isHidden());
    window.addAction(hides);
    QCOMPARE(QtUiToolkit::FindAction(&window, "Hide"), hides);
    const QAction* const plain = ToolButton::CreateToolButtonAction(&window, QString(), QString(), "A", "B");
    QVERIFY(!plain->isCheckable() && !plain->isChecked() && plain->icon().isNull());
  }

  void licenseLocksPaidCommands() {
    auto& service = Vela::License::LicenseService::Instance();
    auto provider = std::make_unique<License>();
    License* const license = provider.get();
    service.setProvider(std::move(provider));
    Stage stage;
    NamedCommand command("paid");
    command.setIsPaidFeature(true);
    command.setToolTip("Own tooltip");
    auto* const button = new ToolButton(&command, stage.bar, stage.bar);
    button->show();
    const auto badge = [button] { return button->findChild<QLabel*>("lock_badge"); };
    QVERIFY(button->IsLocked() && badge() && badge()->isVisible());
    VELA_COMPARE_SCREEN("paid_button", Vela::Test::AlsoDark);
    button->click();
    QCOMPARE(command.runs, 0);
    license->current = Vela::License::TrialLicense;
    service.refresh();
    QVERIFY(!button->IsLocked() && !badge());
    QCOMPARE(button->toolTip(), QString("Own tooltip"));
    service.setProvider(nullptr);
    button->click();
    QCOMPARE(command.runs, 1);
  }
};

VELA_TEST_MAIN(ToolButtonTest)
#include "tool_button_test.moc"
