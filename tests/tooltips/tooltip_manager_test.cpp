// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/tooltips/tooltip_manager.h>

#include <QSignalSpy>
#include <QToolTip>
#include <QWidget>

using Vela::UiBase::TooltipManager;

class TooltipManagerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void toolTipGoesWithTheView() {
    QWidget view;
    view.resize(100, 100);
    view.show();
    TooltipManager& manager = TooltipManager::GetInstance();
    QSignalSpy changed(&manager, &TooltipManager::viewVisibilityChanged);
    QToolTip::showText(view.mapToGlobal(QPoint(10, 10)), QStringLiteral("tip"), &view);
    manager.onViewVisibilityChange(true);
    QVERIFY(QToolTip::isVisible());
    manager.onViewVisibilityChange(false);
    QTRY_VERIFY(!QToolTip::isVisible());
    QCOMPARE(changed, QList<QVariantList>({{true}, {false}}));
  }
};

VELA_TEST_MAIN(TooltipManagerTest)
#include "tooltip_manager_test.moc"
