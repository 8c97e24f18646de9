// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QList>
#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class LayoutBaseWidgetPrivate;

/// The base of widgets that lay out what they are given: in a column, a row or a grid, with the same margin
/// on all sides and the same spacing everywhere. Hidden contents take no place; in a grid the others move up.
///
/// It owns its contents. A content that is deleted or given another parent is forgotten.
///
/// @code
/// auto* panel = new Vela::UiBase::LayoutBaseWidget(view);
/// panel->setArrangement(Vela::UiBase::LayoutBaseWidget::Grid, 3);
/// panel->setSpacing(4);
/// for (QAction* action : actions)
///   panel->addWidget(buttonFor(action));
/// @endcode
class UI_BASE_EXPORT LayoutBaseWidget : public QWidget {
  Q_OBJECT

public:
  enum EArrangement : int {
    Column = 0,
    Row = 1,
    Grid = 2,
  };

  /// Empty, with its contents one below another.
  explicit LayoutBaseWidget(QWidget* parent = nullptr);
  ~LayoutBaseWidget() override;

  /// Appends a widget and takes it over. It is shown unless it was hidden on purpose. Null, the widget
  /// itself, what it lies in and what it has already are ignored.
  void addWidget(QWidget* widget);
  /// The contents in their order, the hidden ones too.
  QList<QWidget*> widgets() const;
  /// Whether any of its contents is not hidden.
  bool hasVisibleContent() const;

  /// A column unless set.
  EArrangement arrangement() const;
  /// @param columns of a grid, at least 1; without meaning for the others.
  void setArrangement(EArrangement arrangement, int columns = 2);

  /// The margin around the contents in pixels; 0 unless set.
  int contentMargin() const;
  /// See contentMargin().
  void setContentMargin(int pixels);
  /// The distance between contents in pixels; 0 unless set.
  int spacing() const;
  /// See spacing().
  void setSpacing(int pixels);

  /// The size that suits the contents in a space of `available`, never larger than that.
  QSize fittingSize(const QSize& available) const;

protected:
  /// A content was added, shown or hidden and the layout knows it; does nothing by itself.
  virtual void contentChanged();
  void childEvent(QChildEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  const std::unique_ptr<LayoutBaseWidgetPrivate> d;
};

} // namespace Vela::UiBase
