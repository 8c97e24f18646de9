// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <support/screen_record.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/placement_search.h>
#include <ui_base/popups/popup_sight.h>
#include <ui_base/popups/widget_pos_calculator.h>

using namespace Vela::UiBase;
using Vela::Test::OnlyAsItIs;
using Vela::Test::Rows;
using Vela::Test::showActive;

namespace {

/// A window with an owner in it and a popup for that, plain or with an arrow.
struct Stage {
  Stage(const QSize& size, const QRect& place, bool arrowed) {
    window.resize(size);
    owner.setGeometry(place);
    makePopup(arrowed);
    calculator.SetRefWidget(&owner);
    calculator.SetDirection(Bottom);
    window.show();
  }
  void makePopup(bool arrowed) {
    if (arrowed) {
      auto* const arrows = new ArrowedWindow(&window);
      content = new QWidget;
      content->setFixedSize(120, 50);
      arrows->AttachWidget(content);
      arrows->SetArrow(ArrowTop, 10, false, 0, 90, true, 0);
      popup = arrows;
    } else {
      popup = new QWidget(&window);
      popup->resize(120, 50);
    }
    popup->hide();
    calculator.SetWidget(popup);
  }
  ArrowedWindow* arrows() const { return qobject_cast<ArrowedWindow*>(popup); }
  QPoint answer() const {
    QPoint position;
    calculator.GetPosition(position, popup->rect(), arrows(),
                           arrows() ? arrows()->GetArrowPoint() : QPoint());
    return position;
  }
  void place() {
    placeInSight(calculator, [this] { return answer(); });
  }
  /// In global coordinates, without a shadow.
  QRect seen() const {
    const QRect rect =
        arrows() ? arrows()->GetBounds() | QRect(arrows()->GetArrowPoint(), QSize(1, 1)) : popup->rect();
    return rect.translated(popup->mapToGlobal(QPoint()));
  }
  QRect reference() const { return {owner.mapToGlobal(QPoint()), owner.size()}; }
  QPoint tip() const { return popup->mapToGlobal(arrows()->GetArrowPoint()); }
  QRect room() const {
    return popup->isWindow() ? popup->screen()->availableGeometry()
                             : QRect(window.mapToGlobal(QPoint()), window.size());
  }

  QWidget window;
  QWidget owner{&window};
  WidgetPosCalculator calculator;
  QPointer<QWidget> popup;
  QPointer<QWidget> content;
};

} // namespace

class PopupSightTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inTheCoordinatesOfThePopupsParent() {
    Stage stage({800, 600}, {380, 290, 40, 20}, false);
    showActive(stage.window);
    const QPoint origin = stage.window.mapToGlobal(QPoint(0, 0));
    QWidget panel(&stage.window);
    panel.move(300, 200);
    QWidget inPanel(&panel);
    QWidget alone;
    for (const auto& [popup, offset] : {std::pair(stage.popup.data(), QPoint()),
                                        std::pair(&inPanel, QPoint(-300, -200)), std::pair(&alone, origin)}) {
      popup->resize(100, 50);
      stage.calculator.SetWidget(popup);
      stage.calculator.SetRefWidget(&stage.owner);
      QCOMPARE(stage.answer(), QPoint(350, 319) + offset);
      stage.calculator.SetRefPoint(origin + QPoint(380, 290));
      QCOMPARE(stage.answer(), QPoint(331, 303) + offset);
    }
  }

  void sideWidgetsTakeSpace() {
    Stage stage({800, 600}, {380, 290, 40, 20}, false);
    showActive(stage.window);
    QWidget side(&stage.window);
    side.show();
    stage.popup->setProperty("sub_widgets", QVariant::fromValue(QList<QWidget*>{nullptr, &side}));
    const auto directionWith = [&](const QSize& size, const QVariant& direction) {
      side.resize(size);
      side.setProperty("direction_to", direction);
      stage.calculator.SetDirections({Bottom, AnyDirection});
      stage.answer();
      return stage.calculator.Direction();
    };
    QCOMPARE(directionWith({10, 202}, int(Bottom)), Top);
    QCOMPARE(directionWith({321, 10}, {}), Right); // on no side is on the left
    side.hide();
    QCOMPARE(directionWith({10, 202}, QVariant::fromValue(Bottom)), Bottom);
  }

  void nothingToPlace() {
    auto stage = std::make_unique<Stage>(QSize(800, 600), QRect(380, 290, 40, 20), false);
    showActive(stage->window);
    QWidget popup;
    WidgetPosCalculator calculator;
    const auto isPlaced = [&] {
      QPoint position;
      return calculator.GetPosition(position, QRect(), false, QPoint());
    };
    calculator.SetWidget(&popup);
    QVERIFY(!isPlaced());
    calculator.SetRefWidget(&stage->owner);
    QVERIFY(isPlaced());
    QCOMPARE(calculator.Position(true), QPoint()); // it has no arrows
    QVERIFY(calculator.LastSearch().candidates().isEmpty());
    stage.reset();
    QTRY_VERIFY(!QApplication::activeWindow());
    QVERIFY(!isPlaced());
    calculator.SetRefPoint({-5000, -5000});
    QVERIFY(isPlaced() && !calculator.LastSearch().freeArea());
  }

  void everywhereInSight_data() {
    const Rows<QSize> row("window");
    row("tiny", {90, 40});
    row("small", {300, 200});
    row("large", {3840, 2160});
  }
  void everywhereInSight() {
    QFETCH(QSize, window);
    for (const bool arrowed : {false, true}) {
      Stage stage(window, {0, 0, 24, 16}, arrowed);
      for (int i = 0; i < 64; ++i) {
        const int x = i % 8;
        const int y = i / 8;
        if (x % 7 != 0 && y % 7 != 0)
          continue;
        stage.owner.move((window.width() - 24) * x / 7, (window.height() - 16) * y / 7);
        for (const EDirection side : {Left, Top, Right, Bottom}) {
          stage.makePopup(arrowed);
          stage.calculator.SetDirection(side);
          stage.calculator.SetBaseOffset(2 + i % 3 * 4);
          stage.calculator.SetAlignment(EWidgetsAlign(i % 3));
          stage.place();
          stage.popup->setVisible(!stage.popup->isWindow());
          QVERIFY2(stage.room().contains(stage.seen()), qPrintable(stage.calculator.LastSearch().toString()));
          QVERIFY(!stage.seen().intersects(stage.reference()));
          if (arrowed) {
            QVERIFY(stage.reference().adjusted(-11, -11, 11, 11).contains(stage.tip()));
            QVERIFY(!stage.seen().adjusted(5, 5, -5, -5).contains(stage.tip()));
          }
        }
      }
      VELA_COMPARE_SCREEN(QStringLiteral("popups_%1_%2").arg(arrowed).arg(window.width()), OnlyAsItIs);
    }
  }

  void answersInSightStand() {
    Stage stage({640, 480}, {300, 200, 40, 20}, false);
    const auto answers = [&](const QPoint& answer) {
      placeInSight(stage.calculator, [&] { return answer; });
      return stage.popup->pos();
    };
    QCOMPARE(answers({0, 0}), QPoint(0, 0)); // not even at a distance of the edges
    QCOMPARE(answers({520, 430}), QPoint(520, 430));
    QCOMPARE(answers({521, 430}), QPoint(260, 229));
    QCOMPARE(stage.calculator.Direction(), Bottom);
  }

  void theRoomInAnotherActiveWindowSaysNothing() {
    Stage stage({640, 480}, {300, 240, 40, 20}, true);
    QWidget palette;
    palette.resize(100, 60);
    showActive(palette);
    stage.place();
    SArrowParam arrow;
    QVERIFY(stage.arrows()->GetCurrentArrowParam(arrow));
    QCOMPARE(arrow.offset, 0);
    QCOMPARE(stage.tip().x(), stage.reference().center().x());
  }

  void leavesASmallParentAndComesHome() {
    Stage stage({640, 480}, {300, 200, 40, 20}, true);
    QWidget layer(&stage.window);
    layer.setGeometry(250, 180, 100, 60);
    layer.show();
    stage.popup->setParent(&layer);
    stage.place();
    QCOMPARE(stage.popup->parentWidget(), &stage.window);
    QVERIFY(!stage.popup->isWindow() && stage.room().contains(stage.seen()));
    layer.setGeometry(stage.window.rect());
    stage.place();
    QCOMPARE(stage.popup->parentWidget(), &layer);

    stage.window.resize(90, 40);
    layer.setGeometry(0, 0, 90, 40);
    stage.owner.move(0, 0);
    stage.place();
    // While it is shown it stays in its window.
    stage.popup->show();
    stage.window.resize(640, 480);
    layer.setGeometry(stage.window.rect());
    stage.place();
    QVERIFY(stage.popup->isWindow() && stage.popup->isVisible());
    QVERIFY(stage.room().contains(stage.seen()) && !stage.seen().intersects(stage.reference()));
    stage.popup->hide();
    bringHome(*stage.popup);
    QCOMPARE(stage.popup->parentWidget(), &layer);
  }

  void whatIsTooLargeIsAskedToBeSmaller() {
    Stage stage({640, 480}, {300, 200, 40, 20}, false);
    stage.popup->resize(400, 460);
    const auto fit = [&stage](const QSize& room) {
      stage.popup->resize(stage.popup->size().boundedTo(room));
    };
    placeInSight(
        stage.calculator, [&stage] { return stage.answer(); }, Qt::Tool, fit);
    QVERIFY(!stage.popup->isWindow() && stage.room().contains(stage.seen()));
    QVERIFY(!stage.seen().intersects(stage.reference()));
    QVERIFY(stage.popup->width() >= 200 && stage.popup->height() >= 200); // no smaller than it must
  }

  void awayFromItsParentItStillDiesWithIt() {
    Stage stage({90, 40}, {0, 0, 40, 20}, false);
    const QPointer<QWidget> home(new QWidget(&stage.window));
    stage.popup->setParent(home);
    placeInSight(stage.calculator, [] { return QPoint(900, 900); });
    QVERIFY(stage.popup->isWindow() && stage.popup->parentWidget() != home);
    delete home;
    QVERIFY(!stage.popup);
  }

  void whatTheAnswerEnds() {
    for (const QString what : {"popup", "calculator", "owner", "content"}) {
      Stage stage({300, 200}, {300, 200, 40, 20}, true);
      auto* const calculator = new WidgetPosCalculator(&stage.window);
      calculator->SetWidget(stage.popup);
      auto* const owner = new QWidget(&stage.window);
      calculator->SetRefWidget(owner);
      QHash<QString, QObject*> parts{
          {"popup", stage.popup}, {"calculator", calculator}, {"owner", owner}, {"content", stage.content}};
      placeInSight(*calculator, [&] {
        delete parts.take(what);
        return QPoint(-500, -500);
      });
      QCOMPARE(!stage.popup, what == "popup");
    }
  }

  void windowForgetsTheFocusOfWhatLeavesIt() {
    Stage stage({640, 480}, {30, 10, 20, 10}, true);
    stage.popup->show();
    stage.content->setFocus();
    stage.popup->hide(); // in a window that is not active it keeps the focus for the next time
    QCOMPARE(stage.window.focusWidget(), stage.content.data());
    stage.window.resize(90, 40);
    stage.place();
    QVERIFY(stage.popup->isWindow() && !stage.window.focusWidget());
  }

  void sideWidgetsAreKeptInSightToo() {
    Stage stage({640, 480}, {300, 360, 40, 20}, false);
    QWidget side(&stage.window);
    side.resize(120, 60);
    side.setProperty("direction_to", int(Bottom));
    side.show();
    auto* const dead = new QWidget(&stage.window);
    dead->setProperty("direction_to", int(Top));
    stage.popup->setProperty("sub_widgets", QVariant::fromValue(QList<QWidget*>{dead, nullptr, &side}));
    delete dead;
    placeInSight(stage.calculator, [] { return QPoint(300, 470); });
    QCOMPARE(stage.popup->geometry().bottom() + 10, stage.owner.y() - 1);
  }
};

VELA_TEST_MAIN(PopupSightTest)
#include "popup_sight_test.moc"
