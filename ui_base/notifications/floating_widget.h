// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/notifications/layout_base_widget.h>
#include <ui_base/ui_base_export.h>

#include <QMargins>

#include <memory>

namespace Vela::UiBase {

class FloatingWidgetPrivate;

/// A child widget that floats over its parent: at an edge, in a corner or in the middle, as large as its
/// content needs and never larger than the parent. It follows the parent's size, comes to the front when it
/// is shown, and is hidden while none of its content is visible. Outside its content it takes no input: what
/// lies beneath stays within reach of the mouse.
///
/// Owned by its parent, like its content by it. Without a parent it stays hidden.
///
/// @code
/// auto* host = new Vela::UiBase::FloatingWidget(view);
/// host->setAlignment(Qt::AlignBottom | Qt::AlignRight);
/// host->addWidget(new QLabel(tr("50 000 triangles")));
/// @endcode
class UI_BASE_EXPORT FloatingWidget : public LayoutBaseWidget {
  Q_OBJECT

public:
  /// Floats over @p parent.
  explicit FloatingWidget(QWidget* parent = nullptr);
  ~FloatingWidget() override;

  /// Where it stands in the parent: top centre by default. Left and right are exchanged in right-to-left
  /// layouts.
  Qt::Alignment alignment() const;
  /// See alignment().
  void setAlignment(Qt::Alignment alignment);

  /// The distance kept from the parent's edges, in pixels; 8 on each side by default.
  QMargins margins() const;
  /// See margins().
  void setMargins(const QMargins& margins);

  /// Asks for it to be shown. It is visible only while a content is; hidden on purpose it stays hidden.
  void setVisible(bool visible) override;

protected:
  void contentChanged() override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  const std::unique_ptr<FloatingWidgetPrivate> d;
};

} // namespace Vela::UiBase
