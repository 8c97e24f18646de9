// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

#include <support/rows.h>
#include <ui_base/tooltips/tooltip_ex.h>
#include <ui_base/tooltips/tooltip_ex_factory.h>
#include <vlk_common_res/styles.h>

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QLayout>
#include <QShortcut>
#include <QSignalSpy>

using namespace Vela::UiBase;
using Vela::Resource::Styles;

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
  void defaultControl() {
    QVERIFY(!ATooltipObject::CreateTooltipControl(QString()));
    const std::unique_ptr<QWidget> control(ATooltipObject::CreateTooltipControl(QStringLiteral("text")));
    auto* const label = control->findChild<QLabel*>();
    QVERIFY(!control->parent() && label && label->text() == QStringLiteral("text"));
    QVERIFY(control->focusPolicy() == Qt::NoFocus && label->focusPolicy() == Qt::NoFocus);
  }

  void longTextsAreWrapped() {
    DefaultTooltip tooltip("short");
    const QSize small = tooltip.size();
    tooltip.SetText(QStringLiteral("a rather long sentence ").repeated(10));
    QVERIFY(tooltip.width() < 400 && tooltip.height() > 2 * small.height());
    tooltip.SetText("short");
    QCOMPARE(tooltip.size(), small);
  }

  void paletteIsFollowed() {
    TooltipFixture f;
    f.tooltip->SetTooltipType(RichTooltip);
    f.tooltip->ShowTooltip();
    const auto background = [&] {
      return f.shown()->grab().toImage().pixelColor(f.tooltip->GetArrowedWindow()->GetBounds().center().x(),
                                                    f.tooltip->GetArrowedWindow()->GetBounds().top() + 4);
    };
    QCOMPARE(background(), Styles::Instance().ColorToolTipBack());
    Styles::Instance().setPalette(Vela::Resource::Dark);
    QCOMPARE(background(), Styles::Instance().ColorToolTipBack());
    Styles::Instance().setPalette(Vela::Resource::Light);
  }

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
    tooltip->SetAdvancedPicture(QIcon(picture), picture.size());
    f.tooltip->SetTooltipControl(tooltip, true);
    f.tooltip->ShowTooltip();
    const int height = f.shown()->height();
    QVERIFY(!tooltip->IsUnfolded() && !tooltip->AdvancedWidget()->isVisible());
    act(f, *tooltip);
    QTRY_VERIFY(tooltip->IsUnfolded() && tooltip->AdvancedWidget()->isVisible());
    QTRY_VERIFY(f.shown()->height() > height + 50);
    // It has grown away from its widget.
    QTRY_VERIFY(!f.shown()->geometry().intersects(f.widget->geometry()));
    f.moveAway();
    f.tooltip->HideTooltip();
    f.tooltip->ShowTooltip();
    QVERIFY(!tooltip->IsUnfolded());
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
    f.key(Qt::Key_F1);
    QVERIFY(tooltip->IsUnfolded() && asked.isEmpty());
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
    QVERIFY(f.tooltip->IsVisible()); // it has unfolded
    f.key(Qt::Key_F1);
    QVERIFY(!f.tooltip->IsVisible());
    QCOMPARE(keys->count, 0);
    f.key(Qt::Key_F1);
    QCOMPARE(keys->count, 2);
  }

  void actionsHaveTooltips() {
    TooltipFixture f;
    QAction action(QStringLiteral("&Smooth && relax (&S)…"));
    action.setShortcut(QKeySequence("Ctrl+M"));
    action.setStatusTip("Evens out noise.");
    TooltipExFactory::Attach(f.tooltip, &action);
    QCOMPARE(f.widget->accessibleDescription(), "Evens out noise.");
    auto* const tooltip = qobject_cast<TooltipEx*>(f.tooltip->TooltipControl());
    QVERIFY(tooltip);
    QCOMPARE(tooltip->Title(), "Smooth & relax");
    QCOMPARE(tooltip->Shortcut(), action.shortcut().toString(QKeySequence::NativeText));
    QCOMPARE(tooltip->Text(), "Evens out noise.");
    action.setToolTip("<i>Own</i> words");
    QCOMPARE(tooltip->Text(), "<i>Own</i> words");
    QCOMPARE(tooltip->accessibleName().section(QLatin1Char('\n'), -1), "Own words");
    QVERIFY(!TooltipExFactory::Create(nullptr) && TooltipExFactory::Description(nullptr).isEmpty());
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
    f.other->Detach();
    QVERIFY(f.neighbour->accessibleDescription().isEmpty());
  }
};

VELA_TEST_MAIN(TooltipContentTest)
#include "tooltip_content_test.moc"
