// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMenu>
#include <QPointer>
#include <QToolButton>

#include <functional>

namespace Vela::UiBase {

class ToolButton;

/// The button at the end of a toolbar that has no room for all its buttons. It lists those that do not show;
/// what is chosen is handed to the toolbar.
class ToolBarOverflow : public QToolButton {
  Q_OBJECT

public:
  using Source = std::function<QList<ToolButton*>()>;
  using Chooser = std::function<void(ToolButton&)>;

  ToolBarOverflow(Source source, Chooser chooser, QWidget* parent);

  /// Along the bar, in pixels.
  int length() const { return 18; }
  void setOrientation(Qt::Orientation orientation);
  /// The list while it is open, or null.
  QMenu* menu() const { return m_menu; }
  QSize sizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void open();
  void addEntry(QMenu& menu, ToolButton& button);
  QPoint menuPlace(const QSize& menu) const;

  const Source m_source;
  const Chooser m_choose;
  QPointer<QMenu> m_menu;
  Qt::Orientation m_orientation = Qt::Horizontal;
};

} // namespace Vela::UiBase
