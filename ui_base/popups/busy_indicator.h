// SPDX-License-Identifier: MIT
#pragma once

#include <QMovie>
#include <QWidget>

namespace Vela::UiBase {

/// The small turning ring that says that work is under way, 16 by 16 pixels and sharp on any screen. It keeps
/// its place in a layout while it is hidden, and turns only while it is shown.
class BusyIndicator : public QWidget {
  Q_OBJECT

public:
  explicit BusyIndicator(QWidget* parent = nullptr);

protected:
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  QMovie m_movie;
};

} // namespace Vela::UiBase
