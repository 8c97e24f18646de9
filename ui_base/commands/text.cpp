// SPDX-License-Identifier: MIT
#include "text.h"

#include "command_name.h"

#include <QCoreApplication>
#include <QMetaObject>

namespace Vela::UiBase {

namespace {

// At one go: a value may contain a percent sign and a number itself.
QString withValues(const QString& text, const QStringList& values) {
  QString result;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const int place = i + 1 < text.size() && text[i] == u'%' ? text[i + 1].digitValue() : -1;
    if (place < 1 || place > values.size()) {
      result += text[i];
      continue;
    }
    result += values[place - 1];
    ++i;
  }
  return result;
}

} // namespace

Text::Text(const char* context, const char* source, const char* disambiguation)
    : m_context(context), m_source(source), m_disambiguation(disambiguation) {}

Text::Text(const QMetaObject& context, const char* source, const char* disambiguation)
    : Text(context.className(), source, disambiguation) {}

Text::Text(const QString& asItIs) : m_source(asItIs.toUtf8()) {}

Text Text::arg(const Text& value) const {
  Text text = *this;
  text.m_values.append(value);
  return text;
}

Text Text::inSentence() const {
  Text text = *this;
  text.m_inSentence = true;
  return text;
}

QString Text::translated() const { return inLanguage(Language::Current); }

QString Text::source() const { return inLanguage(Language::Source); }

QString Text::inLanguage(Language language) const {
  const bool isFixed = m_context.isEmpty() || language == Language::Source;
  QString text =
      isFixed
          ? QString::fromUtf8(m_source)
          : QCoreApplication::translate(m_context.constData(), m_source.constData(),
                                        m_disambiguation.isEmpty() ? nullptr : m_disambiguation.constData());
  if (m_inSentence)
    text = nameInSentence(text);
  QStringList values;
  for (const Text& value : m_values)
    values.append(value.inLanguage(language));
  return values.isEmpty() ? text : withValues(text, values);
}

bool operator==(const Text& a, const Text& b) {
  return a.m_context == b.m_context && a.m_source == b.m_source && a.m_disambiguation == b.m_disambiguation &&
         a.m_values == b.m_values && a.m_inSentence == b.m_inSentence;
}

} // namespace Vela::UiBase
