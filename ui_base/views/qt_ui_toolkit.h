// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QString>

#include <memory>

class QObject;
class QWidget;

namespace Vela::UiBase {

class FlyoutBase;
class IIconProvider;
class MDialogBase;

/// Makes the small Qt objects of an application in one place: icons through one replaceable provider,
/// actions, flyouts and flyout dialogs, and a look-up of actions by their text. Main thread only.
///
/// @code
/// auto& toolkit = Vela::UiBase::QtUiToolkit::Instance();
/// window->addAction(toolkit.CreateAction(tr("Fit to view"), QStringLiteral(":/icons/fit.svg"), window,
///                                        QKeySequence(Qt::Key_F), view, SLOT(fitToView()),
///                                        QAction::NoRole));
/// @endcode
class UI_BASE_EXPORT QtUiToolkit {
public:
  /// Holds a DefaultIconProvider.
  QtUiToolkit();
  virtual ~QtUiToolkit();

  /// Replaces the icon provider. The toolkit owns the new one and deletes the old one; the one it already
  /// holds stays as it is. Null brings back a DefaultIconProvider. A provider of the shared instance is
  /// deleted before the application object is, so that it may keep pixmaps.
  virtual void IconProvider(IIconProvider* provider);
  /// The provider in use, never null; valid until it is replaced.
  virtual const IIconProvider* IconProvider() const;

  /// The icon that the provider has for `path`.
  virtual QIcon CreateIcon(const QString& path) const;

  /// A new action, owned by `parent`. An empty icon path makes one without an icon, an empty shortcut sets
  /// none. With a receiver the action's triggered() signal is connected to `member`, given as SLOT() or
  /// SIGNAL().
  virtual QAction* CreateAction(const QString& text, const QString& iconPath, QObject* parent,
                                const QKeySequence& shortcut = QKeySequence(), QObject* receiver = nullptr,
                                const char* member = nullptr,
                                QAction::MenuRole role = QAction::TextHeuristicRole) const;

  /// Enables or disables every action of the list whose text is `text`.
  virtual void EnableAction(QList<QAction*> actions, const QString& text, bool enable);

  /// The first of the widget's actions with this text. Null when there is none, for no widget and for no
  /// text.
  static QAction* FindAction(const QWidget* widget, const QString& text);

  /// A flyout panel around `mainPanel`, which it takes over; owned by `parent`.
  /// @param toolButton the button that it belongs to, not owned; may be null.
  /// @param apply,reset,cancel,close which buttons there are.
  static FlyoutBase* CreateFlyout(const QString& title, QWidget* mainPanel, QWidget* toolButton, bool apply,
                                  bool reset, bool cancel, bool close, QWidget* parent);
  /// The same with another text for the apply button; an empty one stands for the usual "Apply".
  static FlyoutBase* CreateFlyout(QWidget* mainPanel, const QString& title, QWidget* toolButton,
                                  const QString& applyText, bool apply, bool reset, bool cancel, bool close,
                                  QWidget* parent);

  /// A dialog that works like such a flyout and announces the same. It is not shown yet. Without a parent it
  /// stands over the window of the tool button, which then owns it.
  static MDialogBase* CreateFlyoutDialog(QWidget* parent, const QString& title, QWidget* mainPanel,
                                         QWidget* toolButton, bool apply, bool reset, bool cancel,
                                         bool close);
  /// The same with another text for the apply button.
  static MDialogBase* CreateFlyoutDialog(QWidget* mainPanel, const QString& title, QWidget* toolButton,
                                         const QString& applyText, bool apply, bool reset, bool cancel,
                                         bool close, QWidget* parent);

  /// The one that the application and the library share, made on first use.
  static QtUiToolkit& Instance();

private:
  Q_DISABLE_COPY_MOVE(QtUiToolkit)

  std::unique_ptr<IIconProvider> m_iconProvider;
};

} // namespace Vela::UiBase
