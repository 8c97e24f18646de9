// SPDX-License-Identifier: MIT
#include "language.h"

#include <workbench/config.h>

#include <QCoreApplication>
#include <QPointer>

namespace Workbench {

using Vela::UiBase::LanguageTranslator;

namespace {

constexpr QLatin1String LanguageKey("look/language");

LanguageTranslator& translator() {
  static QPointer<QObject> made; // a child of the application object
  if (!made) {
    auto* const translator = new LanguageTranslator(QCoreApplication::instance());
    translator->addTexts(QStringLiteral(":/workbench/translations/workbench"));
    translator->addQtTexts();
    made = translator;
  }
  return static_cast<LanguageTranslator&>(*made);
}

// The "C" locale, of systems that were told nothing, speaks English.
QLocale::Language ofDesktop() {
  const QLocale::Language language = QLocale::system().language();
  return language == QLocale::C ? QLocale::English : language;
}

// Numbers and dates are those of the desktop's country where it speaks the language.
void speak(QLocale::Language language) {
  translator().setLocale(language == ofDesktop() ? QLocale::system() : QLocale(language));
}

} // namespace

const QList<QLocale::Language>& Language::all() {
  static const QList<QLocale::Language> languages{QLocale::English, QLocale::German};
  return languages;
}

QLocale::Language Language::current() {
  const QLocale::Language language = translator().locale().language();
  return all().contains(language) ? language : QLocale::English;
}

void Language::choose(QLocale::Language language) {
  config().setValue(LanguageKey, QLocale::languageToCode(language));
  speak(language);
}

void Language::restore() {
  const QString chosen = config().value(LanguageKey).toString();
  const QLocale::Language language = chosen.isEmpty() ? ofDesktop() : QLocale::codeToLanguage(chosen);
  speak(all().contains(language) ? language : QLocale::English);
}

} // namespace Workbench
