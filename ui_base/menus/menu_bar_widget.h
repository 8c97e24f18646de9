// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QSharedPointer>
#include <QWidget>

class QToolButton;

namespace Vela::UiBase {

class MenuBarLayout;

/// The row of buttons that MenuBuilder fills. The items belong to whoever shares them: an item that is still
/// held when the bar goes lives on without a parent.
class MenuBarWidget : public QWidget {
  Q_OBJECT

public:
  explicit MenuBarWidget(const QString& name, QWidget* parent);
  ~MenuBarWidget() override;

  /// @param index among items and separators; one that is out of range stands for the end.
  void insertItem(int index, const QSharedPointer<QToolButton>& item);
  /// @param width of a space, in pixels; negative for all the room that is left.
  void insertSeparator(int index, bool line, int width);
  /// Takes an item out of the row.
  void removeItem(QToolButton* item);
  int indexOf(QToolButton* item) const;
  bool endsWithItem() const;

  /// The items in their order, hidden and disabled ones too.
  QList<QToolButton*> items() const;
  /// Whether the bar has no room for a visible item, which then stands in the menu of the overflow button.
  bool overflows(const QToolButton* item) const;
  /// The button at the end, shown while items have no room. Not one of the items.
  QToolButton* overflowButton() const { return m_overflowButton; }
  /// The visible and enabled item at a point given in global coordinates, or the overflow button; null when
  /// there is none.
  QToolButton* itemAt(const QPoint& global) const;
  /// The next visible and enabled item or the overflow button, `step` (1 or -1) away from `item`; goes round
  /// at the ends.
  QToolButton* neighbour(QToolButton* item, int step) const;

Q_SIGNALS:
  /// The bar is being destroyed and still has its items.
  void goes();

private:
  void insertWidget(int index, QWidget* widget);
  void takeRoom(QWidget* widget);
  QList<QToolButton*> inSight() const;

  QToolButton* const m_overflowButton;
  MenuBarLayout* const m_layout;
  QList<QWeakPointer<QToolButton>> m_items; // in the order they were made
};

} // namespace Vela::UiBase
