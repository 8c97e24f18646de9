// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleInterface>
#include <QPointer>

class QAction;
class QMenu;

namespace Vela::UiBase {

/// What assistive technology is told of a command in a menu. That of Qt itself has no description; this one
/// has what the tooltip of the entry says, so it can be heard why the command cannot be used.
class MenuEntryAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
  explicit MenuEntryAccessible(QAction& entry);

  /// Makes one for a command that stands in a menu, for QAccessible::installFactory().
  static QAccessibleInterface* make(const QString& className, QObject* object);

  bool isValid() const override;
  QObject* object() const override;
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& name) const override;

private:
  QMenu* menu() const;

  const QPointer<QAction> m_entry;
};

} // namespace Vela::UiBase
