// SPDX-License-Identifier: MIT
#include <support/screen_record.h>
#include <support/test_case.h>
#include <ui_toolkit/image_viewer_tool_bar.h>
#include <ui_toolkit/print_material_info_panel.h>
#include <ui_toolkit/sample_inner_tooltip.h>
#include <vlk_common_res/strings.h>

using namespace Vela::UiToolkit;

class ToolkitWidgetsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aStyleSheetOfTheApplicationCounts() {
    ImageViewerToolBar bar;
    bar.setStyleSheet("QWidget#ImageViewerToolBar { background-color: #ff0000; }");
    QCOMPARE(bar.grab().toImage().pixelColor(1, 1), QColor(Qt::red));
  }

  void aClickOnAToolBarButtonEmitsItsSignalOnce_data() {
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QString>("toolTip");
    const auto row = [](const char* button, const char* signal, const char* text) {
      QTest::newRow(button)
          << QByteArray(signal)
          << QStringLiteral("<html><head/><body><p>%1</p></body></html>").arg(QLatin1String(text));
    };
    row("zoom_in_button", "2ZoomIn()", "Zoom in<br />Shortcut: +");
    row("zoom_out_button", "2ZoomOut()", "Zoom Out<br />Shortcut: -");
    row("original_size_button", "2OriginalSize()", "Show image in its original size<br />Shortcut: O");
    row("fit_to_view_button", "2FitToView()", "Fit in the image<br/>Shortcut: F");
    row("prev_button", "2PrevImage()", "Previous image<br/>Shortcut: &lt;");
    row("next_button", "2NextImage()", "Next image<br/>Shortcut: &gt;");
  }
  void aClickOnAToolBarButtonEmitsItsSignalOnce() {
    QFETCH(QByteArray, signal);
    ImageViewerToolBar bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowActive(&bar));
    auto* const button = bar.findChild<QToolButton*>(QLatin1String(QTest::currentDataTag()));
    QVERIFY(button && !button->icon().isNull() && !button->accessibleName().isEmpty());
    QTEST(button->toolTip(), "toolTip");
    QVERIFY(button->accessibleDescription().contains(QStringLiteral("Shortcut: ")));
    QVERIFY(!button->accessibleDescription().contains(QStringLiteral("<p>")));
    QSignalSpy spy(&bar, signal.constData());
    QVERIFY(spy.isValid());
    QTest::mouseClick(bar.windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    QCOMPARE(spy.count(), 1);
    button->setFocus();
    QTest::keyClick(bar.windowHandle(), Qt::Key_Space);
    QCOMPARE(spy.count(), 2);
  }

  void aReleasedKeyIsReportedAndDoesNothingElse() {
    QWidget window;
    auto* const bar = new ImageViewerToolBar(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    bar->findChild<QToolButton*>(QStringLiteral("next_button"))->setFocus();
    QList<Qt::Key> keys;
    connect(bar, &ImageViewerToolBar::KeyReleased, this, [&](Qt::Key key) { keys += key; });
    QSignalSpy zoomed(bar, &ImageViewerToolBar::ZoomIn);
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_F, Qt::Key_Less})
      QTest::keyClick(window.windowHandle(), key);
    QCOMPARE(keys, (QList<Qt::Key>{Qt::Key_Plus, Qt::Key_F, Qt::Key_Less}));
    QCOMPARE(zoomed.count(), 0);

    bar->EnablePrevImageButton(false);
    bar->EnableZoomOutButton(false);
    QVERIFY(!bar->IsPrevImageButtonEnabled() && !bar->IsZoomOutButtonEnabled());
    QVERIFY(bar->IsNextImageButtonEnabled() && bar->IsZoomInButtonEnabled());
  }

  void looksAsRecorded() {
    QWidget window;
    auto* const rows = new QVBoxLayout(&window);
    for (QWidget* const each :
         QWidgetList{new ImageViewerToolBar, new PrintMaterialInfoPanel, new SampleInnerTooltip})
      rows->addWidget(each);
    window.show();
    VELA_COMPARE_SCREEN("toolkit");
  }

  void volumesAreShownInTheUnitTheUserChooses() {
    PrintMaterialInfoPanel panel;
    panel.setLocale(QLocale::c());
    const auto text = [&](const char* name) { return panel.findChild<QLabel*>(QLatin1String(name))->text(); };
    const QString unknown = Vela::Resource::String::NOT_APPLICABLE_LABEL_TEXT();
    QCOMPARE(text("combined_volume_value_label"), unknown);
    panel.SetVolumes(12000.0, std::nullopt);
    QCOMPARE(text("model_volume_value_label"), QStringLiteral("12"));
    QCOMPARE(text("model_volume_unit_label"), QStringLiteral("cm³"));
    QCOMPARE(text("combined_volume_value_label"), unknown);
    QCOMPARE(text("combined_volume_unit_label"), QString());
    panel.SetVolumes(12000.0, 500.0);
    QCOMPARE(text("combined_volume_value_label"), QStringLiteral("12.5"));
    QCOMPARE(panel.accessibleDescription(),
             QStringLiteral("Model: 12 cm³, Supports: 0.5 cm³, Combined: 12.5 cm³"));

    QSignalSpy changed(&panel, &PrintMaterialInfoPanel::VolumeUnitChanged);
    QAction* const litres = panel.VolumeUnitActions().value(Vela::Common::Litre);
    litres->trigger();
    litres->trigger();
    QCOMPARE(changed.count(), 1);
    QVERIFY(litres->isChecked());
    QCOMPARE(text("support_volume_value_label"), QStringLiteral("0.0005"));
    QCOMPARE(text("support_volume_unit_label"), QStringLiteral("l"));
    panel.SetVolumeUnit(static_cast<Vela::Common::EVolumeUnit>(99));
    QCOMPARE(panel.VolumeUnit(), Vela::Common::Litre);
    panel.SetVolumes(std::nan(""), 500.0);
    QVERIFY(!panel.CombinedVolume());
  }

  void theLoaderTurnsOnlyWhileBusyAndShown() {
    QWidget window;
    PrintMaterialInfoPanel panel(&window);
    QSignalSpy shown(&panel, &PrintMaterialInfoPanel::Show);
    QSignalSpy hidden(&panel, &PrintMaterialInfoPanel::Hide);
    auto* const loader = panel.findChild<QLabel*>(QStringLiteral("busy_label"));
    panel.SetBusy(true);
    QCOMPARE(loader->movie()->state(), QMovie::NotRunning);
    window.show();
    QVERIFY(loader->isVisible());
    QCOMPARE(loader->movie()->state(), QMovie::Running);
    QCOMPARE(loader->movie()->currentPixmap().deviceIndependentSize(), QSizeF(16, 16));
    panel.hide();
    QCOMPARE(loader->movie()->state(), QMovie::NotRunning);
    panel.show();
    panel.SetBusy(false);
    QVERIFY(!loader->isVisible() && loader->movie()->state() == QMovie::NotRunning);
    QCOMPARE(shown.count(), 2);
    QCOMPARE(hidden.count(), 1);
  }

  void theSampleTooltipShowsItsPicture() {
    SampleInnerTooltip tooltip;
    tooltip.show();
    QCOMPARE(tooltip.windowTitle(), QStringLiteral("Sample Inner Tooltip"));
    QVERIFY(tooltip.findChild<QLabel*>(QStringLiteral("label_text"))
                ->text()
                .contains(
                    QStringLiteral("tooltip! <br /><br /><b>Here is a sample image:</b></p></body></html>")));
    const QPixmap picture = tooltip.findChild<QLabel*>(QStringLiteral("label_picture"))->pixmap();
    QVERIFY(!picture.isNull());
    QCOMPARE(picture.devicePixelRatio(), tooltip.devicePixelRatioF() > 1 ? 2.0 : 1.0);
  }
};

VELA_TEST_MAIN(ToolkitWidgetsTest)
#include "toolkit_widgets_test.moc"
