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
    row("after a while", [](F, T tooltip) { tooltip.SetUnfoldTime(0); });
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
    QTRY_VERIFY(tooltip->IsUnfolded());
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
    auto* const tooltip = new TooltipEx("Smooth");
    tooltip->SetAdvancedWidget(new QLabel("more"));
    f.tooltip->SetTooltipControl(tooltip, true);
    f.tooltip->SetTooltipIndex(17);
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

  void partsChangeWhileItIsShown() {
    TooltipFixture f;
    f.tooltip->SetTooltipIndex(0);
    f.tooltip->SetTooltipKeyword("smoothing");
    const QSignalSpy asked(f.tooltip, &ATooltipObject::HelpRequested);
    auto* const tooltip = new TooltipEx("Smooth");
    f.tooltip->SetTooltipControl(tooltip, true);
    f.tooltip->ShowTooltip();
    auto* const more = new QLabel("more");
    const std::function<void()> changes[] = {
        [&] { tooltip->SetTitle(QString("Smooth it. ").repeated(30)); },
        [&] { tooltip->SetTitle("Flatten and relax the whole mesh"); },
        [&] { tooltip->SetShortcut("Ctrl+M"); },
        [&] { tooltip->SetText("Evens out <b>noise</b>."); },
        [&] { tooltip->SetReason(QString("There is no mesh. ").repeated(30)); },
        [&] { tooltip->SetReason("There is <no> mesh."); },
        [&] { tooltip->SetReason({}); },
        [&] { tooltip->SetUnfolded(true); }, // there is nothing to unfold
        [&] { f.key(Qt::Key_F1); },
        [&] { tooltip->SetAdvancedWidget(more); },
        [&] { tooltip->SetUnfolded(true); },
        [&] { tooltip->SetAdvancedWidget(more); },
        [&] { tooltip->SetAdvancedWidget(tooltip); },
        [&] { tooltip->SetAdvancedWidget(new QLabel("even more")); },
        [&] { tooltip->SetTooltipIndex(-1); },
        [&] { tooltip->SetAdvancedPicture({}, {}); },
        [&] { tooltip->SetTooltipKeyword({}); }};
    for (const auto& change : changes) {
      change();
      Vela::Test::settle();
    }
    QCOMPARE(asked, QList<QVariantList>({{0, QStringLiteral("smoothing")}}));
  }

  void actionsHaveTooltips() {
    TooltipFixture f;
    QAction action(QStringLiteral("&Smooth && relax (&S)…"));
    action.setStatusTip("Evens out noise.");
    TooltipExFactory::Attach(f.tooltip, &action);
    TooltipExFactory::Attach(f.tooltip, nullptr);
    TooltipExFactory::Attach(nullptr, &action);
    QCOMPARE(f.widget->accessibleDescription(), "Evens out noise.");
    QVERIFY(f.tooltip->TooltipControl()); // which is made, and follows
    action.setShortcut(Qt::CTRL | Qt::Key_M);
    action.setToolTip("<i>Own</i> words");
    f.tooltip->ShowTooltip();
    VELA_COMPARE_SCREEN("tooltip_of_an_action");
  }

  void widgetIsDescribed() {
    TooltipFixture f;
    QCOMPARE(f.widget->accessibleDescription(), "Fits the mesh");
    f.tooltip->ShowTooltip();
    f.tooltip->SetTooltipText("Fits all");
    QCOMPARE(f.widget->accessibleDescription(), "Fits all");
    Vela::Test::settle();
    QCOMPARE(f.shown()->accessibleName(), "Fits all");
    f.widget->setAccessibleDescription("own words");
    f.tooltip->SetTooltipText("Fits");
    f.tooltip->Detach();
    QCOMPARE(f.widget->accessibleDescription(), "own words");
    auto* const content = new QWidget;
    new QLabel(content);
    for (QWidget* const control : QWidgetList{content, new QLabel}) {
      f.other->SetTooltipControl(control, true);
      f.other->SetTooltipText("<b>All</b>");
      QCOMPARE(f.neighbour->accessibleDescription(), "All");
    }
    f.other->Detach();
    QVERIFY(f.neighbour->accessibleDescription().isEmpty());
  }
};

VELA_TEST_MAIN(TooltipContentTest)
#include "tooltip_content_test.moc"
