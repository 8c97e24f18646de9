// SPDX-License-Identifier: MIT
#include "toolbars_fixture.h"

#include <support/test_case.h>
#include <ui_base/toolbars/tool_bar.h>

#include <random>

using namespace Vela::UiBase;

namespace {

/// A toolbar, and what is to be true of it once its slide has ended.
class Bench {
public:
  enum Kind { AtItsEdge, ByHand, InALayout };

  Bench(Kind kind, Qt::ToolBarArea area) : m_kind(kind), m_bar(new ToolBar(&m_window, area)) {
    m_window.resize(500, 400);
    m_bar->SetOffset({3, 4});
    m_bar->SetEnableAutoPosition(kind != ByHand);
    m_bar->AddAction(new QAction(QStringLiteral("one"), &m_window));
    auto* const column = new QVBoxLayout(&m_window);
    auto* const row = new QHBoxLayout;
    column->addLayout(row);
    column->addStretch(1);
    if (kind == InALayout)
      row->addWidget(m_bar);
    m_window.show();
    Vela::Test::settle();
    do_(QStringLiteral("SetPos"), 0); // a beginning that is known
    if (kind == AtItsEdge)
      do_(QStringLiteral("automatic"), 0);
  }

  static QStringList steps() {
    return {"ShowAnimated", "HideAnimated", "ShowMe", "HideMe", "show",   "hide",    "SetPos", "move",
            "automatic",    "resize",       "offset", "lock",   "enable", "advance", "parent"};
  }

  void do_(const QString& step, unsigned chance) {
    const QPoint point(static_cast<int>(chance % 300), static_cast<int>(chance / 7 % 200));
    const bool flag = chance % 2;
    if (step == "ShowAnimated" || step == "ShowMe" || step == "show")
      m_shown = true;
    if (step == "HideAnimated" || step == "HideMe" || step == "hide")
      m_shown = false;
    if (step == "ShowAnimated")
      m_bar->ShowAnimated();
    else if (step == "HideAnimated")
      m_bar->HideAnimated();
    else if (step == "ShowMe")
      m_bar->ShowMe();
    else if (step == "HideMe")
      m_bar->HideMe(flag);
    else if (step == "show")
      m_bar->show();
    else if (step == "hide")
      m_bar->hide();
    else if (step == "SetPos" && m_kind != InALayout)
      m_bar->SetPos(point), m_fixed = true, m_automatic = false, m_rest = point;
    else if (step == "move" && m_kind == ByHand &&
             (m_bar->isVisible() || !slide())) // else it is not heard of
      m_bar->move(point), along(m_rest) = along(point);
    else if (step == "automatic" && m_kind == AtItsEdge)
      m_bar->SetEnableAutoPosition(true), m_automatic = true, m_fixed = false;
    else if (step == "resize")
      m_window.resize(400 + point.x(), 300 + point.y());
    else if (step == "offset")
      m_bar->SetOffset(point / 10);
    else if (step == "lock")
      m_bar->SetLocked(m_locked = flag);
    else if (step == "enable")
      m_bar->setEnabled(m_enabled = flag);
    else if (step == "parent")
      m_window.setVisible(flag);
    else if (step == "advance")
      advance(static_cast<int>(chance % 400));
  }

  /// Empty when all is as it should be at the end.
  QString faults() {
    m_window.show();
    for (int i = 0; i < 10 && slide(); ++i)
      advance(300);
    m_bar->OnAutoPosition();
    QStringList faults;
    if (m_bar->isVisible() != m_shown)
      faults << "visible";
    if (m_bar->IsLocked() != m_locked || m_bar->isEnabled() != m_enabled)
      faults << "locked";
    const ToolBarPlace place = m_bar->Place();
    if (!m_shown)
      return faults.join(QLatin1Char(' '));
    if (place.out != 0)
      faults << "out";
    if (m_kind == InALayout) {
      const QRect before = m_bar->geometry();
      m_window.layout()->invalidate();
      m_window.layout()->activate();
      if (m_bar->geometry() != before || !m_window.rect().contains(before))
        faults << "slot";
    } else if (m_automatic && m_bar->pos() != place.atEdge(false, Qt::LeftToRight)) {
      faults << "edge";
    } else if (!m_automatic && place.onScreen() != m_rest) {
      faults << "rest";
    } else if (!m_automatic && along(m_bar->pos()) != along(m_rest)) {
      faults << "along";
    }
    return faults.join(QLatin1Char(' '));
  }

  QPropertyAnimation* slide() const {
    const auto all = m_bar->findChildren<QPropertyAnimation*>(QString(), Qt::FindDirectChildrenOnly);
    for (QPropertyAnimation* const each : all) {
      if (each->state() == QAbstractAnimation::Running)
        return each;
    }
    return nullptr;
  }
  void advance(int milliseconds) {
    if (QPropertyAnimation* const running = slide())
      running->setCurrentTime(std::min(running->duration(), running->currentTime() + milliseconds));
  }
  ToolBar& bar() { return *m_bar; }

private:
  int along(const QPoint& point) const {
    return m_bar->Orientation() == Qt::Horizontal ? point.x() : point.y();
  }
  int& along(QPoint& point) const { return m_bar->Orientation() == Qt::Horizontal ? point.rx() : point.ry(); }

  const Kind m_kind;
  QWidget m_window;
  ToolBar* const m_bar;
  bool m_shown = true;
  bool m_locked = false;
  bool m_enabled = true;
  bool m_automatic = true;
  bool m_fixed = false;
  QPoint m_rest;
};

} // namespace

class ToolBarPlaceTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void endsWhereItBelongs_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::newRow("at its edge") << int(Bench::AtItsEdge) << Qt::TopToolBarArea;
    QTest::newRow("by hand") << int(Bench::ByHand) << Qt::LeftToolBarArea;
    QTest::newRow("by hand, across") << int(Bench::ByHand) << Qt::BottomToolBarArea;
    QTest::newRow("in a layout") << int(Bench::InALayout) << Qt::TopToolBarArea;
  }
  // Each two steps after each other, with part of a slide between them, then at random.
  // VELA_WALK_SEED repeats a walk, VELA_WALK_STEPS makes it longer.
  void endsWhereItBelongs() {
    QFETCH(int, kind);
    QFETCH(Qt::ToolBarArea, area);
    const QStringList steps = Bench::steps();
    const auto run = [&](Bench& bench, const QStringList& names, std::mt19937& random) {
      for (const QString& name : names)
        bench.do_(name, static_cast<unsigned>(random()));
      const QString faults = bench.faults();
      return faults.isEmpty() ? QString() : faults + " after " + names.join(QLatin1Char(' '));
    };
    std::mt19937 fixed(7);
    for (const QString& first : steps) {
      for (const QString& second : steps) {
        Bench bench(static_cast<Bench::Kind>(kind), area);
        const QString fault = run(bench, {"HideAnimated", "advance", first, "advance", second}, fixed);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
      }
    }
    bool given = false;
    unsigned seed = qEnvironmentVariable("VELA_WALK_SEED").toUInt(&given);
    seed = given ? seed : 1;
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    const int rounds = std::max(50, qEnvironmentVariableIntValue("VELA_WALK_STEPS") / 10);
    Bench bench(static_cast<Bench::Kind>(kind), area);
    for (int i = 0; i < rounds; ++i) {
      QStringList names;
      for (int j = 0; j < 10; ++j)
        names << steps[static_cast<int>(random() % steps.size())];
      const QString fault = run(bench, names, random);
      QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
  }

  void slideGoesOnFromWhereItIs() {
    Bench bench(Bench::AtItsEdge, Qt::TopToolBarArea);
    ToolBar& bar = bench.bar();
    bar.hide();
    bar.ShowAnimated();
    QCOMPARE(bar.y(), -bar.height());
    QCOMPARE(bench.slide()->easingCurve().type(), QEasingCurve::OutExpo);
    bench.advance(20);
    const double out = bar.Place().out;
    QVERIFY(out > 0 && out < 1);
    bar.parentWidget()->resize(900, 500); // freezes it
    QCOMPARE(bar.Place().out, out);
    bar.HideAnimated();
    QCOMPARE(bar.Place().out, out);
    QVERIFY(bar.IsLocked() && bar.isEnabled() && !bar.InShowMode() && !bar.Buttons()[0]->isEnabled());
    bench.advance(300);
    QVERIFY(bar.isHidden() && bar.y() == -bar.height());
    bar.show();
    QCOMPARE(bar.pos(), QPoint(3, 4));
    bar.HideAnimated();
    bench.advance(300);
    bar.SetPos({5, 6});
    QCOMPARE(bar.pos(), QPoint(5, 6));
    bar.HideMe(true);
    bar.ShowAnimated();
    QVERIFY(!bar.HiddenByRequest());
    bar.hide();
    QVERIFY(!bench.slide());
  }
};

VELA_TEST_MAIN(ToolBarPlaceTest)
#include "tool_bar_place_test.moc"
