// SPDX-License-Identifier: MIT
#include "first_paint.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  auto* const content = new QWidget;
  window.setCentralWidget(content);
  window.menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Quit"));
  window.statusBar()->showMessage(QStringLiteral("Ready"));
  window.resize(1280, 800);
  new Vela::Benchmarks::FirstPaint(&window);
  window.show();
  return QApplication::exec();
}
