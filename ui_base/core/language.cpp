// SPDX-License-Identifier: MIT
#include "language.h"

#include "application_events.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QPointer>
#include <QWidget>

namespace Vela::UiBase {

namespace {

class LanguageWatch : public QObject {
  Q_OBJECT

public:
  static LanguageWatch* instance() {
    static QPointer<LanguageWatch> watch; // a child of the application object
    if (!watch && QCoreApplication::instance())
      watch = new LanguageWatch(QCoreApplication::instance());
    return watch;
  }

Q_SIGNALS:
  void changed();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::LanguageChange && watched == parent())
      Q_EMIT changed();
    return false;
  }

private:
  explicit LanguageWatch(QObject* application) : QObject(application) {
    ApplicationEvents::watch(*this, {QEvent::LanguageChange});
  }
};

// Windows keep the locale that was the default one when they were made.
void renewLocaleOfWidgets() {
  if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
    return;
  const QWidgetList windows = QApplication::topLevelWidgets();
  QList<QPointer<QWidget>> inherited;
  for (QWidget* const window : windows) {
    if (!window->testAttribute(Qt::WA_SetLocale))
      inherited.append(window);
  }
  for (const QPointer<QWidget>& window : std::as_const(inherited)) {
    if (window)
      window->unsetLocale();
  }
}

} // namespace

QString withoutMnemonic(QString text) {
  for (qsizetype at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&', at + 1))
    text.remove(at, 1);
  return text;
}

void keepTranslated(QObject* owner, std::function<void()> translate) {
  if (!translate)
    return;
  LanguageWatch* const watch = owner ? LanguageWatch::instance() : nullptr;
  const QPointer<QObject> alive(owner);
  translate();
  if (watch && alive)
    QObject::connect(watch, &LanguageWatch::changed, owner, std::move(translate));
}

LanguageTranslator::LanguageTranslator(QObject* parent) : QTranslator(parent) {
  addTexts(QStringLiteral(":/vlk_ui_base/translations/vlk_ui_base"));
  QCoreApplication::installTranslator(this);
}

LanguageTranslator::~LanguageTranslator() {
  if (QCoreApplication::instance())
    QCoreApplication::removeTranslator(this);
}

void LanguageTranslator::addTexts(const QString& path) { m_paths.prepend(path); }

void LanguageTranslator::addQtTexts() {
  m_paths.append(QCoreApplication::applicationDirPath() + QStringLiteral("/translations/qtbase"));
  m_paths.append(QDir(QLibraryInfo::path(QLibraryInfo::TranslationsPath)).filePath(QStringLiteral("qtbase")));
}

void LanguageTranslator::setLocale(const QLocale& locale) {
  m_locale = locale;
  m_texts.clear();
  const QString language = QLocale::languageToCode(locale.language());
  for (const QString& path : std::as_const(m_paths)) {
    const QString file = path + u'_' + language + QStringLiteral(".qm");
    auto texts = std::make_unique<QTranslator>();
    if (QFile::exists(file) && texts->load(file))
      m_texts.push_back(std::move(texts));
  }
  QLocale::setDefault(locale);
  QEvent change(QEvent::LanguageChange);
  QCoreApplication::sendEvent(QCoreApplication::instance(), &change);
  renewLocaleOfWidgets();
}

bool LanguageTranslator::isEmpty() const { return m_texts.empty(); }

QString LanguageTranslator::translate(const char* context, const char* sourceText, const char* disambiguation,
                                      int n) const {
  for (const auto& texts : m_texts) {
    QString found = texts->translate(context, sourceText, disambiguation, n);
    if (!found.isNull())
      return found;
  }
  return {};
}

} // namespace Vela::UiBase

#include "language.moc"
