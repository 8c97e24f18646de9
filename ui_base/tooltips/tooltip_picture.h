// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QWidget>

namespace Vela::UiBase {

/// A picture of a fixed size, drawn at the pixel ratio of the screen it is on.
class TooltipPicture : public QWidget {
public:
  TooltipPicture(QIcon picture, const QSize& size);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  const QIcon m_picture;
};

} // namespace Vela::UiBase
