// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

#include <vector>

namespace Vela::UiBase {

/// Plain text that is as wide as it needs to be up to a maximum, then wraps, and after a maximum number of
/// lines ends in an ellipsis; the whole text is then its tool tip.
class NotificationLabel : public QWidget {
  Q_OBJECT

public:
  explicit NotificationLabel(QWidget* parent = nullptr);

  QString text() const { return m_text; }
  void setText(const QString& text);
  void setTextColor(const QColor& color);
  /// Whether a part of the text does not fit.
  bool isElided() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  struct Lines {
    std::vector<QString> texts;
    double width = 0; // of the longest
    bool elided = false;
  };
  Lines brokenInto(int width) const;
  void updateToolTip();

  QString m_text;
  QColor m_color;
};

} // namespace Vela::UiBase
