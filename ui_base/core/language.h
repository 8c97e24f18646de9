// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QLocale>
#include <QTranslator>

#include <functional>
#include <memory>
#include <vector>

class QObject;

namespace Vela::UiBase {

/// Calls `translate` at once, and again whenever the language of the program changes, as long as `owner`
/// lives: the one place for texts of a widget that are set once and shown for long. Widgets, actions and
/// other objects alike; called before any widget is told of the change. Main thread; without an application
/// object it is called just once.
///
/// @code
/// keepTranslated(label, [label] { label->setText(tr("Iterations")); });
/// @endcode
UI_BASE_EXPORT void keepTranslated(QObject* owner, std::function<void()> translate);

/// The text of an action or a button as it is read: without the marks of its mnemonic; of "&&" one stays.
UI_BASE_EXPORT QString withoutMnemonic(QString text);

/// The texts of a program in a language that the user may change while it runs: those of the program, of this
/// library and of Qt. One translator stands for all of them, so that a change of the language is told once.
///
/// Installs itself, and takes itself out when it dies. Main thread only; other threads may ask for texts
/// while the language stays.
///
/// @code
/// LanguageTranslator translator;
/// translator.addTexts(QStringLiteral(":/translations/program"));
/// translator.addQtTexts();
/// translator.setLocale(QLocale(QLocale::German));   // ":/translations/program_de.qm", and so on
/// @endcode
class UI_BASE_EXPORT LanguageTranslator : public QTranslator {
public:
  /// Has the texts of this library.
  explicit LanguageTranslator(QObject* parent = nullptr);
  ~LanguageTranslator() override;

  /// Adds texts, to be found from the next setLocale() on. What was added last is asked first.
  /// @param path of files without "_de.qm", in the file system or the resources.
  void addTexts(const QString& path);
  /// Adds the texts of Qt itself: those in the folder "translations" beside the program, else where Qt is
  /// installed.
  void addQtTexts();

  /// Speaks the language of that locale, and makes it the default one for numbers and dates, also in the
  /// widgets that there are. Texts that are not there in it stay as they stand in the source.
  void setLocale(const QLocale& locale);
  /// The one that was set last.
  QLocale locale() const { return m_locale; }

  bool isEmpty() const override;
  QString translate(const char* context, const char* sourceText, const char* disambiguation,
                    int n) const override;

private:
  QStringList m_paths;
  QLocale m_locale;
  std::vector<std::unique_ptr<QTranslator>> m_texts;
};

} // namespace Vela::UiBase
