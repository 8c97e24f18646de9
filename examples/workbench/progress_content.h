// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QProgressBar;
class QPushButton;

namespace Workbench {

/// The content of a notification that tells how far some work is, with a button to cancel it.
class ProgressContent : public QWidget {
  Q_OBJECT

public:
  /// @param text  what is being done, "Smoothing"
  explicit ProgressContent(const QString& text, QWidget* parent = nullptr);

  /// @param fraction  from 0 to 1
  void setFraction(double fraction);

Q_SIGNALS:
  /// The button was pressed. It is disabled from then on.
  void cancelled();

private:
  QProgressBar* m_bar;
  QPushButton* m_cancel;
};

} // namespace Workbench
