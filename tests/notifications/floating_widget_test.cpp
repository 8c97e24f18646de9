// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/notifications/floating_widget.h>

#include <QLabel>
#include <QMouseEvent>
#include <QPointer>

using namespace Vela::UiBase;
using Vela::Test::settle;

namespace {

/// Counts presses that reach it, and shows the stage for a widget that floats over it.
class View : public QWidget {
public:
  explicit View(const QSize& size = {200, 200}) { resize(size); }
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
  void placement_data() {
    const Vela::Test::Rows<Qt::Alignment, bool, QRect> row("alignment", "rightToLeft", "expected");
    row("top centre", Qt::AlignTop | Qt::AlignHCenter, false, {130, 20, 100, 30});
    row("bottom right", Qt::AlignBottom | Qt::AlignRight, false, {250, 230, 100, 30});
    row("bottom right, mirrored", Qt::AlignBottom | Qt::AlignRight, true, {10, 230, 100, 30});
  }
  void placement() {
    QFETCH(Qt::Alignment, alignment);
    QFETCH(bool, rightToLeft);
    View view;
    view.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    FloatingWidget host(&view);
    host.setMargins({10, 20, 50, 40});
    host.addWidget(new FixedContent({100, 30}));
    host.setAlignment(alignment);
    view.show();
    view.resize(400, 300);
    QTEST(host.geometry(), "expected");
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
    content->show();
    QVERIFY(host.isVisible() && content->isVisible());
    content->hide();
    QVERIFY(!host.isVisible());
    content->show();

    host.hide();
    content->hide();
    content->show();
    QVERIFY2(!host.isVisible(), "hidden on purpose, it stays hidden");
    host.show();
    QVERIFY(host.isVisible());
    delete content;
    settle();
    QVERIFY(!host.isVisible());
  }

  void followsItsContent() {
    View view({300, 200});
    FloatingWidget host(&view);
    auto* label = new QLabel("short");
    host.addWidget(label);
    view.show();
    settle();
    const int before = host.width();
    label->setText("a good deal longer");
    settle();
    QVERIFY(host.width() > before);
    QVERIFY(std::abs(host.geometry().center().x() - view.rect().center().x()) <= 1);
  }

  void followsANewParent() {
    View first;
    View second({300, 300});
    auto* host = new FloatingWidget(&first);
    host->addWidget(new FixedContent({100, 20}));
    first.show();
    second.show();
    host->setParent(&second);
    host->show();
    QCOMPARE(host->geometry(), QRect(100, 8, 100, 20));
    second.resize(200, 300);
    QCOMPARE(host->geometry(), QRect(50, 8, 100, 20));
    host->setParent(nullptr);
    host->show();
    QVERIFY(!host->isVisible());
    delete host;
  }

  void clicksBesideTheContentReachTheView() {
    View view;
    FloatingWidget host(&view);
    host.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    host.addWidget(new FixedContent({100, 20}));
    host.addWidget(new FixedContent({40, 20}));
    Vela::Test::showActive(view);
    const auto press = [&](const QPoint& at) {
      Vela::Test::clickAt(view, at);
      return view.presses;
    };
    QCOMPARE(host.size(), QSize(100, 40));
    QCOMPARE(press({90, 15}), 0);
    QCOMPARE(press({20, 40}), 0);
    QCOMPARE(press({100, 40}), 1); // beside the narrow one
    QCOMPARE(press({150, 15}), 2);
    QCOMPARE(press({20, 60}), 3);
  }

  void comesToTheFront() {
    View view;
    FloatingWidget host(&view);
    auto* content = new FixedContent({50, 50});
    content->hide();
    host.addWidget(content);
    QWidget cover(&view);
    cover.resize(200, 200);
    view.show();
    content->show();
    QCOMPARE(view.childAt(100, 20), content);
  }
};

VELA_TEST_MAIN(FloatingWidgetTest)
#include "floating_widget_test.moc"
