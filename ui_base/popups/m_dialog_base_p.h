// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/m_dialog_base.h>

#include <QList>
#include <QPointer>
#include <QPushButton>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace Vela::UiBase {

class BusyIndicator;
class ContentScroller;

/// The parts of a dialog, and what they do while it is busy, shown and closed.
class MDialogBasePrivate {
public:
  /// px that the desktop may need for the borders and the title bar of the window.
  static constexpr QSize windowFrame{20, 40};

  explicit MDialogBasePrivate(MDialogBase* owner) : q(owner) {}

  static bool isDismissing(QDialogButtonBox::ButtonRole role);

  void build();
  void applyStyles();
  QPushButton* button(const QString& text, QDialogButtonBox::ButtonRole role);
  /// With a text of the library; one that SetApplyText() gave since stays.
  QPushButton* ownButton(const char* text, QDialogButtonBox::ButtonRole role);
  bool isEnabledWhenIdle(const QPushButton* which) const;
  void enable(QPushButton* which, bool on);
  void hold(QWidget* widget);
  void beginBusy();
  void endBusy();
  void fitTheScreen();
  void updateLayouts();
  void focusFirst();
  void giveFocusBack();
  void host(FlyoutBase* flyout);
  void updateFrame();

  MDialogBase* const q;
  QVBoxLayout* column = nullptr;
  QLabel* title = nullptr;
  ContentScroller* scroller = nullptr;
  QHBoxLayout* footer = nullptr;
  QDialogButtonBox* box = nullptr;
  BusyIndicator* indicator = nullptr;
  QList<QPointer<QPushButton>> added;
  QPushButton* applyButton = nullptr; // null when there is none, like the next
  QPushButton* resetButton = nullptr;
  QPointer<QPushButton> defaultButton;
  QPointer<QWidget> content;
  QPointer<QWidget> toolButton;
  QPointer<QWidget> focusBefore;     // had the focus before the dialog was shown
  QPointer<QWidget> focusBeforeBusy; // in the dialog
  QList<QPointer<QWidget>> held;     // disabled while busy, enabled again after
  bool busy = false;
  bool cancelling = false;
  bool cancelled = false; // by the flyout
  bool closing = false;
};

} // namespace Vela::UiBase
