// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QString>

#include <optional>

struct QMetaObject;

namespace Vela::UiBase {

/// A text by its source, which is looked up in the language of the moment whenever it is shown. Commands and
/// groups take it for their text and their tooltips, and change with the language. A value; the source is
/// marked for Qt's tools with QT_TR_NOOP or QT_TRANSLATE_NOOP.
///
/// @code
/// setText({staticMetaObject, QT_TR_NOOP("&Smooth Mesh")});   // in a class with Q_OBJECT
/// group->setToolTip({"Bars", QT_TRANSLATE_NOOP("Bars", "Shading")});
/// setText(Text(staticMetaObject, QT_TR_NOOP("&Undo %1")).arg(step));
/// @endcode
class UI_BASE_EXPORT Text {
public:
  /// @param disambiguation tells equal sources of a context apart; may be null.
  Text(const char* context, const char* source, const char* disambiguation = nullptr);
  /// In the context of a class.
  Text(const QMetaObject& context, const char* source, const char* disambiguation = nullptr);
  /// A text that is the same in every language, such as the name of a file.
  Text(const QString& asItIs); // NOLINT(google-explicit-constructor): stands where a plain text did

  /// The text with a value for its next free place, %1 to %9, which is translated with it.
  Text arg(const Text& value) const;
  /// The text as another one mentions it: without the mnemonic and the dots at its end.
  Text inSentence() const;

  /// In the language of the moment. From any thread.
  QString translated() const;
  /// In the language of the source code, with its values.
  QString source() const;
  /// Whether its source has no letters.
  bool isEmpty() const { return m_source.isEmpty(); }
  /// Whether it is the same in every language.
  bool isFixed() const { return m_context.isEmpty() && m_values.isEmpty(); }

  UI_BASE_EXPORT friend bool operator==(const Text& a, const Text& b);

private:
  enum class Language { Source, Current };
  QString inLanguage(Language language) const;

  QByteArray m_context; // empty for a text that is the same everywhere
  QByteArray m_source;
  QByteArray m_disambiguation;
  QList<Text> m_values;
  bool m_inSentence = false;
};

} // namespace Vela::UiBase
