// SPDX-License-Identifier: MIT
#include "base_view_accessible.h"

#include "base_view.h"
#include "presentation.h"

#include <QAccessibleWidget>

namespace Vela::UiBase {

namespace {

class ViewAccessible : public QAccessibleWidget {
public:
  explicit ViewAccessible(BaseView* view) : QAccessibleWidget(view) {}

  // What has no layout paints itself.
  QAccessible::Role role() const override {
    if (view().isWindow())
      return QAccessible::Window;
    return view().layout() ? QAccessible::Pane : QAccessible::Canvas;
  }

  QString text(QAccessible::Text kind) const override {
    QString text = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name || !text.isEmpty())
      return text;
    return view().windowTitle().remove(QLatin1String("[*]"));
  }

  int childCount() const override {
    return isCovered() ? (inFront() ? 1 : 0) : QAccessibleWidget::childCount();
  }

  QAccessibleInterface* child(int index) const override {
    if (!isCovered())
      return QAccessibleWidget::child(index);
    return index == 0 ? QAccessible::queryAccessibleInterface(inFront()) : nullptr;
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    if (!isCovered())
      return QAccessibleWidget::indexOfChild(child);
    return child && child->object() && child->object() == inFront() ? 0 : -1;
  }

  QAccessibleInterface* childAt(int x, int y) const override {
    if (!isCovered())
      return QAccessibleWidget::childAt(x, y);
    QAccessibleInterface* const front = child(0);
    return front && front->rect().contains(x, y) ? front : nullptr;
  }

private:
  BaseView& view() const { return *static_cast<BaseView*>(widget()); }
  bool isCovered() const { return Presentation::of(view())->isCovered(view()); }
  // The child of this view that is the front, or that holds it.
  QWidget* inFront() const {
    QWidget* widget = Presentation::of(view())->front();
    while (widget && widget->parentWidget() != &view())
      widget = widget->parentWidget();
    return widget;
  }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
  auto* const view =
      className == QLatin1String("Vela::UiBase::BaseView") ? qobject_cast<BaseView*>(object) : nullptr;
  return view ? new ViewAccessible(view) : nullptr;
}

} // namespace

void makeViewsAccessible() {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessible), true);
}

} // namespace Vela::UiBase
