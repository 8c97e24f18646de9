// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/views/default_icon_provider.h>
#include <ui_base/views/qt_ui_toolkit.h>

using namespace Vela::UiBase;

class ToolkitServicesTest : public Vela::Test::TestCase {
  Q_OBJECT

  static QColor colorOf(const QIcon& icon, QIcon::Mode mode, qreal scale = 1.0) {
    const QImage image = icon.pixmap(QSize(16, 16), scale, mode).toImage();
    return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
  }

private Q_SLOTS:
  void iconsComeFromTheFilesOfAPath() {
    QTemporaryDir folder;
    const std::tuple<const char*, int, Qt::GlobalColor> files[] = {
        {"plain.png", 16, Qt::red},         {"plain@2x.png", 32, Qt::blue}, {"pair_normal.png", 16, Qt::red},
        {"pair_active.png", 16, Qt::green}, {"over.png", 16, Qt::blue},     {"over_normal.png", 16, Qt::red}};
    for (const auto& [name, size, color] : files) {
      QImage image(size, size, QImage::Format_ARGB32);
      image.fill(color);
      QVERIFY(image.save(folder.filePath(name)));
    }
    const std::tuple<const char*, QColor, QColor> icons[] = {{"plain.png", Qt::red, Qt::red},
                                                             {"plain", Qt::red, Qt::red},
                                                             {"pair", Qt::red, Qt::green},
                                                             {"over.png", Qt::red, Qt::red},
                                                             {"none.png", {}, {}}};
    const DefaultIconProvider provider;
    for (const auto& [path, normal, active] : icons) {
      const QIcon icon = provider.CreateIcon(folder.filePath(path));
      QCOMPARE(colorOf(icon, QIcon::Normal), normal);
      QCOMPARE(colorOf(icon, QIcon::Active), active);
    }
    QCOMPARE(colorOf(provider.CreateIcon(folder.filePath("plain")), QIcon::Normal, 2.0), QColor(Qt::blue));
    QVERIFY(!provider.CreateIcon(QStringLiteral("lock")).isNull()); // lock_normal.png of the resources
  }

  void providerIsReplacedAndOwned() {
    struct Counted : DefaultIconProvider {
      explicit Counted(std::shared_ptr<int> itsAlive) : alive(std::move(itsAlive)) {}
      const std::shared_ptr<int> alive;
    };
    const auto alive = std::make_shared<int>();
    auto toolkit = std::make_unique<QtUiToolkit>();
    for (IIconProvider* const next : {new Counted(alive), new Counted(alive)}) {
      toolkit->IconProvider(next);
      toolkit->IconProvider(next);
      QCOMPARE(toolkit->IconProvider(), next);
    }
    QCOMPARE(alive.use_count(), 2);
    toolkit->IconProvider(nullptr);
    QVERIFY(toolkit->IconProvider() && alive.use_count() == 1);
    toolkit->IconProvider(new Counted(alive));
    toolkit.reset();
    QCOMPARE(alive.use_count(), 1);
  }
};

VELA_TEST_MAIN(ToolkitServicesTest)
#include "toolkit_services_test.moc"
