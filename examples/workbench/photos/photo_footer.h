// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

namespace Vela::UiToolkit {
class ImageViewerToolBar;
}

namespace Workbench {

/// The strip below a photograph: what it is called on the left, its figures on the right, and in the middle
/// the toolbar. A name that is too long is cut in its middle.
class PhotoFooter : public QWidget {
  Q_OBJECT

public:
  explicit PhotoFooter(QWidget* parent = nullptr);

  Vela::UiToolkit::ImageViewerToolBar& toolBar() const { return *m_toolBar; }
  void setTexts(const QString& name, const QString& figures);
  QString name() const { return m_nameText; }
  QString figures() const;

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void styleToolBar();
  void fitName();

  QLabel* m_name;
  QLabel* m_figures;
  Vela::UiToolkit::ImageViewerToolBar* m_toolBar;
  QString m_nameText;
};

} // namespace Workbench
