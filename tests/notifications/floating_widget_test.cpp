// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <ui_base/notifications/floating_widget.h>

using namespace Vela::UiBase;
using Vela::Test::Rows;
using Vela::Test::settle;

namespace {

/// Counts presses that reach it, and shows the stage for a widget that floats over it.
class View : public QWidget {
public:
  View() { resize(200, 200); }
  int presses = 0;

protected:
  void mousePressEvent(QMouseEvent*) override { ++presses; }
};

class FixedContent : public QWidget {
public:
  explicit FixedContent(const QSize& size) { setFixedSize(size); }

protected:
  void mousePressEvent(QMouseEvent* event) override { event->accept(); }
};

} // namespace

class FloatingWidgetTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void standsWhereItsMarginsAndTheLayoutSay() {
    View view;
    FloatingWidget host(&view);
    host.setMargins({10, 20, 50, 40});
    host.addWidget(new FixedContent({100, 30}));
    view.show();
    view.resize(400, 300);
    QCOMPARE(host.geometry(), QRect(130, 20, 100, 30));
    host.setAlignment(Qt::AlignBottom | Qt::AlignRight);
    QCOMPARE(host.geometry(), QRect(250, 230, 100, 30));
    view.setLayoutDirection(Qt::RightToLeft);
    view.resize(410, 300);
    QCOMPARE(host.geometry(), QRect(10, 230, 100, 30));
  }

  void arrangements_data() {
    // Of four of which one is hidden; where the last one is, and the size of all.
    const Rows<LayoutBaseWidget::EArrangement, QPoint, QSize> row("arrangement", "last", "size");
    row("column", LayoutBaseWidget::Column, {3, 47}, {26, 70});
    row("row", LayoutBaseWidget::Row, {47, 3}, {70, 26});
    row("grid", LayoutBaseWidget::Grid, {3, 25}, {48, 48});
  }
  void arrangements() {
    QFETCH(LayoutBaseWidget::EArrangement, arrangement);
    LayoutBaseWidget host;
    host.setContentMargin(3);
    host.setSpacing(2);
    for (int i = 0; i < 4; ++i) {
      if (i == 3)
        host.setArrangement(arrangement, 2);
      host.addWidget(new FixedContent({20, 20}));
    }
    host.widgets().at(1)->hide();
    for (QWidget* const unfit : std::initializer_list<QWidget*>{nullptr, &host, host.widgets().at(0)})
      host.addWidget(unfit);
    QCOMPARE(host.widgets().size(), 4);
    host.show();
    QTEST(host.widgets().constLast()->pos(), "last");
    QTEST(host.fittingSize({500, 500}), "size");
    QCOMPARE(host.fittingSize({9, 9}), QSize(9, 9));
    host.setArrangement(LayoutBaseWidget::Column, 0);
    QCOMPARE(host.fittingSize({500, 500}), QSize(26, 70));
    QCOMPARE(std::tuple(host.arrangement(), host.contentMargin(), host.spacing()),
             std::tuple(LayoutBaseWidget::Column, 3, 2));
  }

  void visibleOnlyWithVisibleContent() {
    View view;
    FloatingWidget host(&view);
    view.show();
    host.show();
    QVERIFY2(!host.isVisible(), "nothing in it");
    auto* content = new FixedContent({20, 20});
    content->hide();
    host.addWidget(content);
    QVERIFY2(!host.isVisible(), "its content was hidden on purpose");
    auto* seen = new FixedContent({20, 20});
    seen->show(); // as a window
    host.addWidget(seen);
    QVERIFY(host.isVisible() && seen->isVisible());
    delete seen;
    content->show();
    QVERIFY(host.isVisible() && content->isVisible());
    content->hide();
    QVERIFY(!host.isVisible());
    host.hide();
    content->show();
    QVERIFY2(!host.isVisible(), "hidden on purpose, it stays hidden");
    host.show();
    QVERIFY(host.isVisible());
    delete content;
    settle();
    QVERIFY(!host.isVisible());
  }

  void clicksBesideTheContentReachTheView() {
    QWidget window;
    window.resize(200, 200);
    View view;
    view.setParent(&window);
    FloatingWidget host(&window);
    host.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    host.addWidget(new FixedContent({100, 20}));
    host.addWidget(new FixedContent({40, 20}));
    Vela::Test::showActive(window);
    const auto press = [&](const QPoint& at) {
      Vela::Test::clickAt(window, at);
      return view.presses;
    };
    QCOMPARE(press({90, 15}), 0);
    QCOMPARE(press({20, 40}), 0);
    QCOMPARE(press({100, 40}), 1); // beside the narrow one
    QCOMPARE(press({150, 15}), 2);
  }
};

VELA_TEST_MAIN(FloatingWidgetTest)
#include "floating_widget_test.moc"
