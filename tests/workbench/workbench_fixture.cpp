// SPDX-License-Identifier: MIT
#include "workbench_fixture.h"

#include <ui_base/notifications/notification_bar.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <vlk_app_service/i_app_manager.h>
#include <vlk_common_res/styles.h>

namespace Workbench::Test {

using namespace Vela;

WorkbenchFixture::WorkbenchFixture(const QSize& size) {
  auto& service = Services::ApplicationService::GetInstance();
  service.setConfigManager(std::make_unique<Services::ConfigManager>(path(QStringLiteral("settings.ini"))));
  UiBase::NotificationBar::setDefaultFadeDuration(0);
  Resource::Styles::Instance().setPalette(Resource::Light);
  Options options;
  options.size = size;
  m_app = std::make_shared<WorkbenchApp>(options);
  m_kernel.registerService(m_app);
  if (m_kernel.start() != Taren::Core::RcmSuccess)
    qFatal("the workbench does not start");
  window().toolBars().setAnimationDuration(0);
  Vela::Test::showActive(window());
}

WorkbenchFixture::~WorkbenchFixture() {
  m_kernel.stop();
  Vela::Test::settle();
  Services::ApplicationService::GetInstance().setAppManager(nullptr);
  Services::ApplicationService::GetInstance().setConfigManager(nullptr);
}

void WorkbenchFixture::open(const QString& file) {
  QSignalSpy finished(&controller().events(), &MeshViewEvents::openFinished);
  controller().openFiles({file});
  QTRY_COMPARE(finished.count(), 1);
  QTRY_VERIFY(view().isSettled());
  Vela::Test::settle();
}

void WorkbenchFixture::show(const Mesh& mesh) {
  controller().showMesh(mesh, "mesh");
  Vela::Test::settle();
  QTRY_VERIFY(view().isSettled());
}

void WorkbenchFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWidget* target = &window();
  if (QWidget* const popup = QApplication::activePopupWidget()) {
    target = popup;
  } else if (QWidget* const dialog = QApplication::activeModalWidget()) {
    target = dialog;
    // The letters of its buttons work in the active window only, and QWindow takes it for active with its
    // parent.
    QVERIFY(QTest::qWaitFor([dialog] { return QApplication::activeWindow() == dialog; }));
  }
  QTest::keyClick(target->windowHandle(), key, modifiers);
}

void WorkbenchFixture::turnWheel(QWidget& widget, const QPointF& at, int delta) {
  QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &event);
}

QFileDialog* WorkbenchFixture::fileDialog() {
  QFileDialog* dialog = nullptr;
  const auto isOpen = [&dialog] {
    dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    return dialog && dialog->isActiveWindow();
  };
  return QTest::qWaitFor(isOpen) ? dialog : nullptr;
}

bool WorkbenchFixture::chooseFile(const QString& path) {
  const QPointer<QFileDialog> dialog = fileDialog();
  if (!dialog)
    return false;
  // The line is selected as a whole when the dialog opens.
  for (const QChar character : path)
    QTest::sendKeyEvent(QTest::Click, dialog->windowHandle(), Qt::Key_unknown, QString(character),
                        Qt::NoModifier);
  QTest::keyClick(dialog->windowHandle(), Qt::Key_Return);
  return QTest::qWaitFor([&dialog] { return !dialog; });
}

void WorkbenchFixture::drop(const QStringList& files, QWidget* target) {
  QWidget* const on = target ? target : &view();
  QMimeData data;
  QList<QUrl> urls;
  for (const QString& file : files)
    urls += QUrl::fromLocalFile(file);
  data.setUrls(urls);
  const QPoint middle = on->rect().center();
  QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(on, &enter);
  QDragMoveEvent move(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(on, &move);
  if (!enter.isAccepted() || !move.isAccepted()) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(on, &leave);
    return;
  }
  QDropEvent dropped(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(on, &dropped);
}

QString WorkbenchFixture::notification() {
  const auto* const bar = view().findChild<UiBase::NotificationBar*>();
  return bar && bar->isNotificationShowing() ? bar->accessibleName() : QString();
}

int meshPixels(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    const QRgb background = image.pixel(0, y);
    for (int x = 0; x < image.width(); ++x)
      count += image.pixel(x, y) != background ? 1 : 0;
  }
  return count;
}

} // namespace Workbench::Test
