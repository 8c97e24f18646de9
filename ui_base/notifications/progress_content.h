// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

namespace Vela::UiBase {

class NotificationButton;

/// What a notification shows of some work: what is done, how far it is, and a button to cancel it. The button
/// is reached with Tab; Escape, while it has the focus, does what it does.
class ProgressContent : public QWidget {
  Q_OBJECT

public:
  /// @param text  what is being done, "Smoothing…"
  explicit ProgressContent(const QString& text, QWidget* parent = nullptr);

  /// @param fraction  from 0 to 1; there is no bar while it is negative
  void setFraction(double fraction);
  void setCancellable(bool cancellable);
  /// Cancelling was asked for, and the button says so. It keeps the focus, but what it does is done.
  void setCancelling();

Q_SIGNALS:
  void cancelRequested();

protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void retranslate();
  void applyLook();

  const QString m_text;
  bool m_cancelling = false;
  QLabel* m_label;
  QProgressBar* m_bar;
  NotificationButton* m_cancel;
};

} // namespace Vela::UiBase
