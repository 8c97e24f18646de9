// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/focus_keeper.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/flyout_sub_widgets.h>

#include <QPointer>

class QLabel;
class QLayout;
class QPushButton;

namespace Vela::UiBase {

class BusyIndicator;
class ContentScroller;

/// The parts of a FlyoutBase, and where its focus and its Escape key are.
class FlyoutBasePrivate {
public:
  explicit FlyoutBasePrivate(FlyoutBase* owner) : q(owner), subWidgets(*owner) {}

  /// Assistive technologies take flyouts for dialogs from now on, and hear which are busy.
  static void makeAccessible();
  void announceBusy() const;

  void build(QWidget* panel, PanelButtons buttons);
  QLayout* titleRow(bool close);
  QLayout* buttonRow(PanelButtons buttons);
  QPushButton* button(const char* text, void (FlyoutBase::*action)());
  /// Before the flyout is measured or seen first; one that never is costs no style sheets.
  void ensureStyled();
  void applyStyles();
  void updateEnabled();
  void giveFocusBack();
  void watchEscape();
  void forgetEscape();
  /// Takes the focus as if by Tab: fields select what they hold.
  void takeFocus();
  bool paintsItself() const { return !qobject_cast<ArrowedWindow*>(q->parentWidget()); }

  FlyoutBase* const q;
  QLabel* title = nullptr;
  QPointer<QWidget> mainPanel;
  ContentScroller* scroller = nullptr; // null without a panel
  QSize sizeLimit = {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
  QPointer<QWidget> toolButton;
  QPushButton* applyButton = nullptr; // null when there is none, like the next
  QPushButton* resetButton = nullptr;
  BusyIndicator* indicator = nullptr;
  bool applyEnabled = true;
  bool resetEnabled = true;
  FlyoutSubWidgets subWidgets;
  QRect partialBackground;
  QColor partialColor;
  bool busy = false;
  bool keepOpenInView = false;
  bool open = false;
  bool styled = false;
  FocusKeeper focus;                 // from before the flyout was shown
  QPointer<QWidget> focusBeforeBusy; // in the flyout
  QPointer<QWidget> escapeTarget;    // has Escape held down
};

} // namespace Vela::UiBase
