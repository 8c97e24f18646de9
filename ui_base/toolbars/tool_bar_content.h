// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_paths.h>

#include <QBoxLayout>
#include <QList>
#include <QWidget>

#include <functional>
#include <vector>

namespace Vela::UiBase {

class ToolButton;

/// The inner widget of a toolbar: lays the buttons out in groups, each in a panel of its own, in a row or a
/// column. Where it is shorter than they need it shows as many whole ones as fit, and can be scrolled by
/// whole buttons.
class ToolBarContent : public QWidget {
public:
  explicit ToolBarContent(QWidget* parent);
  ~ToolBarContent() override;

  /// Called when the layout has something to do.
  void setLayoutListener(std::function<void()> listener) { m_listener = std::move(listener); }
  void setOrientation(Qt::Orientation orientation);
  /// Rows of so many buttons; 0 for a single row or column. The layout begins to exist with the first call of
  /// one of the two.
  void setColumns(int columns);
  int columns() const { return m_columns; }
  bool hasLayout() const { return m_layout; }
  void setSpacing(int buttons, int groups);
  void setGroupMargins(const QMargins& margins);

  /// The widget in which the buttons of a group stand, made when needed.
  QWidget* panel(const QString& name);
  /// Rows of so many buttons for this group only; 0 as for the others.
  void setGroupColumns(const QString& name, int columns);
  /// Puts a new button into a group, at the end when the index is negative or too large.
  void insert(ToolButton& button, const QString& name, int index);
  /// Moves a button inside of its group.
  void move(ToolButton& button, const QString& name, int index);
  /// Forgets a button, and its group when that was the last one.
  void take(const QObject* button);

  /// A button was shown or hidden: a group of which none shows takes no room.
  void updatePanels();

  QList<ToolButton*> buttons() const;
  QList<ToolButton*> buttons(const QString& name) const;
  QList<ToolBarGroupRects> rects() const;
  /// What all buttons need.
  QSize neededSize() const;

  /// Takes an area, or so much of it that a button of that length has room where not all buttons fit.
  /// @return whether that is so.
  bool fit(const QRect& area, int moreLength);
  /// Scrolls so that the whole button shows. @return whether that was necessary.
  bool scrollTo(const QWidget& button);
  /// The buttons that do not show as a whole, though they are not hidden.
  QList<ToolButton*> leftOut() const;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  class Panel;
  struct Span {
    int start;
    int end;
  };

  struct Group {
    QString name;
    Panel* panel;
    QList<ToolButton*> buttons;
    int columns;
  };

  /// What the bar was told of last.
  struct Seen {
    QSize needed;
    QList<ToolButton*> buttons;
    QList<QRect> places;
    friend bool operator==(const Seen&, const Seen&) = default;
  };

  Group& group(const QString& name);
  bool hasChanged();
  Seen look() const;
  void noteChange();
  void layOut(Group& group);
  void layOutAll();
  void createLayout();
  int columnsOf(const Group& group) const;
  QBoxLayout::Direction direction() const;
  bool horizontal() const { return m_orientation == Qt::Horizontal; }
  int along(const QSize& size) const { return horizontal() ? size.width() : size.height(); }
  void activate();
  Span span(const QWidget& button) const;
  void showPart(const QRect& area);

  QWidget* const m_inner;
  QBoxLayout* m_layout = nullptr;
  std::vector<Group> m_groups;
  Qt::Orientation m_orientation = Qt::Horizontal;
  int m_columns = 0;
  int m_buttonSpacing = 0;
  int m_groupSpacing = 0;
  QMargins m_groupMargins;
  QRect m_area;
  int m_room = 0; // for buttons, along the bar
  int m_scroll = 0;
  bool m_scrolls = false;
  bool m_changeNoted = false;
  Seen m_seen;
  std::function<void()> m_listener;
};

} // namespace Vela::UiBase
