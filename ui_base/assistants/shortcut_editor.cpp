// SPDX-License-Identifier: MIT
#include "shortcut_editor.h"

#include "shortcut_editor_p.h"
#include "shortcut_scheme.h"
#include "shortcut_sheet.h"

#include <QFile>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextDocument>

namespace Vela::UiBase {

ShortcutEditor::ShortcutEditor(ShortcutScheme& scheme, QWidget* parent)
    : QWidget(parent), d(std::make_unique<ShortcutEditorPrivate>(*this, scheme)) {
  setAccessibleName(tr("Keyboard shortcuts"));
}

ShortcutEditor::~ShortcutEditor() = default;

void ShortcutEditor::showEvent(QShowEvent*) { d->applyStyles(); }

bool ShortcutEditor::importFrom(const QString& file) {
  QFile source(file);
  const QString error =
      source.open(QIODevice::ReadOnly) ? d->scheme.readJson(source.readAll()) : source.errorString();
  d->say(error.isEmpty() ? tr("The shortcuts were read.") : error);
  return error.isEmpty();
}

bool ShortcutEditor::exportTo(const QString& file) {
  QSaveFile target(file);
  const QByteArray json = d->scheme.toJson();
  const bool written =
      target.open(QIODevice::WriteOnly) && target.write(json) == json.size() && target.commit();
  d->say(written ? tr("The shortcuts were written.") : target.errorString());
  return written;
}

bool ShortcutEditor::saveSheet(const QString& file) {
  QSaveFile target(file);
  if (target.open(QIODevice::WriteOnly)) {
    QPdfWriter writer(&target);
    writer.setTitle(tr("Keyboard Shortcuts"));
    QTextDocument page;
    page.setHtml(shortcutSheet(d->scheme));
    page.print(&writer);
  }
  const bool written = target.isOpen() && target.commit();
  d->say(written ? tr("The page was saved.") : target.errorString());
  return written;
}

} // namespace Vela::UiBase
