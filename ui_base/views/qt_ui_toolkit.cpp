// SPDX-License-Identifier: MIT
#include "qt_ui_toolkit.h"

#include <ui_base/commands/i_icon_provider.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/m_dialog_base.h>
#include <ui_base/views/default_icon_provider.h>

#include <QCoreApplication>
#include <QWidget>

namespace Vela::UiBase {

namespace {

void dropApplicationsProvider() { QtUiToolkit::Instance().IconProvider(nullptr); }

} // namespace

QtUiToolkit::QtUiToolkit() : m_iconProvider(std::make_unique<DefaultIconProvider>()) {}

QtUiToolkit::~QtUiToolkit() = default;

QtUiToolkit& QtUiToolkit::Instance() {
  static QtUiToolkit instance;
  return instance;
}

void QtUiToolkit::IconProvider(IIconProvider* provider) {
  if (provider == m_iconProvider.get())
    return;
  if (!provider) {
    m_iconProvider = std::make_unique<DefaultIconProvider>();
    return;
  }
  m_iconProvider.reset(provider);
  if (this == &Instance()) {
    qRemovePostRoutine(dropApplicationsProvider);
    qAddPostRoutine(dropApplicationsProvider);
  }
}

const IIconProvider* QtUiToolkit::IconProvider() const { return m_iconProvider.get(); }

QIcon QtUiToolkit::CreateIcon(const QString& path) const { return IconProvider()->CreateIcon(path); }

QAction* QtUiToolkit::CreateAction(const QString& text, const QString& iconPath, QObject* parent,
                                   const QKeySequence& shortcut, QObject* receiver, const char* member,
                                   QAction::MenuRole role) const {
  auto* action =
      iconPath.isEmpty() ? new QAction(text, parent) : new QAction(CreateIcon(iconPath), text, parent);
  action->setShortcut(shortcut);
  if (receiver)
    QObject::connect(action, SIGNAL(triggered()), receiver, member);
  action->setMenuRole(role);
  return action;
}

void QtUiToolkit::EnableAction(QList<QAction*> actions, const QString& text, bool enable) {
  for (QAction* action : std::as_const(actions)) {
    if (action && action->text() == text)
      action->setEnabled(enable);
  }
}

QAction* QtUiToolkit::FindAction(const QWidget* widget, const QString& text) {
  if (!widget || text.isEmpty())
    return nullptr;
  const QList<QAction*> actions = widget->actions();
  for (QAction* action : actions) {
    if (action->text() == text)
      return action;
  }
  return nullptr;
}

FlyoutBase* QtUiToolkit::CreateFlyout(const QString& title, QWidget* mainPanel, QWidget* toolButton,
                                      bool apply, bool reset, bool cancel, bool close, QWidget* parent) {
  return new FlyoutBase(title, mainPanel, toolButton, apply, reset, cancel, close, parent);
}

FlyoutBase* QtUiToolkit::CreateFlyout(QWidget* mainPanel, const QString& title, QWidget* toolButton,
                                      const QString& applyText, bool apply, bool reset, bool cancel,
                                      bool close, QWidget* parent) {
  FlyoutBase* const flyout = CreateFlyout(title, mainPanel, toolButton, apply, reset, cancel, close, parent);
  if (!applyText.isEmpty())
    flyout->SetApplyText(applyText);
  return flyout;
}

MDialogBase* QtUiToolkit::CreateFlyoutDialog(QWidget* parent, const QString& title, QWidget* mainPanel,
                                             QWidget* toolButton, bool apply, bool reset, bool cancel,
                                             bool close) {
  QWidget* const owner = parent || !toolButton ? parent : toolButton->window();
  auto* const dialog = new MDialogBase(title, mainPanel, apply, reset, cancel, close, owner);
  dialog->SetToolButton(toolButton);
  return dialog;
}

MDialogBase* QtUiToolkit::CreateFlyoutDialog(QWidget* mainPanel, const QString& title, QWidget* toolButton,
                                             const QString& applyText, bool apply, bool reset, bool cancel,
                                             bool close, QWidget* parent) {
  MDialogBase* const dialog =
      CreateFlyoutDialog(parent, title, mainPanel, toolButton, apply, reset, cancel, close);
  if (!applyText.isEmpty())
    dialog->SetApplyText(applyText);
  return dialog;
}

} // namespace Vela::UiBase
