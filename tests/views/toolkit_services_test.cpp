// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/commands/i_icon_provider.h>
#include <ui_base/views/default_icon_provider.h>
#include <ui_base/views/qt_ui_debugger.h>
#include <ui_base/views/qt_ui_toolkit.h>

#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

using namespace Vela::UiBase;
using Vela::Test::settle;

namespace {

/// Answers every path with one icon and counts itself.
class CountedProvider : public IIconProvider {
public:
  explicit CountedProvider(int& alive) : m_alive(alive) { ++m_alive; }
  ~CountedProvider() override { --m_alive; }
  Q_DISABLE_COPY_MOVE(CountedProvider)

  QIcon CreateIcon(const QString& path) const override {
    lastPath = path;
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::magenta);
    return pixmap;
  }
  mutable QString lastPath;

private:
  int& m_alive;
};

QColor colorOf(const QIcon& icon, int size, QIcon::Mode mode, qreal scale = 1.0) {
  const QImage image = icon.pixmap(QSize(size, size), scale, mode).toImage();
  return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
}

} // namespace

class ToolkitServicesTest : public Vela::Test::TestCase {
  Q_OBJECT

private:
  QString file(const QString& name) const { return m_folder.filePath(name); }

  void paint(const QString& name, int size, Qt::GlobalColor color) const {
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(color);
    QVERIFY(image.save(file(name)));
  }

  QTemporaryDir m_folder;

private Q_SLOTS:
  void initTestCase() {
    QVERIFY(m_folder.isValid());
    paint(QStringLiteral("plain.png"), 16, Qt::red);
    paint(QStringLiteral("plain@2x.png"), 32, Qt::blue);
    paint(QStringLiteral("pair_normal.png"), 16, Qt::red);
    paint(QStringLiteral("pair_active.png"), 16, Qt::green);
    paint(QStringLiteral("pair_active@2x.png"), 32, Qt::yellow);
    paint(QStringLiteral("over.png"), 16, Qt::blue);
    paint(QStringLiteral("over_normal.png"), 16, Qt::red);
    QFile svg(file(QStringLiteral("half.svg")));
    QVERIFY(svg.open(QIODevice::WriteOnly));
    svg.write("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'>"
              "<rect width='8.5' height='16' fill='#000'/></svg>");
  }

  void icons_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QColor>("normal");
    QTest::addColumn<QColor>("active");
    QTest::addColumn<QColor>("activeAt2x");
    const auto row = [this](const char* name, const QString& path, const QColor& normal, const QColor& active,
                            const QColor& activeAt2x) {
      QTest::newRow(name) << file(path) << normal << active << activeAt2x;
    };
    row("one image", "plain.png", Qt::red, Qt::red, Qt::blue);
    row("without its extension", "plain", Qt::red, Qt::red, Qt::blue);
    row("mode files only", "pair.png", Qt::red, Qt::green, Qt::yellow);
    row("mode files, without extension", "pair", Qt::red, Qt::green, Qt::yellow);
    row("normal file before the image", "over.png", Qt::red, Qt::red, Qt::red);
    row("no such file", "none.png", {}, {}, {});
  }
  void icons() {
    QFETCH(QString, path);
    const QIcon icon = DefaultIconProvider().CreateIcon(path);
    QTEST(colorOf(icon, 16, QIcon::Normal), "normal");
    QTEST(colorOf(icon, 16, QIcon::Active), "active");
    QTEST(colorOf(icon, 16, QIcon::Active, 2.0), "activeAt2x");
    QVERIFY(path.contains("none") || colorOf(icon, 16, QIcon::Disabled) != colorOf(icon, 16, QIcon::Normal));
  }

  void vectorIconIsSharpAt2x() {
    const QImage image = DefaultIconProvider()
                             .CreateIcon(file(QStringLiteral("half.svg")))
                             .pixmap(QSize(16, 16), 2.0)
                             .toImage();
    QCOMPARE(image.size(), QSize(32, 32));
    // The edge lies at 8.5, which is a whole pixel only at twice the resolution.
    QCOMPARE(image.pixelColor(16, 8).alpha(), 255);
    QCOMPARE(image.pixelColor(17, 8).alpha(), 0);
  }

  void bareNameIsFoundInTheResources() {
    QVERIFY(!DefaultIconProvider().CreateIcon(QStringLiteral("lock")).isNull()); // lock_normal.png
  }
  void themeIcon() {
    const QString theme = m_folder.filePath(QStringLiteral("themes/test"));
    QVERIFY(QDir().mkpath(theme + QStringLiteral("/16x16")));
    QFile index(theme + QStringLiteral("/index.theme"));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=test\nDirectories=16x16\n[16x16]\nSize=16\n");
    index.close();
    paint(QStringLiteral("themes/test/16x16/document-weigh.png"), 16, Qt::cyan);
    const QString oldTheme = QIcon::themeName();
    QIcon::setThemeSearchPaths({m_folder.filePath(QStringLiteral("themes"))});
    QIcon::setThemeName(QStringLiteral("test"));
    const QIcon icon = DefaultIconProvider().CreateIcon(QStringLiteral("document-weigh"));
    QCOMPARE(colorOf(icon, 16, QIcon::Normal), QColor(Qt::cyan));
    QVERIFY(DefaultIconProvider().CreateIcon(QStringLiteral("document-unknown")).isNull());
    QIcon::setThemeName(oldTheme);
  }

  void providerIsReplacedAndOwned() {
    int alive = 0;
    {
      QtUiToolkit toolkit;
      QVERIFY(dynamic_cast<const DefaultIconProvider*>(toolkit.IconProvider()));
      auto* first = new CountedProvider(alive);
      toolkit.IconProvider(first);
      toolkit.IconProvider(first);
      QCOMPARE(alive, 1);
      QCOMPARE(toolkit.IconProvider(), first);
      QCOMPARE(colorOf(toolkit.CreateIcon(QStringLiteral("any")), 8, QIcon::Normal), QColor(Qt::magenta));
      QCOMPARE(first->lastPath, QStringLiteral("any"));
      toolkit.IconProvider(new CountedProvider(alive));
      QCOMPARE(alive, 1);
      toolkit.IconProvider(nullptr);
      QCOMPARE(alive, 0);
      QVERIFY(dynamic_cast<const DefaultIconProvider*>(toolkit.IconProvider()));
      toolkit.IconProvider(new CountedProvider(alive));
    }
    QCOMPARE(alive, 0);
    QCOMPARE(&QtUiToolkit::Instance(), &QtUiToolkit::Instance());
  }

  void actions() {
    const QtUiToolkit toolkit;
    QWidget parent;
    const QAction* const plain = toolkit.CreateAction(QStringLiteral("Plain"), QString(), &parent,
                                                      QKeySequence(), nullptr, nullptr, QAction::QuitRole);
    QVERIFY(plain->parent() == &parent && plain->icon().isNull() && plain->shortcut().isEmpty());
    QCOMPARE(plain->menuRole(), QAction::QuitRole);
    QAction* const full =
        toolkit.CreateAction(QStringLiteral("Close"), file(QStringLiteral("plain.png")), &parent,
                             QKeySequence(Qt::CTRL | Qt::Key_W), &parent, SLOT(close()), QAction::NoRole);
    QVERIFY(!full->icon().isNull() && full->shortcut() == QKeySequence(Qt::CTRL | Qt::Key_W));
    parent.show();
    full->trigger();
    QVERIFY(!parent.isVisible());
  }

  void findAndEnableByText() {
    QtUiToolkit toolkit;
    QWidget widget;
    auto* save = new QAction(QStringLiteral("Save"), &widget);
    auto* other = new QAction(QStringLiteral("Save as"), &widget);
    auto* again = new QAction(QStringLiteral("Save"), &widget);
    widget.addActions({new QAction(&widget), save, other, again});
    QCOMPARE(QtUiToolkit::FindAction(&widget, QStringLiteral("Save")), save);
    QCOMPARE(QtUiToolkit::FindAction(&widget, QString()), nullptr);
    QCOMPARE(QtUiToolkit::FindAction(&widget, QStringLiteral("save")), nullptr);
    QCOMPARE(QtUiToolkit::FindAction(nullptr, QStringLiteral("Save")), nullptr);

    toolkit.EnableAction(widget.actions(), QStringLiteral("Save"), false);
    QVERIFY(!save->isEnabled() && !again->isEnabled() && other->isEnabled());
    toolkit.EnableAction(widget.actions(), QStringLiteral("Save"), true);
    QVERIFY(save->isEnabled() && again->isEnabled());
  }

  void widgetUnderMouse() {
    QWidget page;
    page.setObjectName(QStringLiteral("page"));
    page.setGeometry(100, 100, 200, 200);
    auto* const button = new QPushButton(&page);
    button->setObjectName(QStringLiteral("apply"));
    button->setGeometry(10, 10, 50, 50);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const auto dump = [&page](const QPoint& position) {
      QCursor::setPos(page.mapToGlobal(position));
      QString text;
      QTimer poll;
      connect(&poll, &QTimer::timeout, &poll, [&text] {
        const auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
          return;
        text = box->windowTitle() + QLatin1Char('\n') + box->text();
        QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
      });
      poll.start(1);
      QtUiDebugger(&page).DumpWidgetUnderMouse();
      return text;
    };
    QCOMPARE(dump({20, 20}), QStringLiteral("Widget Info\nClass: QPushButton\nName: apply\n"
                                            "Parent Class: QWidget\nParent Name: page"));
    QCOMPARE(dump({150, 150}), QStringLiteral("Widget Info\nClass: QWidget\nName: page"));
    QCOMPARE(dump({300, 300}), QString());
  }
};

VELA_TEST_MAIN(ToolkitServicesTest)
#include "toolkit_services_test.moc"
