// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

#include <support/rows.h>
#include <support/screen_record.h>
#include <ui_base/tooltips/tooltip_ex.h>
#include <ui_base/tooltips/tooltip_ex_factory.h>

using namespace Vela::UiBase;

using Act = std::function<void(TooltipFixture&, TooltipEx&)>;

namespace {

class Keys : public QWidget {
public:
  using QWidget::QWidget;
  int count = 0;

protected:
  void keyPressEvent(QKeyEvent*) override { ++count; }
  void keyReleaseEvent(QKeyEvent*) override { ++count; }
};

} // namespace

class TooltipContentTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void unfolds_data() {
    using F = TooltipFixture&;
    using T = TooltipEx&;
    const Vela::Test::Rows<Act> row("act");
    row("after a while", [](F f, T tooltip) {
      tooltip.SetUnfoldTime(0);
      f.tooltip->HideTooltip();
      f.tooltip->ShowTooltip();
    });
    row("under the mouse", [](F f, T tooltip) { f.moveTo(&tooltip); });
    row("with F1", [](F f, T) { f.key(Qt::Key_F1); });
  }
  void unfolds() {
    QFETCH(const Act, act);
    TooltipFixture f;
    auto* const tooltip = new TooltipEx("Smooth", "Evens out noise.");
    QPixmap picture(100, 80);
    picture.fill(Qt::red);
    tooltip->SetAdvancedPicture(picture, {100, 80});
    f.tooltip->SetTooltipControl(tooltip, true);
    f.tooltip->ShowTooltip();
    const int height = f.shown()->height();
    act(f, *tooltip);
    QTRY_VERIFY(tooltip->IsUnfolded() && tooltip->AdvancedWidget()->isVisible());
    QTRY_VERIFY(f.shown()->height() > height + 50);
    // It has grown away from its widget.
    QTRY_VERIFY(!f.shown()->geometry().intersects(f.widget->geometry()));
    VELA_COMPARE_SCREEN("unfolded_tooltip");
    f.moveAway();
    f.tooltip->HideTooltip();
    f.tooltip->ShowTooltip();
    QCOMPARE(f.shown()->height(), height);
  }

  void helpKeyUnfoldsThenAsks() {
    TooltipFixture f;
    auto* const general = new QShortcut(Qt::Key_F1, f.window);
    QSignalSpy generalHelp(general, &QShortcut::activated);
    QSignalSpy asked(f.tooltip, &ATooltipObject::HelpRequested);
    QSignalSpy askedAnywhere(&TooltipManager::GetInstance(), &TooltipManager::HelpRequested);
    f.tooltip->SetTooltipIndex(17);
    auto* const tooltip = new TooltipEx("Smooth");
    tooltip->SetAdvancedWidget(new QLabel("more"));
    f.tooltip->SetTooltipControl(tooltip, true);
    f.tooltip->SetTooltipKeyword("smoothing");
    f.tooltip->ShowTooltip();
    VELA_COMPARE_SCREEN("folded_tooltip");
    f.key(Qt::Key_F1);
    QVERIFY(tooltip->IsUnfolded() && asked.isEmpty());
    VELA_COMPARE_SCREEN("tooltip_with_help");
    f.key(Qt::Key_F1);
    QCOMPARE(asked, QList<QVariantList>({{17, QStringLiteral("smoothing")}}));
    QCOMPARE(askedAnywhere, asked);
    QCOMPARE(generalHelp.count(), 0);
    f.tooltip->HideTooltip();
    f.key(Qt::Key_F1);
    QCOMPARE(generalHelp.count(), 1);

    // The help that opens closes the tooltip, and the key still reaches nobody else.
    auto* const keys = new Keys(f.window);
    keys->show();
    keys->setFocus();
    delete f.window->findChild<QShortcut*>();
    connect(f.tooltip, &ATooltipObject::HelpRequested, f.tooltip, &ATooltipObject::ForceHideTooltip);
    f.tooltip->ShowTooltip();
    f.key(Qt::Key_F1);
    f.key(Qt::Key_F1);
    QVERIFY(!f.tooltip->IsVisible());
    QCOMPARE(keys->count, 0);
    QTest::keyRelease(f.window->windowHandle(), Qt::Key_F1); // that was pressed in another program
    QCOMPARE(keys->count, 1);
    f.key(Qt::Key_F1);
    QCOMPARE(keys->count, 3);
  }

  void actionsHaveTooltips() {
    TooltipFixture f;
    QAction action(QStringLiteral("&Smooth && relax (&S)…"));
    action.setStatusTip("Evens out noise.");
    TooltipExFactory::Attach(f.tooltip, &action);
    QCOMPARE(f.widget->accessibleDescription(), "Evens out noise.");
    auto* const tooltip = qobject_cast<TooltipEx*>(f.tooltip->TooltipControl());
    QCOMPARE(tooltip->Title(), "Smooth & relax");
    action.setShortcut(Qt::CTRL | Qt::Key_M);
    action.setToolTip("<i>Own</i> words");
    QCOMPARE(tooltip->Text(), "<i>Own</i> words");
    QCOMPARE(tooltip->accessibleName().section(QLatin1Char('\n'), -1), "Own words");
    f.tooltip->ShowTooltip();
    VELA_COMPARE_SCREEN("tooltip_of_an_action");
  }

  void widgetIsDescribed() {
    TooltipFixture f;
    QCOMPARE(f.widget->accessibleDescription(), "Fits the mesh");
    f.tooltip->SetTooltipText("Fits all");
    QCOMPARE(f.widget->accessibleDescription(), "Fits all");
    f.widget->setAccessibleDescription("own words");
    f.tooltip->SetTooltipText("Fits");
    f.tooltip->Detach();
    QCOMPARE(f.widget->accessibleDescription(), "own words");
    auto* const content = new QWidget;
    auto* const label = new QLabel(content);
    f.other->SetTooltipControl(content, true);
    f.other->SetTooltipText("<b>All</b>");
    f.other->SetTooltipControl(content, false);
    QCOMPARE(f.neighbour->accessibleDescription() + label->text(), "All<b>All</b>");
    f.other->Detach();
    QVERIFY(f.neighbour->accessibleDescription().isEmpty());
  }
};

VELA_TEST_MAIN(TooltipContentTest)
#include "tooltip_content_test.moc"
