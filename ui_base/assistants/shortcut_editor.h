// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class ShortcutEditorPrivate;
class ShortcutScheme;

/// Shows all commands of a scheme with their shortcuts and lets the user change them: search for a command,
/// press the keys for it, and use them. Before that it says what the keys mean already; keys of another
/// command can be taken over, which takes them away from that one. One or all can be given back what the
/// application chose; all differences can be written to a file, read from one, and saved as a page to print.
///
/// Keyboard: Tab leads from the search to the list, the field that records keys, and the buttons. The field
/// records every key but Tab.
///
/// The scheme is not owned and must outlive the editor. Belongs to its parent like any widget.
///
/// @code
/// auto* dialog = new MDialogBase(window);
/// dialog->SetTitle(tr("Keyboard Shortcuts"));
/// dialog->SetContent(new ShortcutEditor(*scheme));
/// dialog->open();
/// @endcode
class UI_BASE_EXPORT ShortcutEditor : public QWidget {
  Q_OBJECT

public:
  /// Edits @p scheme, which must outlive it.
  explicit ShortcutEditor(ShortcutScheme& scheme, QWidget* parent = nullptr);
  ~ShortcutEditor() override;

  /// Reads the user's shortcuts from a JSON file, or writes them to one. What fails is said in the editor.
  /// @return whether it went well.
  bool importFrom(const QString& file);
  /// See importFrom().
  bool exportTo(const QString& file);
  /// Writes the page with all shortcuts as a PDF.
  bool saveSheet(const QString& file);

protected:
  void showEvent(QShowEvent* event) override;

private:
  const std::unique_ptr<ShortcutEditorPrivate> d;
};

} // namespace Vela::UiBase
