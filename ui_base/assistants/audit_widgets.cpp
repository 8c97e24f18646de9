// SPDX-License-Identifier: MIT
#include "audit_p.h"
#include "audit_surface.h"
#include "painted_text.h"

#include <ui_base/menus/menu_bar_widget.h>
#include <ui_base/toolbars/tool_bar.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTextEdit>

#include <algorithm>

namespace Vela::UiBase {

namespace {

template <class... Classes>
bool isOneOf(const QObject* object) {
  return (qobject_cast<const Classes*>(object) || ...);
}

template <class... Classes>
bool isInOneOf(const QWidget& widget) {
  for (const QWidget* around = widget.parentWidget(); around; around = around->parentWidget()) {
    if (isOneOf<Classes...>(around))
      return true;
    if (around->isWindow())
      break;
  }
  return false;
}

/// What people work with, without the parts that it is made of.
bool isControl(const QWidget& widget) {
  if (isOneOf<QScrollBar>(&widget) ||
      isInOneOf<QAbstractItemView, QAbstractSpinBox, QComboBox, QKeySequenceEdit, QLineEdit, QTabBar>(widget))
    return false;
  return isOneOf<QAbstractButton, QLineEdit, QAbstractSpinBox, QComboBox, QAbstractSlider, QAbstractItemView,
                 QTextEdit, QPlainTextEdit>(&widget);
}

QString accessibleNameOf(QWidget& widget) {
  const auto* const accessible = QAccessible::queryAccessibleInterface(&widget);
  return accessible ? accessible->text(QAccessible::Name).trimmed() : QString();
}

/// "MainWindow / QDialog / QPushButton 'Apply'"
QString pathOf(QWidget& widget) {
  QStringList path;
  for (const QWidget* each = &widget; each; each = each->parentWidget()) {
    const QString kind = QString::fromLatin1(each->metaObject()->className()).section(u':', -1);
    path.prepend(each->objectName().isEmpty() ? kind : kind + u'#' + each->objectName());
  }
  const QString name = accessibleNameOf(widget);
  const QString text = path.join(QLatin1String(" / "));
  return name.isEmpty() ? text : QStringLiteral("%1 '%2'").arg(text, name);
}

/// Bars and menus have keys of their own.
bool isWalkedByKeys(const QWidget& widget) {
  return isInOneOf<ToolBar, MenuBarWidget, QMenuBar, QMenu>(widget);
}

bool hasKey(const QWidget& widget) {
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  if (button && !button->shortcut().isEmpty())
    return true;
  const auto actions = widget.actions();
  return std::any_of(actions.cbegin(), actions.cend(), [](const QAction* action) {
    return !action->shortcut().isEmpty() || action->associatedObjects().size() > 1;
  });
}

/// An entry of a menu that cannot be used just now.
bool isDisabledEntry(const QWidget& widget, const PaintedText& painted) {
  const auto* const menu = qobject_cast<const QMenu*>(&widget);
  const QAction* const entry = menu ? menu->actionAt(painted.rect.center().toPoint()) : nullptr;
  return entry && !entry->isEnabled();
}

/// Text that one can scroll is not cut off.
bool scrolls(const QWidget& widget) {
  return isOneOf<QLineEdit, QAbstractSpinBox, QTextEdit, QPlainTextEdit>(&widget) ||
         isInOneOf<QAbstractScrollArea>(widget);
}

bool isElided(const QWidget& widget, const QString& painted) {
  const QVariant text = widget.property("text");
  return painted.contains(QChar(0x2026)) && text.isValid() && !text.toString().contains(QChar(0x2026));
}

} // namespace

void Audit::lookAt(const AuditSurface& surface) {
  QList<QPointer<QWidget>> widgets{&surface.root};
  const auto children = surface.root.findChildren<QWidget*>();
  for (QWidget* const child : children) {
    if (child->window() == surface.root.window() && child->isVisibleTo(&surface.root))
      widgets.append(child);
  }
  for (const auto& widget : std::as_const(widgets)) {
    if (widget)
      lookAtWidget(*widget);
    if (widget && widget->isEnabled())
      lookAtTexts(*widget, surface);
  }
}

void Audit::lookAtWidget(QWidget& widget) {
  if (const auto* const bar = qobject_cast<const ToolBar*>(&widget)) {
    const auto buttons = bar->Buttons();
    for (ToolButton* const button : buttons) {
      if (button->icon().isNull() && button->toolButtonStyle() != Qt::ToolButtonTextOnly)
        add(AuditFinding::NoIcon, pathOf(*button));
    }
  }
  if (!isControl(widget))
    return;
  if (accessibleNameOf(widget).isEmpty())
    add(AuditFinding::NoAccessibleName, pathOf(widget));
  if (!(widget.focusPolicy() & Qt::TabFocus) && !isWalkedByKeys(widget) && !hasKey(widget))
    add(AuditFinding::NoKeyboard, pathOf(widget));
}

void Audit::lookAtTexts(QWidget& widget, const AuditSurface& surface) {
  const bool mayScroll = scrolls(widget);
  const QList<PaintedText> texts = paintedTexts(widget);
  const QPointF corner = widget.mapTo(&surface.root, QPoint());
  QString cutOff;
  QString pale;
  for (const PaintedText& painted : texts) {
    if (!mayScroll && (painted.isCutOff() || isElided(widget, painted.text)))
      cutOff = painted.text;
    const QRectF seen = (painted.rect & painted.clip).translated(corner) & surface.image.rect();
    if (seen.isEmpty() || isDisabledEntry(widget, painted))
      continue;
    const double contrast = contrastOn(surface.image, seen, painted.color);
    if (contrast < m_options.leastContrast)
      pale = QStringLiteral("%1 (%2 : 1)").arg(painted.text, QString::number(contrast, 'f', 1));
  }
  if (!cutOff.isEmpty())
    add(AuditFinding::TextCutOff, pathOf(widget) + QLatin1String(": ") + cutOff);
  if (!pale.isEmpty())
    add(AuditFinding::LowContrast, pathOf(widget) + QLatin1String(": ") + pale);
}

} // namespace Vela::UiBase
