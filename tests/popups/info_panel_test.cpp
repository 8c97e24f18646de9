// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/screen_record.h>
#include <support/test_case.h>
#include <ui_base/popups/info_panel.h>
#include <ui_base/popups/info_view.h>

using namespace Vela::UiBase;

class InfoPanelTest : public Vela::Test::TestCase {
  Q_OBJECT

public Q_SLOTS:
  void keepUrl(const QUrl& url) { m_opened.append(url.toString()); }

private Q_SLOTS:
  void initTestCase() {
    qputenv("VLK_PLUGIN_PATH", QByteArray());
    for (const char* scheme : {"https", "file"})
      QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "keepUrl");
  }
  void cleanup() {
    m_opened.clear();
    qputenv("VLK_PLUGIN_PATH", QByteArray());
  }
  void cleanupTestCase() {
    for (const char* scheme : {"https", "file"})
      QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    qunsetenv("VLK_PLUGIN_PATH");
  }

  void withoutAUsablePluginATextBrowserServes_data() {
    const Vela::Test::Rows<QString> row("plugins");
    row("no folder", {});
    // The engine lacks shared OpenGL contexts in this process.
    row("plugin whose needs are not given",
        QCoreApplication::applicationDirPath() + "/../lib/vlk_ui_base/plugins");
  }
  void withoutAUsablePluginATextBrowserServes() {
    QFETCH(QString, plugins);
    qputenv("VLK_PLUGIN_PATH", plugins.toLocal8Bit());
    InfoPanel panel("Mesh");
    const QSignalSpy loaded(&panel, &InfoPanel::loaded);
    panel.SetHtml("<table><tr><th>Triangles<td>69 451</table>");
    QVERIFY2(loaded.isEmpty() && !panel.findChild<InfoView*>(), "nothing is made before it is shown");
    panel.show();
    QCOMPARE(loaded.size(), 1);
    QVERIFY(loaded.constFirst().constFirst().toBool() && !panel.IsWebView());
    VELA_COMPARE_SCREEN("information");
  }

  void aPluginServesUntilItFails() {
    qputenv("VLK_PLUGIN_PATH",
            (QCoreApplication::applicationDirPath() + "/../lib/test_plugins").toLocal8Bit());
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    InfoPanel panel;
    const QSignalSpy loaded(&panel, &InfoPanel::loaded);
    panel.show();
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.SetHtml("<p>content");
    QVERIFY(panel.IsWebView());
    QVERIFY(panel.findChild<InfoView*>()->property("content").toString().endsWith("<p>content"));
    QCOMPARE(loaded.size(), 1);
    panel.findChild<InfoView*>()->setFocus();
    panel.SetHtml("<p>too much");
    QVERIFY(!panel.IsWebView());
    QCOMPARE(panel.findChild<QTextBrowser*>()->toPlainText(), "too much");
    QVERIFY(panel.findChild<QTextBrowser*>()->hasFocus());
    QCOMPARE(loaded.size(), 2);
  }

  void linksOpenOutsideByKeyboard_data() {
    const Vela::Test::Rows<QString, QStringList> row("address", "opened");
    row("web, a place in the page", "https://example.org/a#b", {"https://example.org/a#b"});
    row("local file", "file:///etc/hostname", {});
    row("in the page", "#end", {});
  }
  void linksOpenOutsideByKeyboard() {
    QFETCH(QString, address);
    InfoPanel panel;
    panel.resize(300, 200);
    panel.SetHtml(QStringLiteral("<a href='%1'>link</a>%2<a name='end'>end</a>")
                      .arg(address, QStringLiteral("<p>text").repeated(60)));
    panel.show();
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.setFocus();
    const QScrollBar* bar = panel.findChild<QTextBrowser*>()->verticalScrollBar();
    QTest::keyClick(panel.windowHandle(), Qt::Key_Tab);
    QTest::keyClick(panel.windowHandle(), Qt::Key_Return);
    QTEST(m_opened, "opened");
    QCOMPARE(bar->value() > 0, address == "#end");
    QTest::keyClick(panel.windowHandle(), Qt::Key_PageDown);
    QVERIFY2(bar->value() > 0 && panel.findChild<QTextBrowser*>()->source().isEmpty(), "still the same page");
  }

  void picturesAreAsSharpAsTheScreen() {
    InfoPanel panel;
    panel.SetHtml("text");
    panel.show();
    const QUrl picture("data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg' width='8' height='6'/>");
    const auto seen = panel.findChild<QTextBrowser*>()->loadResource(QTextDocument::ImageResource, picture);
    QCOMPARE(seen.value<QImage>().size(), QSize(8, 6) * panel.devicePixelRatio());
    QCOMPARE(seen.value<QImage>().devicePixelRatio(), panel.devicePixelRatioF());
  }

  void sources() {
    const QTemporaryDir folder;
    QFile file(folder.filePath("page.html"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<!DOCTYPE html><html><head><title>Page</title></head><body><p>Größe</body></html>");
    file.close();
    InfoPanel panel;
    panel.show();
    const QSignalSpy loaded(&panel, &InfoPanel::loaded);
    panel.SetSource(QUrl::fromLocalFile(file.fileName()));
    QCOMPARE(panel.findChild<QTextBrowser*>()->toPlainText(), QStringLiteral("Größe"));
    panel.SetSource(QUrl("qrc:/there/is/none.html"));
    QVERIFY(panel.findChild<QTextBrowser*>()->toPlainText().isEmpty());
    QCOMPARE(loaded, QList<QVariantList>({{true}, {false}}));
  }

private:
  QStringList m_opened;
};

VELA_TEST_MAIN(InfoPanelTest)
#include "info_panel_test.moc"
