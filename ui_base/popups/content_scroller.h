// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace Vela::UiBase {

/// Holds the content of a dialog and asks for the room that it needs, also where its height depends on its
/// width. The content scrolls only where there is less room, and can then be scrolled with the keyboard.
class ContentScroller : public QScrollArea {
  Q_OBJECT

public:
  explicit ContentScroller(QWidget* parent = nullptr);

  /// Takes the content over.
  void setContent(QWidget* content);
  /// The room that may be asked for, in pixels.
  void setLimit(const QSize& limit);
  /// The room that is left when the layout in which it stands may ask for that much; what else is in the
  /// layout keeps its size, and what can be scrolled a few lines.
  void setLimitWithin(QLayout& column, const QSize& limit);

  bool hasHeightForWidth() const override;
  int heightForWidth(int width) const override;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QSize limited(QSize size) const;
  void updateFocusPolicy();

  QSize m_limit = {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
};

} // namespace Vela::UiBase
