// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/assistants/key_takers.h>

#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class KeyProbePrivate;

/// "Press any key": shows who could take the key in a window, in the order in which they are asked, who gets
/// it, and of the others why they do not. The key itself reaches nobody. Tab and Shift+Tab go on to the next
/// widget; all others can be tried.
///
/// The window is looked at as it stands with its focus; it may die. Belongs to its parent like any widget,
/// which should be another window: a dialog.
///
/// @code
/// auto* dialog = new MDialogBase(window);
/// dialog->SetTitle(tr("Press Any Key"));
/// dialog->SetContent(new KeyProbe(*window));
/// dialog->open();
/// @endcode
class UI_BASE_EXPORT KeyProbe : public QWidget {
  Q_OBJECT

public:
  /// Asks what keys would do in @p window, which may die first.
  explicit KeyProbe(QWidget& window, QWidget* parent = nullptr);
  ~KeyProbe() override;

  /// Shows the answer for these keys, as if they had been pressed.
  void ask(const QKeySequence& keys);
  /// What is shown, as text.
  QString text() const;

  QSize sizeHint() const override;

protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  const std::unique_ptr<KeyProbePrivate> d;
};

} // namespace Vela::UiBase
